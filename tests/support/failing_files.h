#pragma once

#include "platform/files/file_layer.h"

#include <string>
#include <vector>

namespace vandrel::test {

// The system's file calls, recorded. The n-th fails, either alone or with all that follow it.
class FailingFiles : public FileLayer {
  public:
    enum class How { once, forGood };

    FailingFiles() = default;
    FailingFiles(int failAt, DWORD error, How how = How::once) : failAt_(failAt), error_(error), how_(how) {}

    bool removalFails = false;
    std::vector<std::string> calls;
    std::wstring temporaryPath;
    bool hasFailed() const { return failed_; }

    HANDLE createForWriting(const std::wstring& path) override
    {
        temporaryPath = path;
        return fails("create") ? refused(INVALID_HANDLE_VALUE) : FileLayer::createForWriting(path);
    }
    HANDLE openForChange(const std::wstring& path) override
    {
        return fails("open") ? refused(INVALID_HANDLE_VALUE) : FileLayer::openForChange(path);
    }
    bool write(HANDLE file, const char* bytes, DWORD count) override
    {
        if (!fails("write")) return FileLayer::write(file, bytes, count);
        FileLayer::write(file, bytes, count / 2); // a disk fills up in the middle
        return refused(false);
    }
    bool setSize(HANDLE file, std::size_t bytes) override
    {
        return fails("size") ? refused(false) : FileLayer::setSize(file, bytes);
    }
    bool flush(HANDLE file) override { return fails("flush") ? refused(false) : FileLayer::flush(file); }
    bool close(HANDLE file) override
    {
        const bool fail = fails("close");
        const bool closed = FileLayer::close(file); // a file that cannot be written is closed all the same
        return fail ? refused(false) : closed;
    }
    bool copyIdentity(const std::wstring& original, const std::wstring& copy) override
    {
        return fails("identity") ? refused(false) : FileLayer::copyIdentity(original, copy);
    }
    bool replace(const std::wstring& replacement, const std::wstring& target) override
    {
        return fails("replace") ? refused(false) : FileLayer::replace(replacement, target);
    }
    bool rename(const std::wstring& from, const std::wstring& to) override
    {
        return fails("rename") ? refused(false) : FileLayer::rename(from, to);
    }
    bool remove(const std::wstring& path) override
    {
        calls.emplace_back("remove");
        return removalFails ? refused(false) : FileLayer::remove(path);
    }

  private:
    bool fails(const char* call)
    {
        calls.emplace_back(call);
        ++made_;
        const bool fail = made_ == failAt_ || (how_ == How::forGood && failAt_ > 0 && made_ > failAt_);
        failed_ = failed_ || fail;
        return fail;
    }
    template <typename T> T refused(T answer) const
    {
        SetLastError(error_);
        return answer;
    }

    int failAt_ = 0; // from 1
    DWORD error_ = 0;
    How how_ = How::once;
    int made_ = 0;
    bool failed_ = false;
};

} // namespace vandrel::test
