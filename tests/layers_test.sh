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
            "platform/system model shared dialogs store capture,exchange,scan,search,update bookmarks " \
            "mainwindow,exchange_tool ."
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
        else if (from == "." && to == "exchange_tool") { print $1 " includes " $2 " of another program"; wrong = 1 }
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

# The page about the architecture names exactly the files that have no window: those of the library that is built for any
# system, and headers without a source.
cd ..
# shellcheck disable=SC2016 # the backticks are those of the page
named=$(sed -n '/^| pure file/,/^$/p' docs/architecture.md | grep -oE '`[a-z_/]+/[a-z_]+`' | tr -d '`' | sort)
built=$(sed -n '/^add_library(vandrel_core/,/)/s/^    \(.*\)\.cpp)*$/\1/p' src/CMakeLists.txt | sort)
wrong=0
for file in $(comm -13 <(echo "$named") <(echo "$built")); do
    echo "docs/architecture.md does not name $file, which has no window"
    wrong=1
done
for file in $(comm -23 <(echo "$named") <(echo "$built")); do
    [[ -e src/$file.h && ! -e src/$file.cpp ]] && continue
    echo "docs/architecture.md names $file, which is not in the library without windows"
    wrong=1
done
exit "$wrong"
