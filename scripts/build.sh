#!/usr/bin/env bash
# Configures and builds a CMake preset, on all processors and with little output.
#   build.sh PRESET [TARGET...]
set -euo pipefail
cd -- "$(dirname -- "$(dirname -- "$(readlink -f -- "$0")")")"
preset=$1
shift
mkdir -p build
log=build/configure-$preset.log
if ! cmake --preset "$preset" </dev/null >"$log" 2>&1; then
    cat "$log" >&2
    exit 1
fi
grep -A 6 -E '^CMake (Deprecation )?(Warning|Error)' "$log" >&2 || true
quiet=()
[[ -t 1 ]] || quiet=(-- --quiet)
cmake --build --preset "$preset" --parallel "$(nproc)" ${1:+--target "$@"} "${quiet[@]}" </dev/null |
    sed '/^ninja: no work to do\.$/d'
