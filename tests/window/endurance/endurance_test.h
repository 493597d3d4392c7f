#pragma once

#include "tests/support/own_process.h"
#include "tests/support/resources.h"
#include "tests/support/search_test.h"
#include "tests/window/endurance/at_once.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace vandrel::test {

// The main window on a small collection, used for hours.
class EnduranceTest : public SearchTest {
  protected:
    void startSmall()
    {
        folder.write(L"News.udb", newsSites);
        folder.write(L"Tools.udb", toolsSites);
        folder.write(L"Unused.udb", "");
        start();
        workspace().favoritesFolder = folder.path();
        clickCategory(L"News");
    }
    // Chooses the entry, which opens a dialog or message box, and answers that.
    void open(int entry, std::function<void(HWND)> answer)
    {
        const int before = atOnce_.answered();
        atOnce_.answer = std::move(answer);
        choose(entry);
        atOnce_.answer = nullptr;
        ASSERT_EQ(atOnce_.answered(), before + 1);
    }
    // A twentieth of `all`, which among all the other tests is enough to show anything left behind in every
    // round. VANDREL_ENDURANCE=100 (per cent), with VANDREL_TIMEOUT=1800 (seconds), runs all of them.
    static int rounds(int all)
    {
        const auto part = environmentText(L"VANDREL_ENDURANCE");
        return all * (part ? std::stoi(*part) : usualPerCent) / 100;
    }
    // This many rounds must leave nothing behind. A hundred rounds before them fill what the system and the
    // program keep for reuse.
    void endure(int count, const std::function<void()>& round)
    {
        constexpr int first = 100;
        runRounds(first, round);
        const Resources before = resourcesInUse();
        const ULONGLONG begun = GetTickCount64();
        runRounds(count, round);
        const ULONGLONG milliseconds = GetTickCount64() - begun;
        const Resources after = resourcesInUse();
        EXPECT_TRUE(heldAsBefore(before, after));
        std::printf("%s%d rounds in %llu ms; before: %s; after: %s\n", reportMark, count, milliseconds,
                    report(before).c_str(), report(after).c_str());
    }
    // The line of the output with the report.
    static std::string reportIn(const std::string& output)
    {
        const std::size_t at = output.find(reportMark);
        if (at == std::string::npos) return "no report\n";
        return output.substr(at, output.find('\n', at) + 1 - at);
    }

  private:
    // Messages are dispatched between rounds, as between commands. Otherwise everything that a thousand
    // searches leave in the queue would be in memory at once, and the heap would keep that memory.
    static void runRounds(int count, const std::function<void()>& round)
    {
        for (int i = 0; i < count && !HasFailure(); ++i) {
            round();
            pump();
        }
    }

    static constexpr int usualPerCent = 5;
    static constexpr const char* reportMark = "endured ";

    AtOnce atOnce_;
};

} // namespace vandrel::test
