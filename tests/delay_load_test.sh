#!/usr/bin/env bash
# Looks at which DLLs the programs load before their first line runs: none of those that are to wait.
#   delay_load_test.sh FOLDER-OF-THE-PROGRAMS OBJDUMP
set -euo pipefail
folder=$1 objdump=$2
cd -- "$(dirname -- "$(dirname -- "$(readlink -f -- "$0")")")"
wrong=0
for program in Vandrel VandrelExchange; do
    loaded=$("$objdump" -p "$folder/$program.exe" | sed -nE 's/^[[:space:]]*DLL Name: (.*)\.dll$/\L\1/p')
    grep -qx kernel32 <<<"$loaded" || { echo "delay_load_test: no DLLs found in $program.exe" >&2; exit 1; }
    for list in cmake/delay_load/*.def; do
        dll=$(basename -- "$list" .def)
        ! grep -qx "$dll" <<<"$loaded" ||
            { echo "$program.exe loads $dll at the start: a function is missing in $list" >&2; wrong=1; }
    done
done
exit "$wrong"
