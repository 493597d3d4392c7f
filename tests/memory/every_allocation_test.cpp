#include "tests/memory/command_run.h"
#include "tests/support/own_process.h"
#include "tests/support/test_server.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <sstream>

namespace vandrel::test {
namespace {

using failing_new::How;
using failing_new::Where;

constexpr const wchar_t* taskVariable = L"VANDREL_MEMORY_TASK";
constexpr const wchar_t* wholeVariable = L"VANDREL_MEMORY";
constexpr DWORD limitMilliseconds = 60'000; // for one run, on a machine that does other work too

std::wstring wide(const std::string& bytes) { return {bytes.begin(), bytes.end()}; }
std::string narrow(const std::wstring& text) { return {text.begin(), text.end()}; }

// The task of a second process.
struct Task {
    std::size_t command = 0; // its index
    bool sample = false;     // this command and all after it, a few runs each
    How how = How::once;
    Where where = Where::thisThread;
    unsigned first = 1; // the first allocation to fail
    unsigned seed = 0;
    std::string server = "-";

    std::wstring text() const
    {
        std::ostringstream line;
        line << command << ' ' << sample << ' ' << static_cast<int>(how) << ' ' << static_cast<int>(where)
             << ' ' << first << ' ' << seed << ' ' << server;
        return wide(line.str());
    }
    static Task from(const std::wstring& text)
    {
        std::istringstream line(narrow(text));
        Task read;
        int how = 0;
        int where = 0;
        line >> read.command >> read.sample >> how >> where >> read.first >> read.seed >> read.server;
        read.how = static_cast<How>(how);
        read.where = static_cast<Where>(where);
        return read;
    }
};

// ---- the second process

void say(const char* what, std::size_t command, unsigned n, const std::wstring& text = {})
{
    std::printf("%s %zu %u %s\n", what, command, n, narrow(text).c_str());
    std::fflush(stdout);
}

void sayWrong(std::size_t command, unsigned n, const std::wstring& wrong)
{
    if (!wrong.empty()) say("wrong", command, n, wrong);
}

// Creating a window for each run takes longer than anything else, so the runs share what they can.
struct Trial {
    explicit Trial(const Task& task) { collection.server = task.server == "-" ? L"" : wide(task.server); }

    void learn(std::size_t number, Where where)
    {
        collection.withServer = commands()[number].needsServer;
        run = std::make_unique<CommandRun>(collection, commands()[number]);
        say("begin", number, 0);
        sayWrong(number, 0, run->learn(where));
        say("usual", number, run->usual());
    }
    // Returns whether there was an n-th allocation.
    bool fail(std::size_t number, unsigned n, How how, Where where) const
    {
        bool reached = false;
        say("begin", number, n);
        sayWrong(number, n, run->failing(n, how, where, reached));
        return reached;
    }

    Collection collection;
    std::unique_ptr<CommandRun> run;
};

void runEach(const Task& task)
{
    Trial trial(task);
    trial.learn(task.command, task.where);
    unsigned n = task.first;
    while (trial.fail(task.command, n, task.how, task.where)) ++n;
}

void runSample(const Task& task)
{
    std::mt19937 random(task.seed);
    Trial trial(task);
    for (std::size_t number = task.command; number < commands().size(); ++number) {
        trial.learn(number, Where::thisThread);
        for (const How how : {How::once, How::forGood}) {
            trial.fail(number, 1 + static_cast<unsigned>(random()) % trial.run->usual(), how,
                       Where::thisThread);
        }
    }
}

void runTask(const std::wstring& told)
{
    const Task task = Task::from(told);
    if (task.sample) runSample(task);
    else runEach(task);
    say("through", 0, 0);
}

// ---- the process that starts it

// What the second process has reported.
struct Said {
    std::size_t command = 0; // of the last run begun
    unsigned n = 0;
    unsigned usual = 0;
    unsigned runs = 0;
    bool through = false;
    std::string wrong;
};

Said readSaid(const std::string& output)
{
    Said said;
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string what;
        std::size_t command = 0;
        unsigned n = 0;
        if (!(words >> what >> command >> n)) continue;
        if (what == "begin") {
            said.command = command;
            said.n = n;
            ++said.runs;
        }
        if (what == "usual") said.usual = n;
        if (what == "through") said.through = true;
        std::string rest;
        std::getline(words, rest);
        if (what == "wrong") {
            said.wrong += std::string(commands()[command].name) + ", allocation " + std::to_string(n) + ":" +
                          rest + "\n";
        }
    }
    return said;
}

class EveryAllocation : public testing::TestWithParam<std::size_t> {
  protected:
    EveryAllocation() { server_.put("/update/VDVer.txt", "0.0.1"); }

    // Runs the task. When a process crashes or hangs, another one continues where `next` says.
    template <typename Next> Said runAll(Task task, Next next)
    {
        task.server = narrow(server_.root());
        Said all;
        while (!all.through) {
            const OwnProcess process(taskVariable, task.text(), ownName());
            const bool ended = process.handle() != nullptr && waitFor(process);
            const Said said = readSaid(process.output());
            all.runs += said.runs;
            all.usual = std::max(all.usual, said.usual);
            all.through = said.through;
            all.wrong += said.wrong;
            if (said.through) break;
            all.wrong += std::string(commands()[said.command].name) + ", allocation " +
                         std::to_string(said.n) + (ended ? ": ended the program\n" : ": hangs\n");
            if (said.runs == 0 || !next(task, said)) break;
        }
        return all;
    }
    // All runs of the command with this kind of failure.
    void tryEach(How how, Where where)
    {
        const Said all = runAll({.command = GetParam(), .how = how, .where = where},
                                [](Task& task, const Said& said) {
                                    task.first = said.n + 1;
                                    return said.n > 0; // otherwise it crashes with nothing failing
                                });
        std::printf("%s, %s%s: %u allocations, %u runs\n", commands()[GetParam()].name,
                    how == How::once ? "one failure" : "failures from then on",
                    where == Where::thisThread ? "" : " on the other thread", all.usual, all.runs);
        EXPECT_TRUE(all.wrong.empty()) << all.wrong;
    }
    // Runs the task if this is a second process; starts second processes if all runs are wanted.
    void tryOrRun(How how)
    {
        if (const auto told = environmentText(taskVariable)) {
            runTask(*told);
            return;
        }
        if (!environmentText(wholeVariable)) GTEST_SKIP() << "the long run, see CONTRIBUTING.md";
        tryEach(how, Where::thisThread);
        if (commands()[GetParam()].needsServer) tryEach(how, Where::otherThreads);
    }

  private:
    static std::string ownName()
    {
        const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
        return std::string(test->test_suite_name()) + "." + test->name();
    }
    // Waits for the end of the process. False when it has reported nothing for too long.
    static bool waitFor(const OwnProcess& process)
    {
        std::size_t heard = 0;
        while (WaitForSingleObject(process.handle(), limitMilliseconds) == WAIT_TIMEOUT) {
            const std::size_t now = process.output().size();
            if (now == heard) return false;
            heard = now;
        }
        return true;
    }

    TestServer server_{3};
};

TEST_P(EveryAllocation, MayFailAlone) { tryOrRun(How::once); }

TEST_P(EveryAllocation, MayFailWithAllThatFollow) { tryOrRun(How::forGood); }

INSTANTIATE_TEST_SUITE_P(Of, EveryAllocation, testing::Range<std::size_t>(0, commands().size()),
                         [](const auto& chosen) { return std::string(commands()[chosen.param].name); });

// Two allocations of each command, which VANDREL_SEED chooses.
class SomeAllocations : public EveryAllocation {};

TEST_P(SomeAllocations, OfEachCommandMayFail)
{
    if (const auto told = environmentText(taskVariable)) {
        runTask(*told);
        return;
    }
    const auto chosen = environmentText(L"VANDREL_SEED");
    const unsigned seed = chosen ? static_cast<unsigned>(std::stoul(*chosen)) : 20021116U;
    const Said all = runAll({.sample = true, .seed = seed}, [](Task& task, const Said& said) {
        task.command = said.command + 1;
        return task.command < commands().size();
    });
    std::printf("seed %u: %u runs\n", seed, all.runs);
    EXPECT_TRUE(all.wrong.empty()) << all.wrong;
}

INSTANTIATE_TEST_SUITE_P(Of, SomeAllocations, testing::Values(0));

} // namespace
} // namespace vandrel::test
