#include "tests/program/support/day.h"

namespace vandrel::test {
namespace {

class DayWithTheProgram : public Day {
  protected:
    void SetUp() override { requireCollection(L"collection", 1252); }
};

class DayInLargeItalics : public DayWithTheProgram {
  protected:
    DayInLargeItalics()
    {
        setPreference(L"Options", L"FontSize", L"18");
        setPreference(L"Options", L"FontItalic", L"1");
    }
};

// The program asks for the resolution when it starts; the test itself works in plain pixels.
class DayAt144Dpi : public DayWithTheProgram {
  protected:
    ~DayAt144Dpi() override
    {
        program.kill();
        SetThreadDpiAwarenessContext(before_);
    }

  private:
    RegistryValue resolution_{HKEY_CURRENT_USER, L"Control Panel\\Desktop", L"LogPixels", DWORD{144}};
    DPI_AWARENESS_CONTEXT before_ = SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
};

class GermanDay : public DayWithTheProgram {
  protected:
    void SetUp() override
    {
        if (PRIMARYLANGID(GetUserDefaultLangID()) != LANG_GERMAN) GTEST_SKIP() << "not under German settings";
        DayWithTheProgram::SetUp();
    }
};

class JapaneseDay : public Day {
  protected:
    void SetUp() override { requireCollection(L"collection-cp932", 932); }
};

TEST_F(DayWithTheProgram, GoesFromAnEmptyFolderToACollectionThatIsAsItWasLeft) { spend({.pictures = "day"}); }

TEST_F(DayInLargeItalics, GoesFromAnEmptyFolderToACollectionThatIsAsItWasLeft)
{
    spend({.pictures = "day-italics", .fontSize = L"20"});
}

TEST_F(DayAt144Dpi, GoesFromAnEmptyFolderToACollectionThatIsAsItWasLeft)
{
    spend({.pictures = "day-144dpi", .dpi = 144});
}

TEST_F(GermanDay, GoesFromAnEmptyFolderToACollectionThatIsAsItWasLeft)
{
    spend({.pictures = "day-german",
           .title = L"Zeitungen für morgens",
           .otherTitle = L"Übernommenes",
           .name = L"Süddeutsche",
           .description = L"täglich – außer Sonntag",
           .category = L"Kostenlose Programmierbücher für Anfänger & Fortgeschrittene",
           .quickTerm = L"apps für android",
           .quickName = L"Einführung in die Entwicklung von Apps für Android 8",
           .term = L"einführung in die",
           .dateForm = L"dd.MM.yyyy"});
}

TEST_F(JapaneseDay, GoesFromAnEmptyFolderToACollectionThatIsAsItWasLeft)
{
    spend({.pictures = "day-japanese",
           .title = L"新聞と表",
           .otherTitle = L"お気に入りソ",
           .name = L"朝の新聞ポスト",
           .description = L"毎日の予定表",
           .category = L"ソフト",
           .quickTerm = L"ソフトウェアの育て方",
           .quickName = L"オープンソースソフトウェアの育て方",
           .term = L"ソフトウェア",
           .dateForm = L"yyyy/MM/dd"});
}

} // namespace
} // namespace vandrel::test
