#!/usr/bin/env bash
# Installs, with apt, whatever this machine lacks of what building, running and testing Vandrel needs.
# Looks for each tool by its command or file, so that a call is quick if there is nothing to do.
set -euo pipefail

missing=()
need() { # need PACKAGE TEST... : remember the package when the test fails
    local package=$1
    shift
    "$@" >/dev/null 2>&1 || missing+=("$package")
}
has_locales() { # as directories (locales-all) or in the archive that locale-gen makes
    [[ -d /usr/lib/locale/ja_JP.utf8 && -d /usr/lib/locale/de_DE.utf8 && -d /usr/lib/locale/en_GB.utf8 ]] && return
    local all
    all=$(locale -a)
    [[ $all == *ja_JP.utf8* && $all == *de_DE.utf8* && $all == *en_GB.utf8* ]]
}

need g++-mingw-w64-x86-64-posix command -v x86_64-w64-mingw32-g++-posix   # the cross compiler, with std::thread
need binutils-mingw-w64-x86-64  command -v x86_64-w64-mingw32-windres     # menus, icons and manifest into the program
need wine64         test -x /usr/lib/wine/wine64 -o -x /usr/bin/wine64 -o -x /usr/bin/wine # runs the program and its tests
need fonts-wine     test -e /usr/share/wine/fonts/marlett.ttf             # check marks and arrows of menus and controls
need fonts-liberation test -d /usr/share/fonts/truetype/liberation        # letters with the widths of Arial's
need xvfb           command -v Xvfb                                       # a display for tests and for machines without one
need openbox        command -v openbox                                    # its window manager: focus, minimise, maximise
need xdotool        command -v xdotool                                    # finds and closes the program's window
need x11-utils      command -v xprop                                      # shows when display and window manager are ready
need imagemagick    command -v import                                     # pictures of the display
need googletest     test -e /usr/src/googletest/CMakeLists.txt            # the test framework's sources, built with the tests
need cmake          command -v cmake                                      # the build
need ninja-build    command -v ninja                                      # the build
need g++            command -v g++                                        # builds the core's tests for this machine
need clang-format   command -v clang-format                               # the code's format
need clang          command -v clang++                                    # a second compiler's opinion
need clang-tidy     command -v clang-tidy                                 # scripts/tidy.sh
need shellcheck     command -v shellcheck                                 # scripts/tidy.sh
need zip            command -v zip                                        # the package for Windows
need locales-all    has_locales                                           # tests under Japanese, German and British settings

[[ ${#missing[@]} -eq 0 ]] && exit 0

say() { printf 'setup: %s\n' "$*" >&2; }
if ! command -v apt-get >/dev/null; then
    say "these Debian packages (or their like) are missing, and there is no apt-get here: ${missing[*]}"
    exit 1
fi
if [[ $(id -u) -eq 0 ]]; then
    as_root=()
elif command -v sudo >/dev/null && { sudo -n true 2>/dev/null || [[ -t 0 ]]; }; then
    as_root=(sudo)
else
    say "missing: ${missing[*]}"
    say "only root can install them; as root, run: apt-get install ${missing[*]}"
    exit 1
fi

say "installing ${missing[*]}"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
apt() { "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=300 "$@"; }
if ! { apt update && apt install -y --no-install-recommends "${missing[@]}"; } </dev/null >"$log" 2>&1; then
    tail -n 40 "$log" >&2
    say "apt-get failed (its last lines are above); still missing: ${missing[*]}"
    exit 1
fi
