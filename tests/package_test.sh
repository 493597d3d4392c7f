#!/usr/bin/env bash
# Packs a built program twice, looks at what is in the zip, and starts the program from a folder of its own.
#   package_test.sh FOLDER-OF-THE-PROGRAM
set -euo pipefail
built=$(realpath -- "$1")
cd -- "$(dirname -- "$(dirname -- "$(readlink -f -- "$0")")")"
export VANDREL_PREFIX=program VANDREL_VIRTUAL=1 # as the tests that use a desktop of their own
# shellcheck source=scripts/wine-env.sh
source scripts/wine-env.sh
fail() { printf 'package_test: %s\n' "$*" >&2; exit 1; }

work=$(mktemp -d)
program=
# shellcheck disable=SC2317 # called by the trap
finish() {
    wine_stop
    display_stop
    rm -rf -- "$work"
}
mkdir -p build
exec 7>"build/wineprefix-$VANDREL_PREFIX.desktop.lock"
flock -w 100 7
wine_stop 7>&- # a server left by an earlier run would still be on that run's display
display_start 7>&-
trap finish EXIT

for run in first second; do # built at other times
    mkdir "$work/$run"
    cp -- "$built/Vandrel.exe" "$built/VandrelExchange.exe" "$built/version.txt" "$work/$run/"
    [[ $run == second ]] || touch -d '2001-01-01 00:00:00' "$work/$run/Vandrel.exe"
    zip=$(./package "$work/$run")
    [[ -s $zip ]] || fail "no zip: $zip"
    mv -- "$zip" "$work/$run.zip"
done
cmp -- "$work/first.zip" "$work/second.zip" || fail "two runs gave different bytes"

mkdir "$work/unpacked"
(cd -- "$work/unpacked" && cmake -E tar xf "$work/first.zip")
here=$work/unpacked/Vandrel
[[ $(ls "$work/unpacked") == Vandrel ]] || fail "more than the folder Vandrel: $(ls "$work/unpacked")"
cmp -- "$built/Vandrel.exe" "$here/Vandrel.exe" || fail "another program"
cmp -- "$built/VandrelExchange.exe" "$here/VandrelExchange.exe" || fail "another second program"
cmp -- help/help.html "$here/help.html" || fail "another manual"
grep -q $'^VANDREL\r$' "$here/ReadMe.txt" || fail "the read-me has no line ends of Windows"
pictures=$(grep -o 'pictures/[a-z0-9-]*\.png' help/help.html)
[[ -n $pictures ]] || fail "the manual refers to no picture"
for picture in $pictures; do
    [[ -s $here/$picture ]] || fail "the manual refers to $picture, which is not in the zip"
done
version=$(tr -d '[:space:]' <"$built/version.txt")
[[ $(basename -- "$zip") == "Vandrel-$version.zip" ]] || fail "its name is $zip"

# The second program works on the folder in which it is.
scripts/wine-run --timeout 60 "$here/VandrelExchange.exe" import tests/bookmark_files/safari.html \
    </dev/null >"$work/import" 7>&- || fail "the second program ended with $?: $(<"$work/import")"
[[ -s "$here/Favourites.udb" ]] || fail "the second program made no category: $(<"$work/import")"

: >"$here/Links.udb" # without a category it asks for one first
scripts/wine-run --timeout 60 "$here/Vandrel.exe" </dev/null >/dev/null 2>&1 7>&- &
program=$!
shown() { [[ -n $(xdotool search --onlyvisible --name '^Vandrel' 2>/dev/null) ]]; }
wait_until 40 shown || fail "no window within 40 s"
quit() { # the display may swallow a key
    xdotool search --onlyvisible --name '^Vandrel' windowactivate key --clearmodifiers ctrl+q
    wait_until 3 display_is_gone "$program"
}
wait_until 20 quit || fail "still there 20 s after Ctrl+Q"
code=0
wait "$program" || code=$?
program=
[[ $code -eq 0 ]] || fail "the program ended with $code"
