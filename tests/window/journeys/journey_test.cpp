#include "tests/window/journeys/journey.h"

#include "tests/support/own_process.h"

#include <algorithm>
#include <cstdio>
#include <sstream>

namespace vandrel::test {
namespace {

// Any command after any other, given in any way, compared with a model of what each should do. VANDREL_SEED
// repeats a run; VANDREL_ENDURANCE is the percentage of all walks, of which ./test takes a few.
class Journeys : public JourneyTest {
  protected:
    static constexpr int allWalks = 1000;
    static constexpr int walksOfATest = 3;
    static constexpr std::size_t stepsOfAWalk = 50;
    // Holds the seed of the first walk and their number.
    static constexpr const wchar_t* partVariable = L"VANDREL_WALKS";
    // Few enough for one process: under Wine the folder dialog leaves hundreds of drawing objects behind
    // each time.
    static constexpr int walksOfAProcess = 10;
    static constexpr DWORD limitMilliseconds = 600'000; // for one process

    static unsigned seed()
    {
        const auto text = environmentText(L"VANDREL_SEED");
        return text ? static_cast<unsigned>(std::stoul(*text)) : std::random_device{}();
    }
    static int walks()
    {
        const auto part = environmentText(L"VANDREL_ENDURANCE");
        return part ? allWalks * std::stoi(*part) / 100 : walksOfATest;
    }
    void walkEach(unsigned first, int count)
    {
        for (int i = 0; i < count; ++i) {
            const unsigned number = first + static_cast<unsigned>(i);
            std::mt19937 random(number);
            const Walk steps = randomWalk(random, stepsOfAWalk);
            const std::string failure = walk(steps);
            if (failure.empty()) continue;
            const Walk few = shortened(steps);
            FAIL() << "seed " << number << ": " << failure << "\nin short: " << walk(few) << "\n"
                   << story(few);
        }
    }
    static void walkElsewhere(unsigned first, int count)
    {
        const OwnProcess process(partVariable, std::to_wstring(first) + L" " + std::to_wstring(count),
                                 "Journeys.*");
        const bool ended = WaitForSingleObject(process.handle(), limitMilliseconds) == WAIT_OBJECT_0;
        EXPECT_TRUE(ended && process.succeeded()) << process.output();
    }
};

TEST_F(Journeys, WhateverTheUserDoesListsAndFilesMatchTheModel)
{
    unsigned first = seed();
    int count = walks();
    if (const auto part = environmentText(partVariable)) {
        std::wistringstream(*part) >> first >> count;
        walkEach(first, count);
        return;
    }
    for (int done = 0; done < count; done += walksOfAProcess)
        walkElsewhere(first + static_cast<unsigned>(done), std::min(walksOfAProcess, count - done));
    std::printf("%d walks of %zu steps from seed %u\n", count, stepsOfAWalk, first);
}

} // namespace
} // namespace vandrel::test
