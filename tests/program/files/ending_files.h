#pragma once

#include "platform/files/file_layer.h"
#include "tests/program/files/disk_calls.h"

#include <windows.h>

#include <cstdlib>
#include <string>
#include <type_traits>

namespace vandrel::test {

enum class When { before, within, after };

// The system's file calls, counted. One of them ends the process.
class EndingFiles : public FileLayer {
  public:
    EndingFiles(const std::wstring& folder, int last, When when, bool refusing)
        : folder_(extendedPath(folder)), last_(last), when_(when), refusing_(refusing)
    {}

    std::string calls;

    HANDLE createForWriting(const std::wstring& path) override
    {
        return counted('c', [&] { return refuses(path) ? denied() : FileLayer::createForWriting(path); });
    }
    HANDLE openForChange(const std::wstring& path) override
    {
        return counted('o', [&] { return FileLayer::openForChange(path); });
    }
    HANDLE openForAppending(const std::wstring& path) override
    {
        return counted('a', [&] { return FileLayer::openForAppending(path); });
    }
    bool write(HANDLE file, const char* bytes, DWORD count) override
    {
        if (isLast() && when_ == When::within) {
            FileLayer::write(file, bytes, count / 2);
            end();
        }
        return counted('w', [&] { return FileLayer::write(file, bytes, count); });
    }
    bool setSize(HANDLE file, std::size_t bytes) override
    {
        return counted('s', [&] { return FileLayer::setSize(file, bytes); });
    }
    bool flush(HANDLE file) override
    {
        return counted('f', [&] { return FileLayer::flush(file); });
    }
    bool close(HANDLE file) override
    {
        return counted('l', [&] { return FileLayer::close(file); });
    }
    bool copyIdentity(const std::wstring& original, const std::wstring& copy) override
    {
        return counted('i', [&] { return FileLayer::copyIdentity(original, copy); });
    }
    bool replace(const std::wstring& replacement, const std::wstring& target) override
    {
        return counted('r', [&] { return FileLayer::replace(replacement, target); });
    }
    bool copy(const std::wstring& from, const std::wstring& to) override
    {
        return counted('p', [&] { return FileLayer::copy(from, to); });
    }
    bool rename(const std::wstring& from, const std::wstring& to) override
    {
        return counted('n', [&] { return FileLayer::rename(from, to); });
    }
    bool clearAttributes(const std::wstring& path) override
    {
        return counted('t', [&] { return FileLayer::clearAttributes(path); });
    }
    bool remove(const std::wstring& path) override
    {
        return counted('d', [&] { return FileLayer::remove(path); });
    }
    bool writeProfileValue(const std::wstring& section, const std::wstring& key, const std::wstring& value,
                           const std::wstring& path) override
    {
        return counted('v', [&] { return FileLayer::writeProfileValue(section, key, value, path); });
    }

  private:
    // Without any clean-up, as when the process is killed or crashes.
    [[noreturn]] static void end()
    {
        TerminateProcess(GetCurrentProcess(), disk_calls::endedAtTheCall);
        Sleep(INFINITE);
        std::abort();
    }
    bool isLast() const { return static_cast<int>(calls.size()) + 1 == last_; }
    template <typename Call> std::invoke_result_t<Call> counted(char kind, Call call)
    {
        const bool last = isLast();
        if (last && when_ == When::before) end();
        const auto result = call();
        if (last && when_ == When::after) end();
        const DWORD reason = GetLastError();
        calls += kind;
        SetLastError(reason);
        return result;
    }
    bool refuses(const std::wstring& path) const { return refusing_ && path.starts_with(folder_ + L"\\"); }
    static HANDLE denied()
    {
        SetLastError(ERROR_ACCESS_DENIED);
        return INVALID_HANDLE_VALUE;
    }

    std::wstring folder_;
    int last_;
    When when_;
    bool refusing_;
};

} // namespace vandrel::test
