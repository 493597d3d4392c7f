#pragma once

#include "tests/memory/collection.h"
#include "tests/support/failing_new.h"

#include <span>

namespace vandrel::test {

// One thing that the user does.
struct Command {
    const char* name = nullptr;
    // Called before anything fails. The window exists and shows the category of three sites, with the first
    // selected.
    void (*prepare)(Collection&) = nullptr;
    void (*act)(Collection&) = nullptr;
    // Whether it has done its work, apart from changes to files. Null when it only changes files.
    bool (*done)(Collection&) = nullptr;
    bool needsServer = false;
    bool makesWindow = false; // the command is the program's start
    bool savesOften = false;  // so a file may be left in a state in between
    bool silent = false;      // it fails without a message
};

std::span<const Command> commands();

} // namespace vandrel::test
