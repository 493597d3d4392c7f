#!/usr/bin/env bash
# The program's sources compile with Clang, too, and without a warning; and every header compiles alone.
set -euo pipefail
cd -- "$(dirname -- "$(dirname -- "$(readlink -f -- "$0")")")"
if ! cmake --preset clang-windows -Wno-dev </dev/null >build/configure-clang-windows.log 2>&1; then
    cat build/configure-clang-windows.log >&2
    exit 1
fi
scratch=$(mktemp -d)
trap 'rm -rf -- "$scratch"' EXIT

# Each line: a source's name, a tab, the command that compiles it without making anything.
sed -nE 's/^  "command": "(.*) -o [^ ]+ -c (.*)",?$/\2\t\1/p' build/clang-windows/compile_commands.json |
    sed -nE -e 's/\\"/"/g; s/\\\\/\\/g' -e "s#^$PWD/(src/[^\t]*)\t(.*)#\1\t\2 -fsyntax-only#p" >"$scratch/sources"
[[ -s $scratch/sources ]] || { echo "clang_test: no sources" >&2; exit 1; }
windows=$(sed -nE 's#^src/main\.cpp\t##p' "$scratch/sources")

# Most of a source's time goes into the headers of Windows, of the language and of the lowest rooms, so these are read once.
{
    echo '#include <windows.h>'
    (cd src && find platform -name '*.h' | sort | sed -E 's|(.*)|#include "\1"|')
} >"$scratch/all.h"
bash -c "${windows/ -fsyntax-only/} -x c++-header '$scratch/all.h' -o '$scratch/all.pch'"

definitions=$(grep -oE ' -D[A-Z_]+(=[^ ]*)?' <<<"$windows" | tr -d '\n') # which the core's sources do without
while IFS=$'\t' read -r source command; do
    printf "%s %s -include-pch '%s' %s\\0" "$command" "$definitions" "$scratch/all.pch" "$source"
done <"$scratch/sources" >"$scratch/commands"

# A source includes its own header first, so that the header has nothing from elsewhere. The others are compiled by
# themselves.
wrong=0
while IFS= read -r header; do
    source=${header%.h}.cpp
    if [[ ! -e src/$source ]]; then
        printf '%s -x c++-header %s\0' "$windows" "src/$header" >>"$scratch/commands"
    elif [[ $(grep -m 1 '^#include' "src/$source") != "#include \"$header\"" ]]; then
        echo "clang_test: src/$source does not include its own header first" >&2
        wrong=1
    fi
done < <(cd src && find . -name '*.h' | sed 's|^\./||' | sort)

xargs -0 -n 1 -P "$(nproc)" bash -c <"$scratch/commands" || wrong=1
exit "$wrong"
