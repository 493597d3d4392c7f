#!/usr/bin/env bash
# Takes the pictures of the manual and of the README: the built program under Wine with the sample collection, once at
# 96 DPI and once at 144. Only what the program draws itself is shown, not the frames of the display's window manager.
#   take-pictures.sh       writes help/pictures/*.png, docs/vandrel.png and docs/search.png
set -euo pipefail
cd -- "$(dirname -- "$(dirname -- "$(readlink -f -- "$0")")")"
scripts/setup.sh
scripts/build.sh windows Vandrel VandrelExchange >&2
VANDREL_PREFIX=pictures VANDREL_VIRTUAL=1 VANDREL_SCREEN=1920x1200
# shellcheck source=scripts/wine-env.sh
source scripts/wine-env.sh
fail() { printf 'take-pictures: %s\n' "$*" >&2; exit 1; }

work=$(mktemp -d)
program=
# shellcheck disable=SC2317 # called by the trap
finish() {
    wine_stop
    display_stop
    rm -rf -- "$work"
}
display_start
trap finish EXIT

registry() { # KEY NAME TYPE DATA
    "$wine64" reg add "$1" /v "$2" /t "$3" /d "$4" /f </dev/null >/dev/null 2>&1
}

make_favorites() {
    local folder=$WINEPREFIX/drive_c/users/Anna/Favorites title
    mkdir -p "$folder/Garden" "$folder/Recipes"
    for title in 'British Library' 'Kew Gardens' 'National Gallery' 'Royal Observatory' 'The Poetry Archive'; do
        printf '[InternetShortcut]\r\nURL=https://www.example.org/\r\n' >"$folder/$title.url"
    done
    registry 'HKCU\Software\Microsoft\Windows\CurrentVersion\Explorer\Shell Folders' Favorites REG_SZ \
        'C:\users\Anna\Favorites'
}

# The title bar and the borders are the window manager's; the window itself is inside them.
window() { xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1; }
is_open() { [[ -n $(window "$1") ]]; }
is_closed() { ! is_open "$1"; }
open_window() { # TITLE KEY... : sends the keys to the main window until a window of that title is there
    local title=$1
    shift
    send() { xdotool windowactivate --sync "$main" key --clearmodifiers "$@"; wait_until 3 is_open "$title"; }
    wait_until 20 send "$@" || fail "no window $title"
    sleep 0.5
}
close_window() { # TITLE
    xdotool windowactivate --sync "$(window "$1")" key Escape
    wait_until 5 is_closed "$1" || fail "$1 stays open"
}
still() { # FILE COMMAND... : a picture, once two in a row are alike
    local file=$1 last='' now try
    shift
    for ((try = 0; try < 25; try++)); do
        now=$("$@" "$file" && identify -format '%#' "$file") || return 1
        [[ $now != "$last" ]] || break
        last=$now
        sleep 0.2
    done
    mogrify -strip +dither -colors 255 "$file"
}
take() { still "$out/$2$suffix.png" import -silent -window "$(window "$1")"; } # TITLE NAME
at() { # X Y BUTTON : a click in the main window, in pixels at 96 DPI
    xdotool mousemove --window "$main" $(($1 * dpi / 96)) $(($2 * dpi / 96)) click "$3"
}

take_all() { # DPI SUFFIX
    dpi=$1 suffix=$2
    local x y
    wine_prefix_fresh
    wine_server_start
    registry 'HKCU\Control Panel\Desktop' LogPixels REG_DWORD "$dpi"
    registry 'HKCU\Software\VB and VBA Program Settings\Vandrel\Config' Width REG_SZ 13500
    registry 'HKCU\Software\VB and VBA Program Settings\Vandrel\Config' Height REG_SZ 6375
    make_favorites
    wine_stop
    wine_server_start
    rm -rf -- "$work/Vandrel"
    mkdir "$work/Vandrel"
    cp -- build/windows/Vandrel.exe sample/*.udb "$work/Vandrel/"
    (cd -- "$work/Vandrel" && exec "$wine64" ./Vandrel.exe) </dev/null >/dev/null 2>&1 &
    program=$!
    wait_until 60 is_open '^Vandrel' || fail "no main window"
    main=$(window '^Vandrel')
    sleep 1

    at 250 150 1
    xdotool mousemove 0 0
    take '^Vandrel' main-window
    at 250 150 3
    sleep 0.5
    read -r x y < <(xwininfo -id "$main" | sed -n 's/.*Absolute upper-left [XY]: *//p' | xargs)
    still "$out/site-menu$suffix.png" import -silent -window root \
        -crop "$((490 * dpi / 96))x$((358 * dpi / 96))+$x+$y" +repage
    xdotool key Escape
    xdotool mousemove 0 0

    open_window "Properties$" ctrl+p
    take "Properties$" properties
    close_window "Properties$"
    open_window '^Add Site' F3
    xdotool type --delay 30 'Kew Gardens'
    xdotool key Tab
    xdotool type --delay 30 'https://www.kew.org/'
    xdotool key Tab
    xdotool type --delay 30 'Plants of the world under glass'
    take '^Add Site' add-site
    close_window '^Add Site'
    open_window '^Import Favorites' ctrl+i
    take '^Import Favorites' import
    close_window '^Import Favorites'
    open_window '^Options' alt+v o
    take '^Options' options
    xdotool key ctrl+Tab
    sleep 0.5
    take '^Options' options-html
    close_window '^Options'
    open_window '^About Vandrel' alt+h a
    take '^About Vandrel' about
    close_window '^About Vandrel'
    open_window '^Search All' ctrl+f
    xdotool type --delay 30 world
    xdotool key Return
    sleep 1
    take '^Search All' search
    close_window '^Search All'
    xdotool windowactivate --sync "$main" key --clearmodifiers ctrl+q
    wait_until 10 display_is_gone "$program" || fail "the program stays open"
    take_exchange
}

# The second program, in a folder that looks like a user's own: one of its windows names it.
take_exchange() {
    local folder=$WINEPREFIX/drive_c/Vandrel
    mkdir "$folder"
    cp -- build/windows/VandrelExchange.exe sample/*.udb tests/bookmark_files/chrome.html "$folder/"
    exchange exchange
    exchange exchange-done 'C:\Vandrel\chrome.html'
}
exchange() { # NAME [ARGUMENT] : starts it, takes its window and closes it
    local name=$1
    shift
    (cd -- "$WINEPREFIX/drive_c/Vandrel" && exec "$wine64" ./VandrelExchange.exe "$@") </dev/null >/dev/null 2>&1 &
    program=$!
    wait_until 60 is_open '^Vandrel Exchange' || fail "no window of VandrelExchange"
    sleep 1
    take '^Vandrel Exchange' "$name"
    press_close() {
        xdotool windowactivate --sync "$(window '^Vandrel Exchange')" key --clearmodifiers alt+c
        wait_until 3 display_is_gone "$program"
    }
    wait_until 20 press_close || fail "VandrelExchange stays open"
}

out=help/pictures
take_all 96 ''
take_all 144 -144
cp -- "$out/main-window-144.png" docs/vandrel.png
cp -- "$out/search-144.png" docs/search.png
