#include "platform/system/settings_store.h"

#include "platform/base/handle.h"
#include "platform/base/runtime_error.h"
#include "platform/system/registry.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

class SettingsInStore : public testing::Test {
  protected:
    ~SettingsInStore() override
    {
        RegDeleteTreeW(HKEY_CURRENT_USER, (L"Software\\VB and VBA Program Settings\\" + application).c_str());
    }
    // Sets a value as another program might.
    void setRaw(const wchar_t* key, DWORD type, const void* data, std::size_t size)
    {
        HKEY opened = nullptr;
        ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, configKey.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr,
                                  &opened, nullptr),
                  ERROR_SUCCESS);
        const RegistryKeyHandle handle(opened);
        ASSERT_EQ(RegSetValueExW(opened, key, 0, type, static_cast<const BYTE*>(data),
                                 static_cast<DWORD>(size)),
                  ERROR_SUCCESS);
    }

    const std::wstring application = L"VandrelTest-" + std::to_wstring(GetCurrentProcessId());
    const std::wstring configKey = L"Software\\VB and VBA Program Settings\\" + application + L"\\Config";
    const SettingsStore store{application};
};

TEST_F(SettingsInStore, WhatIsSavedComesBackUnchanged)
{
    for (const wchar_t* const text :
         {L"4049", L"", L" two  blanks ", L"a\r\nb", L"\u0105\u672C\U0001F600", L"C:\\a\\%b%"}) {
        store.save(L"Config", L"Col1", text);
        EXPECT_EQ(store.get(L"Config", L"Col1"), text);
    }
}

TEST_F(SettingsInStore, LieInTheRegistryUnderApplicationAndSectionAsTexts)
{
    store.save(L"Config", L"Col1", L"4049");
    EXPECT_EQ(registryText(HKEY_CURRENT_USER, configKey, L"Col1"), L"4049");
    DWORD type = 0;
    DWORD size = 0;
    EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, configKey.c_str(), L"Col1", RRF_RT_ANY, &type, nullptr, &size),
              ERROR_SUCCESS);
    EXPECT_EQ(type, DWORD{REG_SZ});
    EXPECT_EQ(size, 5 * sizeof(wchar_t)); // with its final NUL
}

TEST_F(SettingsInStore, SectionsAndKeysAreKeptApart)
{
    store.save(L"Config", L"Col1", L"a");
    store.save(L"Config", L"Col2", L"b");
    store.save(L"Options", L"Col1", L"c");
    EXPECT_EQ(store.get(L"Config", L"Col1"), L"a");
    EXPECT_EQ(store.get(L"Config", L"Col2"), L"b");
    EXPECT_EQ(store.get(L"Options", L"Col1"), L"c");
}

TEST_F(SettingsInStore, WhatIsMissingReadsAsEmpty)
{
    EXPECT_EQ(store.get(L"Config", L"Col1"), L"");
    store.save(L"Config", L"Col1", L"a");
    EXPECT_EQ(store.get(L"Config", L"Col2"), L"");
    EXPECT_EQ(store.get(L"Options", L"Col1"), L"");
}

TEST_F(SettingsInStore, AValueThatIsNotATextReadsAsEmpty)
{
    const DWORD number = 12;
    setRaw(L"Number", REG_DWORD, &number, sizeof number);
    setRaw(L"Bytes", REG_BINARY, L"4049", 10);
    setRaw(L"Expandable", REG_EXPAND_SZ, L"%TEMP%", 14);
    setRaw(L"Several", REG_MULTI_SZ, L"a\0b\0", 10);
    for (const wchar_t* const key : {L"Number", L"Bytes", L"Expandable", L"Several"}) {
        EXPECT_EQ(store.get(L"Config", key), L"") << key;
    }
}

TEST_F(SettingsInStore, AValueOfAnotherTypeIsReplacedByTheTextSaved)
{
    const DWORD number = 12;
    setRaw(L"Col1", REG_DWORD, &number, sizeof number);
    store.save(L"Config", L"Col1", L"4049");
    EXPECT_EQ(store.get(L"Config", L"Col1"), L"4049");
}

TEST_F(SettingsInStore, ATextEndsAtItsFirstNul)
{
    setRaw(L"Col1", REG_SZ,
           L"40\0"
           L"49",
           12);
    EXPECT_EQ(store.get(L"Config", L"Col1"), L"40");
    store.save(L"Config", L"Col2", std::wstring_view(L"a\0b", 3));
    EXPECT_EQ(store.get(L"Config", L"Col2"), L"a");
}

TEST_F(SettingsInStore, ATextWithoutAFinalNulIsReadToItsLastLetter)
{
    setRaw(L"Whole", REG_SZ, L"4049", 8);
    setRaw(L"Odd", REG_SZ, L"4049", 7); // half of the last letter is missing
    setRaw(L"Nothing", REG_SZ, L"", 0);
    EXPECT_EQ(store.get(L"Config", L"Whole"), L"4049");
    EXPECT_TRUE(store.get(L"Config", L"Odd").starts_with(L"404"));
    EXPECT_EQ(store.get(L"Config", L"Nothing"), L"");
}

TEST_F(SettingsInStore, AMegabyteComesBack)
{
    const std::wstring text(512U << 10, L'x');
    store.save(L"Config", L"Long", text);
    EXPECT_TRUE(store.get(L"Config", L"Long") == text);
}

TEST_F(SettingsInStore, AStoreThatFailsIsARunTimeError)
{
    // The name of a registry key has at most 255 characters.
    EXPECT_THROW(store.save(std::wstring(300, L's'), L"Col1", L"a"), RuntimeError);
}

TEST(Registry, OtherRootsAreReadToo)
{
    EXPECT_NE(registryText(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\Windows NT\\CurrentVersion",
                           L"CurrentVersion"),
              L"");
    EXPECT_EQ(registryText(HKEY_LOCAL_MACHINE, L"Software\\No such key", L"x"), L"");
}

} // namespace
} // namespace vandrel::test
