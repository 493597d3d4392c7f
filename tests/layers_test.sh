#!/usr/bin/env bash
# Includes of the product point one way: down the folders, never from one folder of commands to another, and
# within a folder without a circle. The tests of a folder include those of no other: what they share is in
# tests/support.
set -euo pipefail
cd -- "$(dirname -- "$(dirname -- "$(readlink -f -- "$0")")")/src"

includes=$(grep -rE '^#include "' --include='*.h' --include='*.cpp' . |
    sed -E 's|^\./||; s|^([^:]*)\.(h\|cpp):#include "([^"]*)\.h"|\1 \3|')

awk '
    BEGIN {
        folders = "platform/base platform/text platform/files platform/controls platform/windows " \
            "platform/system model shared dialogs store capture,exchange,scan,search,update bookmarks mainwindow ."
        floors = split(folders, floor, " ")
        for (i = 1; i <= floors; ++i) {
            beside = split(floor[i], folder, ",")
            for (k = 1; k <= beside; ++k) height[folder[k]] = i
        }
    }
    function folderOf(file) { return sub(/\/[^\/]*$/, "", file) ? file : "." }
    {
        from = folderOf($1)
        to = folderOf($2)
        if (!(from in height) || !(to in height)) { print $1 " or " $2 ": no such folder"; wrong = 1 }
        else if (from != to && height[to] >= height[from]) { print $1 " includes " $2; wrong = 1 }
    }
    END { exit wrong }
' <<<"$includes"

awk '$1 != $2' <<<"$includes" | tsort >/dev/null

cd ../tests
grep -rE '^#include "tests/' --include='*.h' --include='*.cpp' . |
    sed -E 's|^\./||; s|^([^:]*):#include "tests/([^"]*)"|\1 \2|' |
    awk '
        function folderOf(file) { return sub(/\/[^\/]*$/, "", file) ? file : "." }
        {
            to = folderOf($2)
            above = folderOf($1)
            if (to == above || to == "support") next
            # The shared part of its own kind of tests, as program/support is for program/desktop.
            if (to == folderOf(above) "/support" && above != "support") next
            print "tests/" $1 " includes tests/" $2
            wrong = 1
        }
        END { exit wrong }
    '
