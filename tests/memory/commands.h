#pragma once

#include "tests/memory/collection.h"
#include "tests/support/failing_new.h"

#include <span>

namespace vandrel::test {

// One thing that the user does.
struct Command {
    const char* name;
    // Before anything fails: the window is there, and the category of three sites is shown with its first one
    // selected.
    void (*prepare)(Collection&);
    void (*act)(Collection&);
    // Whether it has done what it is there for, beside what it does to files. Null when it only does that.
    bool (*done)(Collection&);
    bool needsServer = false;
    bool makesWindow = false; // the command is the start of the program
    bool savesOften = false;  // so a file may be as it was in between
    bool silent = false;      // its failures are not told
};

std::span<const Command> commands();

} // namespace vandrel::test
