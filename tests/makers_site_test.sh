#!/usr/bin/env bash
# Which web site of the maker a build gets from the environment, and that one without a name there gets none.
set -euo pipefail
cd -- "$(dirname -- "$(dirname -- "$(readlink -f -- "$0")")")"
fail() { printf 'makers_site_test: %s\n' "$*" >&2; exit 1; }

# CMake says what the preset sets, whatever an earlier build has left in its cache.
handed_over() { cmake --preset windows -N | sed -n 's/^ *VANDREL_MAKERS_SITE="\(.*\)"$/[\1]/p'; }

export VANDREL_MAKERS_SITE=http://127.0.0.1:8000
[[ $(handed_over) == "[$VANDREL_MAKERS_SITE]" ]] || fail "the environment is not heard: $(handed_over)"
unset VANDREL_MAKERS_SITE
[[ $(handed_over) == "[]" ]] || fail "without a name in it the earlier one stays: $(handed_over)"
