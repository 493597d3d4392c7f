#!/usr/bin/env bash
# Looks for faults that no compiler names: clang-tidy in the sources (.clang-tidy says for which), shellcheck in the scripts.
# Names what it finds and fails.
#   tidy.sh              everything
#   tidy.sh PATH...      the sources whose path contains one of these; a test with those that are compiled together with it
#   tidy.sh scripts      the scripts alone
set -euo pipefail
cd -- "$(dirname -- "$(dirname -- "$(readlink -f -- "$0")")")"
scripts/setup.sh
wrong=0

if [[ $# -eq 0 || $* == scripts ]]; then
    mapfile -d '' -t scripts < <(git ls-files -z | while IFS= read -r -d '' file; do
        [[ ! -f $file ]] || ! head -n 2 -- "$file" | grep -qaE '^#!.*\bbash$|^# shellcheck shell=' || printf '%s\0' "$file"
    done)
    shellcheck -x -- "${scripts[@]}" || wrong=1
    echo "tidy: ${#scripts[@]} scripts"
fi
[[ $* != scripts ]] || exit "$wrong"

# Clang's own database: what is compiled for Windows is everything that there is.
if ! cmake --preset clang-windows -Wno-dev </dev/null >build/configure-clang-windows.log 2>&1; then
    cat build/configure-clang-windows.log >&2
    exit 1
fi
files=()
while IFS= read -r file; do
    of_it=("$file")
    [[ $file != */Unity/* ]] || mapfile -t of_it < <(sed -nE 's/^#include "(.*)"$/\1/p' "$file")
    for path in "${@:-/}"; do
        [[ "${of_it[*]#"$PWD"/}" != *"$path"* ]] || { files+=("$file"); break; }
    done
done < <(sed -nE 's/^  "file": "(.*)"$/\1/p' build/clang-windows/compile_commands.json |
    grep -E "^$PWD/(src|tests|benchmarks|build/clang-windows/tests)/" | sort -u)
[[ ${#files[@]} -gt 0 ]] || { echo "tidy: no source has such a path" >&2; exit 2; }

# In tests and benchmarks a vector grows as it likes, texts are written in one way, quotation marks or not, and the system's
# constants, which are signed, stand in lists of what is not.
export VANDREL_LAX_CHECKS=-performance-inefficient-vector-operation,-performance-no-automatic-move
VANDREL_LAX_CHECKS+=,-modernize-raw-string-literal
# shellcheck disable=SC2016 # expanded by the shells that it starts
printf '%s\0' "${files[@]}" | xargs -0 -n 1 -P "$(nproc)" bash -c '
    lax=()
    [[ $0 == "$PWD"/src/* ]] || lax=(--checks="$VANDREL_LAX_CHECKS" --extra-arg=-Wno-sign-conversion)
    found=$(clang-tidy --quiet -p build/clang-windows "${lax[@]}" "$0" 2>&1) && exit
    grep -vE "^[0-9]+ warnings? (generated|treated as errors?)|^Suppressed " <<<"$found"
    exit 1' || wrong=1
echo "tidy: ${#files[@]} compilations"
exit "$wrong"
