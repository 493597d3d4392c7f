#include <windows.h>

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace vandrel::test {
namespace {

// The two programs' files, read as the system's loader reads them.
class Executable : public testing::TestWithParam<const char*> {
  protected:
    void SetUp() override
    {
        std::string path = GetParam();
        if (path.starts_with("/")) path.insert(0, "Z:"); // on a Unix host every file is on drive Z
        path_ = std::filesystem::path(path);
        std::ifstream in(path_, std::ios::binary);
        bytes.assign(std::istreambuf_iterator<char>(in), {});
        ASSERT_GT(bytes.size(), sizeof(IMAGE_DOS_HEADER));
        nt = at<IMAGE_NT_HEADERS64>(static_cast<std::size_t>(at<IMAGE_DOS_HEADER>(0).e_lfanew));
        ASSERT_EQ(nt.Signature, static_cast<DWORD>(IMAGE_NT_SIGNATURE));
        const auto first = static_cast<std::size_t>(at<IMAGE_DOS_HEADER>(0).e_lfanew) +
                           offsetof(IMAGE_NT_HEADERS64, OptionalHeader) + nt.FileHeader.SizeOfOptionalHeader;
        for (std::size_t i = 0; i < nt.FileHeader.NumberOfSections; ++i) {
            sections.push_back(at<IMAGE_SECTION_HEADER>(first + i * sizeof(IMAGE_SECTION_HEADER)));
        }
        module = LoadLibraryExW(path_.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
        ASSERT_NE(module, nullptr);
    }
    void TearDown() override
    {
        if (module != nullptr) FreeLibrary(module);
    }

    template <typename Value> Value at(std::size_t offset) const
    {
        Value value{};
        if (offset + sizeof value > bytes.size()) throw std::out_of_range("beyond the file");
        std::memcpy(&value, bytes.data() + offset, sizeof value);
        return value;
    }
    std::size_t offsetOf(DWORD address) const
    {
        for (const auto& section : sections) {
            if (address >= section.VirtualAddress && address - section.VirtualAddress < section.SizeOfRawData)
                return address - section.VirtualAddress + section.PointerToRawData;
        }
        throw std::out_of_range("an address in no section");
    }
    const IMAGE_DATA_DIRECTORY& directory(std::size_t index) const
    {
        return nt.OptionalHeader.DataDirectory[index];
    }
    std::vector<std::string> importedDlls() const
    {
        std::vector<std::string> names;
        std::size_t offset = offsetOf(directory(IMAGE_DIRECTORY_ENTRY_IMPORT).VirtualAddress);
        for (;; offset += sizeof(IMAGE_IMPORT_DESCRIPTOR)) {
            const auto import = at<IMAGE_IMPORT_DESCRIPTOR>(offset);
            if (import.Name == 0) return names;
            names.emplace_back(bytes.c_str() + offsetOf(import.Name));
        }
    }
    std::string resource(LPCWSTR name, LPCWSTR type) const
    {
        const HRSRC found = FindResourceW(module, name, type);
        if (found == nullptr) return {};
        const auto* const data = static_cast<const char*>(LockResource(LoadResource(module, found)));
        return {data, SizeofResource(module, found)};
    }

    std::string bytes;
    IMAGE_NT_HEADERS64 nt{};
    std::vector<IMAGE_SECTION_HEADER> sections;
    HMODULE module = nullptr;

  private:
    std::filesystem::path path_;
};

TEST_P(Executable, IsA64BitProgramOfLessThanOneAndAHalfMegabytes)
{
    EXPECT_EQ(nt.FileHeader.Machine, IMAGE_FILE_MACHINE_AMD64);
    EXPECT_LT(bytes.size(), 1'500'000U);
}

// A shell waits for console programs only; from Windows 11, 24H2, the manifest keeps them from a console of their own.
TEST_P(Executable, IsAWindowProgramUnlessAShellIsToWaitForIt)
{
    const bool console = std::string(GetParam()) == VANDREL_EXCHANGE;
    EXPECT_EQ(nt.OptionalHeader.Subsystem,
              console ? IMAGE_SUBSYSTEM_WINDOWS_CUI : IMAGE_SUBSYSTEM_WINDOWS_GUI);
    const std::string manifest = resource(CREATEPROCESS_MANIFEST_RESOURCE_ID, RT_MANIFEST);
    EXPECT_EQ(manifest.find(">detached</consoleAllocationPolicy>") != std::string::npos, console);
}

// Windows' compatibility goes by it: a program for an earlier version gets the metrics of earlier frames.
TEST_P(Executable, IsForTheSubsystemOfVersion61OrLater)
{
    const auto version = [](WORD major, WORD minor) { return std::pair(major, minor); };
    const auto& header = nt.OptionalHeader;
    EXPECT_EQ(version(header.MajorSubsystemVersion, header.MinorSubsystemVersion), version(6, 1));
    EXPECT_EQ(version(header.MajorOperatingSystemVersion, header.MinorOperatingSystemVersion), version(6, 1));
}

TEST_P(Executable, HasNoChecksumOrTheRightOne)
{
    // As the system's own reckoning: the sum of the 16-bit words with their carries, without the field, and the length.
    const std::size_t field = static_cast<std::size_t>(at<IMAGE_DOS_HEADER>(0).e_lfanew) +
                              offsetof(IMAGE_NT_HEADERS64, OptionalHeader) +
                              offsetof(IMAGE_OPTIONAL_HEADER64, CheckSum);
    std::string whole = bytes;
    whole.replace(field, sizeof(DWORD), sizeof(DWORD), '\0');
    whole.resize((whole.size() + 1) / 2 * 2);
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < whole.size(); i += 2) {
        WORD word = 0;
        std::memcpy(&word, whole.data() + i, sizeof word);
        sum += word;
        sum = (sum & 0xFFFF) + (sum >> 16);
    }
    const std::uint32_t right = sum + static_cast<std::uint32_t>(bytes.size());
    const std::uint32_t stored = nt.OptionalHeader.CheckSum;
    EXPECT_TRUE(stored == 0 || stored == right) << stored << " and not " << right;
}

TEST_P(Executable, NeedsNoDllBeyondThoseOfWindows)
{
    wchar_t system[MAX_PATH]{};
    GetSystemDirectoryW(system, MAX_PATH);
    const auto names = importedDlls();
    EXPECT_FALSE(names.empty());
    for (const std::string& name : names) {
        EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(system) / name)) << name;
        EXPECT_FALSE(name.starts_with("lib")) << name; // the compiler's own
    }
}

TEST_P(Executable, IsLoadedAnywhereInTheWholeAddressSpaceAndItsDataIsNeverRun)
{
    const WORD wanted = IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE | IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA |
                        IMAGE_DLLCHARACTERISTICS_NX_COMPAT;
    EXPECT_EQ(nt.OptionalHeader.DllCharacteristics & wanted, wanted);
    // Without relocations the flags above have no effect.
    EXPECT_EQ(nt.FileHeader.Characteristics & IMAGE_FILE_RELOCS_STRIPPED, 0);
    EXPECT_GT(directory(IMAGE_DIRECTORY_ENTRY_BASERELOC).Size, 0U);
}

TEST_P(Executable, GetsItsDllsFromTheSystemFolderAlone)
{
    const IMAGE_DATA_DIRECTORY place = directory(IMAGE_DIRECTORY_ENTRY_LOAD_CONFIG);
    ASSERT_GE(place.Size, sizeof(IMAGE_LOAD_CONFIG_DIRECTORY64));
    const auto config = at<IMAGE_LOAD_CONFIG_DIRECTORY64>(offsetOf(place.VirtualAddress));
    EXPECT_EQ(config.Size, place.Size);
    EXPECT_EQ(config.Reserved1, LOAD_LIBRARY_SEARCH_SYSTEM32); // the flags for dependent DLLs
    EXPECT_EQ(config.SecurityCookie, 0U);
}

TEST_P(Executable, HasNoSectionThatIsBothWritableAndExecutable)
{
    EXPECT_FALSE(sections.empty());
    for (const auto& section : sections) {
        const DWORD both = IMAGE_SCN_MEM_WRITE | IMAGE_SCN_MEM_EXECUTE;
        EXPECT_NE(section.Characteristics & both, both)
            << std::string(reinterpret_cast<const char*>(section.Name), 8);
    }
}

TEST_P(Executable, CarriesNoTimeStampAndNoSymbolsSoThatTheSameSourcesGiveTheSameBytes)
{
    EXPECT_EQ(nt.FileHeader.TimeDateStamp, 0U);
    EXPECT_EQ(nt.FileHeader.NumberOfSymbols, 0U);
}

TEST_P(Executable, AsksForThemedControlsAndForPerMonitorScaling)
{
    const std::string manifest = resource(CREATEPROCESS_MANIFEST_RESOURCE_ID, RT_MANIFEST);
    const std::size_t controls = manifest.find("name=\"Microsoft.Windows.Common-Controls\"");
    ASSERT_NE(controls, std::string::npos);
    EXPECT_NE(manifest.find("version=\"6.0.0.0\"", controls), std::string::npos);
    // Version 1607 of Windows 10 knows "PerMonitor" alone, which is in the second element as well.
    EXPECT_NE(manifest.find(">true/pm</dpiAware>"), std::string::npos);
    EXPECT_NE(manifest.find(">PerMonitorV2,PerMonitor</dpiAwareness>"), std::string::npos);
    EXPECT_NE(manifest.find("level=\"asInvoker\""), std::string::npos);
    EXPECT_NE(manifest.find("<longPathAware"), std::string::npos);
}

TEST_P(Executable, SaysItsNameAndTheVersionOfTheProject)
{
    const std::string version = resource(MAKEINTRESOURCEW(1), RT_VERSION);
    const DWORD signature = VS_FFI_SIGNATURE;
    const std::size_t fixed = version.find(std::string(reinterpret_cast<const char*>(&signature), 4));
    ASSERT_NE(fixed, std::string::npos);
    VS_FIXEDFILEINFO info{};
    ASSERT_LE(fixed + sizeof info, version.size());
    std::memcpy(&info, version.data() + fixed, sizeof info);
    const auto text = std::to_string(HIWORD(info.dwFileVersionMS)) + "." +
                      std::to_string(LOWORD(info.dwFileVersionMS)) + "." +
                      std::to_string(HIWORD(info.dwFileVersionLS));
    EXPECT_EQ(text, VANDREL_VERSION);
    const std::wstring name = L"ProductName";
    const auto letters = reinterpret_cast<const char*>(name.c_str());
    EXPECT_NE(version.find(std::string(letters, name.size() * sizeof(wchar_t))), std::string::npos);
    EXPECT_NE(FindResourceW(module, L"A-VANDREL", RT_GROUP_ICON), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Programs, Executable, testing::Values(VANDREL_PROGRAM, VANDREL_EXCHANGE),
                         [](const auto& tested) {
                             return tested.index == 0 ? "Vandrel" : "VandrelExchange";
                         });

} // namespace
} // namespace vandrel::test
