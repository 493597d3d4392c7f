#pragma once

#include <string>
#include <vector>

namespace vandrel::test {

// A temporary folder for one test, removed with everything in it.
class TempFolder {
  public:
    explicit TempFolder(const std::wstring& name = L"vandrel");
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder();

    const std::wstring& path() const { return path_; }
    std::wstring file(const std::wstring& name) const { return path_ + L"\\" + name; }
    // Exact bytes, without the code under test.
    void write(const std::wstring& name, const std::string& bytes) const;
    std::string read(const std::wstring& name) const;
    bool has(const std::wstring& name) const;
    // The names of the files, sorted; folders are left out.
    std::vector<std::wstring> names() const;

  private:
    void remove() const;

    std::wstring path_;
};

std::string readBytes(const std::wstring& path);

} // namespace vandrel::test
