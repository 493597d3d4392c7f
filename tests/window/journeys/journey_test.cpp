#include "tests/window/journeys/journey.h"

#include "tests/window/endurance/own_process.h"

#include <cstdio>

namespace vandrel::test {
namespace {

// Any command after any other, by whatever way, beside a model of what each is to do. VANDREL_SEED repeats a run;
// VANDREL_ENDURANCE is the per cent of all walks, of which ./test takes a few.
class Journeys : public JourneyTest {
  protected:
    static constexpr int allWalks = 1000;
    static constexpr std::size_t stepsOfAWalk = 50;

    static unsigned seed()
    {
        const auto text = environmentText(L"VANDREL_SEED");
        return text ? static_cast<unsigned>(std::stoul(*text)) : std::random_device{}();
    }
    static int walks()
    {
        const auto part = environmentText(L"VANDREL_ENDURANCE");
        return part ? allWalks * std::stoi(*part) / 100 : 3;
    }
};

TEST_F(Journeys, WhateverTheUserDoesListsAndFilesAreAsTheModelHasThem)
{
    const unsigned first = seed();
    for (int i = 0; i < walks(); ++i) {
        const unsigned number = first + static_cast<unsigned>(i);
        std::mt19937 random(number);
        const Walk steps = randomWalk(random, stepsOfAWalk);
        const std::string failure = walk(steps);
        if (failure.empty()) continue;
        const Walk few = shortened(steps);
        FAIL() << "seed " << number << ": " << failure << "\nin short: " << walk(few) << "\n" << story(few);
    }
    std::printf("%d walks of %zu steps from seed %u\n", walks(), stepsOfAWalk, first);
}

} // namespace
} // namespace vandrel::test
