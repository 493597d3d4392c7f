#include "platform/files/file_layer.h"

#include "platform/base/handle.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace vandrel {
namespace {

constexpr DWORD keptAttributes = FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                 FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

// No value if the file system has none or the user may not read them.
std::optional<std::vector<BYTE>> accessRightsOf(const std::wstring& path)
{
    DWORD size = 0;
    GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    if (GetLastError() != ERROR_INSUFFICIENT_BUFFER) return std::nullopt;
    std::vector<BYTE> descriptor(size);
    if (!GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, descriptor.data(), size, &size))
        return std::nullopt;
    return descriptor;
}

// Whether both lists have the same entries, and both or neither take those of the folder. What else differs
// between descriptors is how the lists came about.
bool areSameRights(std::vector<BYTE>& one, std::vector<BYTE>& other)
{
    struct List {
        BOOL present = FALSE;
        PACL entries = nullptr; // null: everybody may do everything
        WORD isProtected = 0;
        std::string_view bytes;
    };
    const auto listOf = [](std::vector<BYTE>& descriptor) {
        List list;
        BOOL byDefault = FALSE;
        SECURITY_DESCRIPTOR_CONTROL control = 0;
        DWORD revision = 0;
        GetSecurityDescriptorDacl(descriptor.data(), &list.present, &list.entries, &byDefault);
        GetSecurityDescriptorControl(descriptor.data(), &control, &revision);
        list.isProtected = control & SE_DACL_PROTECTED;
        ACL_SIZE_INFORMATION size{};
        if (list.present && list.entries != nullptr &&
            GetAclInformation(list.entries, &size, sizeof size, AclSizeInformation)) {
            list.bytes = {reinterpret_cast<const char*>(list.entries) + sizeof(ACL),
                          size.AclBytesInUse - sizeof(ACL)};
        }
        return list;
    };
    const List first = listOf(one);
    const List second = listOf(other);
    return first.present == second.present && (first.entries == nullptr) == (second.entries == nullptr) &&
           first.isProtected == second.isProtected && first.bytes == second.bytes;
}

bool setCreationTime(const std::wstring& path, const FILETIME& time)
{
    const FileHandle file(CreateFileW(path.c_str(), FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      nullptr, OPEN_EXISTING, 0, nullptr));
    return file && SetFileTime(file.get(), &time, nullptr, nullptr) != 0;
}

FileLayer*& layerInForce()
{
    static FileLayer system;
    static FileLayer* inForce = &system;
    return inForce;
}

} // namespace

std::wstring FileLayer::contentsOf(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return path;
    // Other files are reparse points, too, such as those whose contents are kept in a cloud.
    WIN32_FIND_DATAW found{};
    const FindHandle search(FindFirstFileW(path.c_str(), &found));
    if (!search || found.dwReserved0 != IO_REPARSE_TAG_SYMLINK) return path;
    constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const FileHandle file(CreateFileW(path.c_str(), 0, shareAll, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file) return {};
    // As it was opened: for the normalised name the user may lack rights in the folders above, or the server
    // the means.
    std::wstring target(GetFinalPathNameByHandleW(file.get(), nullptr, 0, FILE_NAME_OPENED),
                        L'\0'); // and NUL
    target.resize(GetFinalPathNameByHandleW(file.get(), target.data(), static_cast<DWORD>(target.size()),
                                            FILE_NAME_OPENED));
    return target;
}

bool FileLayer::isEncrypted(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_ENCRYPTED) != 0;
}

std::optional<FileIdentity> FileLayer::identityOf(const std::wstring& path)
{
    constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    constexpr DWORD none = 0;
    constexpr DWORD invalid = 0xFFFFFFFF;
    BY_HANDLE_FILE_INFORMATION info{};
    const FileHandle file(CreateFileW(path.c_str(), 0, shareAll, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file || !GetFileInformationByHandle(file.get(), &info)) return std::nullopt;
    const bool numbered = info.nFileIndexHigh != info.nFileIndexLow ||
                          (info.nFileIndexLow != none && info.nFileIndexLow != invalid);
    if (!numbered) return std::nullopt;
    return FileIdentity{info.dwVolumeSerialNumber, info.nFileIndexHigh, info.nFileIndexLow};
}

HANDLE FileLayer::createForWriting(const std::wstring& path)
{
    return CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                       nullptr);
}

HANDLE FileLayer::createEncrypted(const std::wstring& path)
{
    return CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_ENCRYPTED,
                       nullptr);
}

HANDLE FileLayer::openForChange(const std::wstring& path)
{
    return CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
}

HANDLE FileLayer::openForAppending(const std::wstring& path)
{
    return CreateFileW(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

bool FileLayer::write(HANDLE file, const char* bytes, DWORD count)
{
    DWORD written = 0;
    if (!WriteFile(file, bytes, count, &written, nullptr)) return false;
    if (written == count) return true;
    SetLastError(ERROR_DISK_FULL);
    return false;
}

bool FileLayer::setSize(HANDLE file, std::size_t bytes)
{
    FILE_END_OF_FILE_INFO end{};
    end.EndOfFile.QuadPart = static_cast<LONGLONG>(bytes);
    return SetFileInformationByHandle(file, FileEndOfFileInfo, &end, sizeof end) != 0;
}

bool FileLayer::flush(HANDLE file) { return FlushFileBuffers(file) != 0; }

bool FileLayer::close(HANDLE file) { return CloseHandle(file) != 0; }

bool FileLayer::setAccessRights(const std::wstring& path, PSECURITY_DESCRIPTOR rights)
{
    return SetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, rights) != 0;
}

// Most files have the rights that their folder gives. Setting these again takes time and may be refused: on a
// share that grants "Change" nobody may set rights.
bool FileLayer::copyAccessRights(const std::wstring& original, const std::wstring& copy)
{
    auto wanted = accessRightsOf(original);
    if (!wanted) return true;
    auto given = accessRightsOf(copy);
    return (given && areSameRights(*wanted, *given)) || setAccessRights(copy, wanted->data());
}

bool FileLayer::copyIdentity(const std::wstring& original, const std::wstring& copy)
{
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(original.c_str(), GetFileExInfoStandard, &data)) {
        return GetLastError() == ERROR_FILE_NOT_FOUND; // a new file has no original
    }
    DWORD reason = ERROR_SUCCESS;
    const auto note = [&reason](bool done) {
        if (!done) reason = GetLastError();
    };
    note(setCreationTime(copy, data.ftCreationTime));
    const DWORD attributes = data.dwFileAttributes & keptAttributes;
    note(SetFileAttributesW(copy.c_str(), attributes != 0 ? attributes : FILE_ATTRIBUTE_NORMAL) != 0);
    note(copyAccessRights(original, copy));
    SetLastError(reason);
    return reason == ERROR_SUCCESS;
}

bool FileLayer::replace(const std::wstring& replacement, const std::wstring& target)
{
    return MoveFileExW(replacement.c_str(), target.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

bool FileLayer::copy(const std::wstring& from, const std::wstring& to)
{
    return CopyFileW(from.c_str(), to.c_str(), FALSE) != 0;
}

bool FileLayer::rename(const std::wstring& from, const std::wstring& to)
{
    return MoveFileW(from.c_str(), to.c_str()) != 0;
}

bool FileLayer::clearAttributes(const std::wstring& path)
{
    return SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL) != 0;
}

bool FileLayer::remove(const std::wstring& path) { return DeleteFileW(path.c_str()) != 0; }

bool FileLayer::writeProfileValue(const std::wstring& section, const std::wstring& key,
                                  const std::wstring& value, const std::wstring& path)
{
    return WritePrivateProfileStringW(section.c_str(), key.c_str(), value.c_str(), path.c_str()) != 0;
}

FileLayer& systemFiles() { return *layerInForce(); }

FilesInForce::FilesInForce(FileLayer& files) : before_(std::exchange(layerInForce(), &files)) {}

FilesInForce::~FilesInForce() { layerInForce() = before_; }

std::wstring extendedPath(const std::wstring& path)
{
    if (path.starts_with(L"\\\\?\\") || path.starts_with(L"\\\\.\\")) return path;
    if (path.starts_with(L"\\\\")) return L"\\\\?\\UNC\\" + path.substr(2);
    if (path.size() < 3 || path[1] != L':' || path[2] != L'\\') return path;
    // In this form the system does not merge double backslashes, and "C:\" + "\name" has one.
    std::wstring single = path;
    const auto both = [](wchar_t a, wchar_t b) { return a == L'\\' && b == L'\\'; };
    single.erase(std::unique(single.begin(), single.end(), both), single.end());
    return L"\\\\?\\" + single;
}

bool fileExists(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(extendedPath(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

} // namespace vandrel
