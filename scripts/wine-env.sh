# shellcheck shell=bash
# Sourced by the scripts that run Windows programs: where Wine is, which folder acts as the Windows installation
# (the prefix), and a display that nobody else types on.
# The prefixes are in build/, so the developer's own Wine settings are never touched:
#   build/wineprefix-base   as Wine made it, never used itself
#   build/wineprefix        for the tests, a copy of the base
#   build/wineprefix-NAME   others (VANDREL_PREFIX=NAME), also copies

vandrel_root=$(dirname -- "$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")")
vandrel_say() { printf '%s: %s\n' "$(basename -- "$0")" "$*" >&2; }

# Wine's loader itself: Debian's `wine` command is a wrapper that complains that the 32-bit part is missing.
wine64=
for wine64_candidate in /usr/lib/wine/wine64 /usr/lib/*/wine/wine64 /usr/bin/wine64 /usr/bin/wine; do
    if [[ -x $wine64_candidate ]]; then
        wine64=$wine64_candidate
        break
    fi
done
wineserver=
for wine64_candidate in /usr/lib/wine/wineserver64 /usr/lib/*/wine/wineserver64 \
    /usr/lib/*/wine/wineserver /usr/bin/wineserver; do
    if [[ -x $wine64_candidate ]]; then
        wineserver=$wine64_candidate
        break
    fi
done
unset wine64_candidate

VANDREL_PREFIX=${VANDREL_PREFIX-}
WINEPREFIX=$vandrel_root/build/wineprefix${VANDREL_PREFIX:+-$VANDREL_PREFIX}
WINEARCH=win64
WINEDEBUG=${WINEDEBUG--all}
# No .NET, no HTML engine, no menu entries in the developer's desktop, and a crash ends the program at once
# instead of starting a debugger that waits forever.
WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe=;winedbg.exe=d"
# The locale decides the ANSI code page, the date format and how file names are read: C.UTF-8 means code page 1252,
# 11/16/2002 and any letter (plain C would strip the eighth bit from every letter of a file name).
LC_ALL=${VANDREL_LC:-C.UTF-8}
# Tests without a window (prefix "files") leave the first processor to those with windows.
[[ $VANDREL_PREFIX != files || -z ${VANDREL_CPU-} ]] || VANDREL_CPU=1
export VANDREL_PREFIX WINEPREFIX WINEARCH WINEDEBUG WINEDLLOVERRIDES LC_ALL

# A Windows program asks the Wine server for nearly everything and waits for the answer. On one processor that is a task
# switch; on two, each has to be woken up, which takes far longer. VANDREL_CPU says on which of the available
# processors, counted from 0, the server of a prefix and its programs run; if empty, on any.
wine_on_cpu() {
    [[ -n ${VANDREL_CPU-} ]] || { "$@"; return; }
    local ranges range cpus=()
    IFS=, read -ra ranges <<<"$(sed -n 's/^Cpus_allowed_list:[[:space:]]*//p' /proc/self/status)"
    for range in "${ranges[@]}"; do
        mapfile -t -O "${#cpus[@]}" cpus < <(seq "${range%-*}" "${range#*-}")
    done
    taskset -c "${cpus[VANDREL_CPU % ${#cpus[@]}]}" "$@"
}

# wait_until SECONDS COMMAND... : tries the command until it succeeds, for at most this long
wait_until() {
    local deadline=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        ((SECONDS < deadline)) || return 1
        sleep 0.05
    done
}

# Ends every Wine program in our prefix.
wine_stop() {
    [[ -d $WINEPREFIX ]] || return 0
    timeout -k 5 20 "$wineserver" -k >/dev/null 2>&1 || true
    timeout -k 5 20 "$wineserver" -w >/dev/null 2>&1 || true
}

# A server that outlives each program by two minutes: the next program starts in 0.04 s instead of 0.5 s.
# Wine's own processes are started here, with their output cut off from ours: a program that started them would
# pass them its output, and whatever reads that (as ctest does) would wait until they end.
wine_server_start() {
    (
        flock 9
        # It fails when there is one already.
        wine_on_cpu timeout -k 5 20 "$wineserver" -p120 </dev/null >/dev/null 2>&1 9>&- || exit 0
        if [[ -n ${DISPLAY-} ]]; then
            wine_on_cpu timeout -k 5 60 "$wine64" rundll32 user32.dll,GetDesktopWindow \
                </dev/null >/dev/null 2>&1 9>&- || true
        else
            wine_on_cpu timeout -k 5 60 "$wine64" cmd /c exit </dev/null >/dev/null 2>&1 9>&- || true
        fi
    ) 9>"$vandrel_root/build/wineprefix.lock"
}

# Makes the prefix if it does not exist. Two callers do not collide: the second waits for the first.
wine_prefix() {
    [[ -e $WINEPREFIX/.ready ]] && return
    if [[ -z $wine64 || -z $wineserver ]]; then
        vandrel_say "Wine is missing; scripts/setup.sh installs it"
        return 1
    fi
    mkdir -p "$vandrel_root/build"
    (
        flock -w 300 9 || { vandrel_say "another caller holds build/wineprefix.lock for too long"; exit 1; }
        wine_prefix_base 9>&- && wine_prefix_copy 9>&-
    ) 9>"$vandrel_root/build/wineprefix.lock"
}

wine_prefix_base() {
    local base=$vandrel_root/build/wineprefix-base log=$vandrel_root/build/wineprefix.log
    [[ -e $base/.ready ]] && return
    rm -rf -- "$base"
    mkdir -p "$base/home"
    # HOME is set so that "Documents" and the like do not become links to the developer's own.
    if ! HOME=$base/home WINEPREFIX=$base timeout -k 5 240 "$wine64" wineboot -i </dev/null >"$log" 2>&1; then
        vandrel_say "wineboot -i failed or took over 240 s; see build/wineprefix.log"
        WINEPREFIX=$base wine_stop
        return 1
    fi
    # The registry is on disk once the server has ended; if left alone, it ends within seconds.
    WINEPREFIX=$base timeout -k 5 60 "$wineserver" -w </dev/null >/dev/null 2>&1 || WINEPREFIX=$base wine_stop
    local link
    for link in "$base"/drive_c/users/*/*; do
        [[ ! -L $link ]] || { rm -- "$link" && mkdir -- "$link"; }
    done
    touch "$base/.ready"
}

# Windows' own files (700 MB, which no program changes) are shared by hard links; all else is copied.
wine_prefix_copy() {
    local base=$vandrel_root/build/wineprefix-base new=$WINEPREFIX.new
    [[ -e $WINEPREFIX/.ready ]] && return
    rm -rf -- "$WINEPREFIX" "$new"
    mkdir -p "$new/drive_c"
    cp -al -- "$base/drive_c/windows" "$new/drive_c/windows"
    tar -C "$base" --exclude=./drive_c/windows -cf - . | tar -C "$new" -xf -
    mv -- "$new" "$WINEPREFIX"
}

# As Wine made it, with no settings left from an earlier run.
wine_prefix_fresh() {
    wine_stop
    rm -rf -- "$WINEPREFIX"
    wine_prefix
}

# A display of our own if there is none, or if VANDREL_VIRTUAL=1 asks for it, VANDREL_SCREEN in size. It ends with the
# calling script unless VANDREL_KEEP_DISPLAY=1. Sets DISPLAY, display_pids and display_is_virtual.
# shellcheck disable=SC2034 # for the scripts that source this file
display_is_virtual=0
display_pids=()
display_start() {
    if [[ ${VANDREL_VIRTUAL-} != 1 && -n ${DISPLAY-} ]] && timeout 10 xdpyinfo >/dev/null 2>&1; then
        return
    fi
    local state=$vandrel_root/build/display number with_us=()
    mkdir -p "$state"
    state=$(mktemp -d -- "$state/XXXXXX")
    trap display_stop EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM HUP
    [[ ${VANDREL_KEEP_DISPLAY-} == 1 ]] || with_us=(setpriv --pdeathsig TERM --)
    # Xvfb takes the first free number itself and writes it to the file when it is ready.
    setsid "${with_us[@]}" Xvfb -displayfd 3 -screen 0 "${VANDREL_SCREEN:-1280x1024}x24" -dpi 96 -nolisten tcp -noreset \
        </dev/null >"$state/xvfb.log" 2>&1 3>"$state/number" &
    display_pids=("$!")
    if ! wait_until 20 grep -q . "$state/number"; then
        tail -n 5 "$state/xvfb.log" >&2 || true
        vandrel_say "the virtual display did not start within 20 s"
        return 1
    fi
    number=$(<"$state/number")
    export DISPLAY=:$number
    unset WAYLAND_DISPLAY XAUTHORITY
    setsid "${with_us[@]}" env HOME="$state" XDG_CONFIG_HOME="$state" XDG_CACHE_HOME="$state" \
        XDG_DATA_HOME="$state" openbox --sm-disable --config-file "$vandrel_root/scripts/openbox.xml" \
        </dev/null >"$state/openbox.log" 2>&1 &
    display_pids=("$!" "${display_pids[@]}")
    if ! wait_until 20 display_is_managed; then
        tail -n 5 "$state/openbox.log" >&2 || true
        vandrel_say "the window manager did not start within 20 s"
        return 1
    fi
    # shellcheck disable=SC2034
    display_is_virtual=1
    display_state=$state
}
display_is_managed() { xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; }

display_stop() {
    local pid
    for pid in "${display_pids[@]}"; do
        kill "$pid" 2>/dev/null || true
        wait_until 5 display_is_gone "$pid" || kill -9 "$pid" 2>/dev/null || true
    done
    display_pids=()
    [[ -z ${display_state-} ]] || rm -rf -- "$display_state"
}
display_is_gone() { ! kill -0 "$1"; }

# A picture of the display, taken once two in a row are the same (after about five seconds at most).
display_picture() { # FILE
    local last='' now try
    for ((try = 0; try < 25; try++)); do
        now=$(import -silent -window root "$1" && identify -format '%#' "$1") || return 1
        [[ $now == "$last" ]] && return
        last=$now
        sleep 0.2
    done
}
