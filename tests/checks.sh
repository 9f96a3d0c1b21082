#!/usr/bin/env bash
# What the check.sh scripts have in common; each sources it after setting $case.
set -euo pipefail
export LC_ALL=C
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

fail() {
    echo "${case:+$case: }$*" >&2
    exit 1
}

# same WHAT EXPECTED FOUND
same() { diff <(echo "$2") <(echo "$3") >&2 || fail "$1: expected (<) is not found (>)"; }

# configure BUILD OPTION...: the library alone.
configure() { cmake -S "$root" -B "$1" -G Ninja -DSTRLIB_BUILD_TESTS=OFF -DSTRLIB_BUILD_EXAMPLES=OFF "${@:2}"; }

# Every compiler of a name, plain or with a version, that is installed.
installed() { compgen -c "$1" | grep -xE "${1//+/\\+}(-[0-9]+)?" | sort -u; }
