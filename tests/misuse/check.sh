#!/usr/bin/env bash
# What compilers say about the public header and its use: check.sh header|calls.
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
include=$here/../../strlib/include
warnings=(-Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion)

# The header alone, without a word from any compiler in any language that it claims.
header() {
    local standard
    for standard in c99 c11; do
        gcc -x c -std=$standard "${warnings[@]}" -Werror -fsyntax-only -I "$include" - <<<'#include <strlib.h>'
        clang -x c -std=$standard "${warnings[@]}" -Werror -fsyntax-only -I "$include" - <<<'#include <strlib.h>'
    done
    warnings+=(-Wold-style-cast)
    for standard in c++11 c++17 c++20; do
        g++ -x c++ -std=$standard "${warnings[@]}" -Werror -fsyntax-only -I "$include" - <<<'#include <strlib.h>'
        clang++ -x c++ -std=$standard "${warnings[@]}" -Werror -fsyntax-only -I "$include" - <<<'#include <strlib.h>'
    done
}

# The lines of calls.cpp that draw a warning, against the lines that name one.
calls() {
    local drawn
    drawn=$(LC_ALL=C g++ -std=c++20 -O2 "${warnings[@]}" -I "$include" -c "$here/calls.cpp" -o /dev/null 2>&1) ||
        { echo "$drawn" >&2 && return 1; }
    diff <(sed -En 's|.*// (-W[a-z-]+)$|\1|;T;=;p' "$here/calls.cpp" | paste -d ' ' - -) \
        <(sed -En 's|^[^:]*:([0-9]+):.*\[(-W[a-z-]+)=*\]$|\1 \2|p' <<<"$drawn" | sort -n -u)
}

case ${1-} in
header | calls) "$1" ;;
*) echo "check.sh: name a check, header or calls" >&2 && exit 2 ;;
esac
