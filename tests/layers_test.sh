#!/usr/bin/env bash
# Includes of the product point one way: down the rooms, between the files of a room without a circle, and never from one
# room of commands to another.
set -euo pipefail
cd -- "$(dirname -- "$(dirname -- "$(readlink -f -- "$0")")")/src"

includes=$(grep -rE '^#include "' --include='*.h' --include='*.cpp' . |
    sed -E 's|^\./||; s|^([^:]*)\.(h\|cpp):#include "([^"]*)\.h"|\1 \3|')

awk '
    BEGIN {
        rooms = "platform/base platform/text platform/files platform/controls platform/windows platform/system " \
                "model shared dialogs store capture,exchange,scan,search,update mainwindow ."
        floors = split(rooms, floor, " ")
        for (i = 1; i <= floors; ++i) {
            beside = split(floor[i], room, ",")
            for (k = 1; k <= beside; ++k) height[room[k]] = i
        }
    }
    function roomOf(file) { return sub(/\/[^\/]*$/, "", file) ? file : "." }
    {
        from = roomOf($1)
        to = roomOf($2)
        if (!(from in height) || !(to in height)) { print $1 " or " $2 ": no such room"; wrong = 1 }
        else if (from != to && height[to] >= height[from]) { print $1 " includes " $2; wrong = 1 }
    }
    END { exit wrong }
' <<<"$includes"

awk '$1 != $2' <<<"$includes" | tsort >/dev/null
