#pragma once

#include "tests/memory/commands.h"

#include <set>
#include <string>
#include <vector>

namespace vandrel::test {

// Runs one command again and again, each time with a different allocation failing, and checks what it
// leaves.
class CommandRun {
  public:
    CommandRun(Collection& collection, const Command& command);

    // Runs it without failures, to learn what it does. Returns what is wrong with that; empty when nothing
    // is.
    std::wstring learn(failing_new::Where where);
    // The number of allocations in that run.
    unsigned usual() const { return usual_; }

    // Runs it with the n-th allocation failing. Returns what is wrong then, empty when nothing is;
    // `reached` says whether there was an n-th.
    std::wstring failing(unsigned n, failing_new::How how, failing_new::Where where, bool& reached);

  private:
    using Lines = std::vector<std::wstring>;

    void prepare();
    void act(unsigned n, failing_new::How how, failing_new::Where where);
    bool hasDone();
    void clickTitle(const wchar_t* title);
    Lines shownSites();
    Lines shownTitles();
    std::wstring selectedTitle();
    Lines linesOf(const std::wstring& title) const;

    void checkFiles();
    void checkLists();
    void checkNext();
    void askForCategory();
    void addAnother();
    void visit(const wchar_t* title);
    void complain(const std::wstring& what) { wrong_ += what + L"; "; }

    Collection& c_;
    const Command& command_;
    Files before_;
    Files after_;
    std::wstring usualBoxes_;
    unsigned usual_ = 0;
    bool told_ = false;
    std::wstring wrong_;
};

} // namespace vandrel::test
