#pragma once

#include "tests/support/store_test.h"
#include "tests/support/test_server.h"
#include "tests/window/journeys/journey_model.h"

#include <random>

namespace vandrel::test {

// One thing that the user does. The numbers choose with what and how, whatever the state is, so that
// leaving a step out of a walk does not make the others impossible.
struct JourneyStep {
    enum class Act {
        clickCategory,
        addSite,
        dropLink,
        editSite,
        openSite,
        removeSites,
        moveSite,
        sortSites,
        sortCategories,
        addCategory,
        renameCategory,
        removeCategory,
        importAll,
        searchAll,
        pageOfAll,
        quickSearch,
        cancelADialog,
        rightClickBeside,
        keyInAList,
        makeReadOnly,
        makeWritable,
        loseFile,
        restart,
        scanAll,
        scanSite,
        exportSite,
        backUp,
        pageOfShown,
        copyAddress,
        showProperties,
        showAbout,
        checkUpdates,
        cancelRename,
        addWhileHeld,
        last = addWhileHeld
    };
    Act act;
    unsigned a, b, c;
};

using Walk = std::vector<JourneyStep>;
Walk randomWalk(std::mt19937& random, std::size_t steps);
std::string story(const Walk& walk);

// The program beside its model.
class JourneyTest : public StoreTest {
  protected:
    // Walks on a fresh small collection. Returns what differs from the model, with the number of the step;
    // empty when nothing does.
    std::string walk(const Walk& steps);
    // The walk without the steps that are not needed for it to fail.
    Walk shortened(Walk steps);

  private:
    void begin();
    void restart();
    void act(const JourneyStep& step);
    std::string difference();
    std::string diskDifference();

    // Runs the model's command and the program's, and answers the windows that come up as the model says.
    template <typename Model, typename Program> void both(Model model, Program program);
    void addSite(const JourneyStep& step);
    void removeSites(const JourneyStep& step);
    void renameCategory(const JourneyStep& step);
    void importAll();
    void searchAll();
    void quickSearch(const JourneyStep& step);
    void cancelADialog(const JourneyStep& step);
    void rightClickBeside(const JourneyStep& step);
    void changeDisk(const JourneyStep& step);
    void exportSite(const JourneyStep& step);
    void backUp(const JourneyStep& step);
    void copyAddress(const JourneyStep& step);
    void showAbout();
    void checkUpdates();
    void cancelRename();
    void addWhileHeld(const JourneyStep& step);
    HWND startRename();

    // Gives the command by menu, key or tool bar.
    void command(int entry, unsigned way, WORD key = 0, bool shift = false, int button = 0);
    std::size_t clickSite(unsigned number);
    // An address with a scheme that the system does not know, or one that answers.
    std::wstring freshUrl() { return L"zzz:" + std::to_wstring(++urls_); }
    std::wstring freshUrl(unsigned number)
    {
        return number % 2 == 0 ? freshUrl() : server_.address(L"/ok?") + std::to_wstring(++urls_);
    }
    void setReadOnly(const std::wstring& title, bool on);

    JourneyModel model_;
    TempFolder favorites_{L"favorites"};
    TempFolder pages_{L"pages"};
    TempFolder copies_{L"copies"};
    TestServer server_;
    std::string complaint_;
    int urls_ = 0;
};

} // namespace vandrel::test
