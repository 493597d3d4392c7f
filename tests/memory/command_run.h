#pragma once

#include "tests/memory/commands.h"

#include <set>
#include <string>
#include <vector>

namespace vandrel::test {

// Runs one command again and again, each time with another allocation failing, and looks at what it leaves.
class CommandRun {
  public:
    CommandRun(Collection& collection, const Command& command);

    // Runs it with nothing failing, to know what it does. What is wrong with that; empty when nothing is.
    std::wstring learn(failing_new::Where where);
    // The allocations of that run.
    unsigned usual() const { return usual_; }

    // What is wrong after the n-th allocation failed; empty when nothing is. `reached` says whether there was
    // one.
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
