#!/usr/bin/env bash
# Brings every source file into the project's format (.clang-format).
#   format.sh           changes the files
#   format.sh --check   changes nothing; names what is wrong, and fails if there is anything
set -euo pipefail
cd -- "$(dirname -- "$(dirname -- "$(readlink -f -- "$0")")")"
scripts/setup.sh
mode=(-i)
[[ ${1-} == --check ]] && mode=(--dry-run -Werror)

folders=()
for folder in src tests benchmarks; do
    [[ ! -d $folder ]] || folders+=("$folder")
done
mapfile -d '' -t files < <(find "${folders[@]:-src}" -type f \( -name '*.h' -o -name '*.cpp' \) -print0 | sort -z)
[[ ${#files[@]} -gt 0 ]] || { echo "format: no source files found" >&2; exit 1; }
clang-format --style=file "${mode[@]}" "${files[@]}" || {
    echo "format: not every file is in the project's format; scripts/format.sh corrects them" >&2
    exit 1
}
echo "format: ${#files[@]} files"
