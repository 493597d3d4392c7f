#include "dialogs/frm_properties.h"
#include "platform/text/date_reading.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

// Sets the user's short date format until the end of the test.
class DatePattern {
  public:
    explicit DatePattern(const std::wstring& pattern) { set(pattern); }
    DatePattern(const DatePattern&) = delete;
    DatePattern& operator=(const DatePattern&) = delete;
    ~DatePattern() { set(before_); }

  private:
    static void set(const std::wstring& pattern)
    {
        EXPECT_TRUE(SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, pattern.c_str()));
        EXPECT_EQ(shortDatePattern(), pattern);
    }

    std::wstring before_ = shortDatePattern();
};

TEST(ShownDate, IsNeverForAnEmptyText) { EXPECT_EQ(shownDate(L""), L"Never"); }

TEST(ShownDate, IsMonthDayAndYearWithHyphens)
{
    const DatePattern american(L"M/d/yyyy");
    EXPECT_EQ(shownDate(L"11/16/2002"), L"11-16-2002");
    EXPECT_EQ(shownDate(L"1/2/2003"), L"01-02-2003");
    EXPECT_EQ(shownDate(L"1/2/03"), L"01-02-2003");
    EXPECT_EQ(shownDate(L"16/11/2002"), L"11-16-2002");
    EXPECT_EQ(shownDate(L"2002-11-16"), L"11-16-2002");
}

TEST(ShownDate, IsReadInTheOrderOfTheUsersLocale)
{
    for (const auto& [pattern, text] :
         {std::pair{L"M/d/yyyy", L"5/6/2002"}, std::pair{L"dd.MM.yyyy", L"06.05.2002"},
          std::pair{L"dd/MM/yyyy", L"06/05/2002"}, std::pair{L"yyyy/MM/dd", L"2002/05/06"},
          std::pair{L"d. M. yyyy", L"6. 5. 2002"}}) {
        const DatePattern set(pattern);
        EXPECT_EQ(shownDate(text), L"05-06-2002") << std::wstring(pattern);
    }
}

TEST(ShownDate, WithTheNameOfAMonthIsADateToo)
{
    const DatePattern american(L"M/d/yyyy");
    EXPECT_EQ(shownDate(L"16 Nov 2002"), L"11-16-2002");
    EXPECT_EQ(shownDate(L"November 16, 2002"), L"11-16-2002");
    EXPECT_EQ(shownDate(L"11/16/2002 10:30:00 PM"), L"11-16-2002");
}

TEST(ShownDate, IsTheTextItselfWhenThatIsNotADate)
{
    for (const wchar_t* const text : {L"yesterday", L"never", L"12", L"2002", L"1.5", L"13/32/2002",
                                      L"2/29/2003", L"20021116", L"10:30", L"http://a/", L"-", L" "}) {
        EXPECT_EQ(shownDate(text), text);
    }
}

} // namespace
} // namespace vandrel::test
