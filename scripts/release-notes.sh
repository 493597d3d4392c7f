#!/usr/bin/env bash
# Prints what CHANGELOG.md says about a version: the text of its release.
#   release-notes.sh VERSION [FILE]   fails if there is no such section, if it is empty or still "(not released yet)"
#   release-notes.sh --self-check     tries itself on sections made up for that
set -euo pipefail
changes=$(dirname -- "$(dirname -- "$(readlink -f -- "$0")")")/CHANGELOG.md
fail() { printf 'release-notes: %s\n' "$*" >&2; exit 1; }

notes() { # VERSION FILE
    local version=$1 file=$2 heading text
    # Compared as text: in a pattern the points of a version would stand for any letter.
    heading=$(awk -v v="$version" '$1 == "##" && $2 == v "" { print; exit }' "$file")
    [[ -n $heading ]] || fail "$file has no section about $version"
    [[ $heading != *"(not released yet)"* ]] || fail "$file says that $version is not released yet"
    text=$(awk -v v="$version" '$1 == "##" { inside = $2 == v ""; next } inside' "$file" | sed '/./,$!d')
    [[ -n $text ]] || fail "$file says nothing about $version"
    printf '%s\n' "$text"
}

self_check() {
    local file
    file=$(mktemp)
    # shellcheck disable=SC2064 # the name is known now
    trap "rm -f -- '$file'" EXIT
    cat >"$file" <<'CHANGES'
# Changes

About the file.

## 2.0.10 (not released yet)

- Soon.

## 2.0.2

- Two.

## 2.0.1 (3 May 2027)

First.

### Within

- Second; ## is no heading here.

## 2.0.0

## 1x0.0

- Odd.

## 1.0

- Last.
CHANGES
    expect() { # VERSION TEXT : without a text it is to fail
        local text
        if text=$(notes "$1" "$file" 2>/dev/null); then
            [[ -n ${2-} && $text == "$2" ]] || fail "self-check: of $1 it makes: $text"
        else
            [[ -z ${2-} ]] || fail "self-check: it does not find $1"
        fi
    }
    expect 2.0.1 $'First.\n\n### Within\n\n- Second; ## is no heading here.'
    expect 2.0.2 '- Two.'
    expect 1.0 '- Last.'
    expect 1x0.0 '- Odd.'
    expect 2.0.10 # not released yet
    expect 2.0.0 # empty
    expect 1.0.0 # neither 1x0.0 nor 1.0
    expect 2.0
    expect 1.00 # versions are no numbers
    expect ''
    echo "release-notes: self-check passed"
}

case ${1-} in
    --self-check) self_check ;;
    '' | -*) sed -n '2,4s/^# //p' "$0" >&2; exit 2 ;;
    *) notes "$1" "${2:-$changes}" ;;
esac
