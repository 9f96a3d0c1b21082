#!/usr/bin/env bash
# What compilers say about the public header and its use, and its version: check.sh header|calls|imports|version.
here=$(cd "$(dirname "$0")" && pwd) case=${1-}
. "$here/../checks.sh"
include=$root/strlib/include
strict=(-Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wundef -Wcast-qual -Wmissing-declarations)
mapfile -t clangs < <(installed clang)

# inEveryLanguage COMMAND...: runs it with a compiler and its options appended.
inEveryLanguage() {
    local standard level clang
    for standard in c99 c11 c17 c++11 c++17 c++20; do
        local options=(-x c "-std=$standard" "${strict[@]}")
        [[ $standard == c++* ]] && options=(-x c++ "-std=$standard" "${strict[@]}" -Wold-style-cast)
        for level in -O0 -Og -O2 -Os; do "$@" gcc "${options[@]}" $level; done
        for clang in "${clangs[@]}"; do
            for level in -O0 -O2; do "$@" "$clang" "${options[@]}" $level; done
        done
    done
}

# The header alone, without a word from any compiler in any language that it claims.
header() {
    "$@" -Werror -I "$include" -c - -o /dev/null <<<'#include <strlib.h>' || fail "$*"
}

# Line and kind of each warning. One about an inline form in the header counts where that form was called.
kinds() {
    sed -nE 's|^ +inlined from .* at [^:]*calls\.c:([0-9]+):.*|at \1|p
        s|^[^:]*calls\.c:([0-9]+):.* warning: .*\[(-W[a-z-]+)=*\]$|at \1\n\2|p
        s|^[^:]*\.h:[0-9]+:.* warning: .*\[(-W[a-z-]+)=*\]$|\1|p' |
        awk '$1 == "at" {line = $2; next} {print line, $1}' |
        sed -E 's/-Wnonnull/null/; s/-Wunused-(value|result)/dropped/
            s/-W(stringop-over(flow|read)|attribute-warning|user-defined-warnings)/room/' | sort -u -k 1,1n -k 2
}

# The lines of calls.c that draw a warning, against the lines that say so. With little optimisation GCC may miss some.
calls() {
    local drawn said
    drawn=$("$@" -I "$include" -c "$here/calls.c" -o /dev/null 2>&1) || fail "$drawn"
    drawn=$(kinds <<<"$drawn")
    said=$(sed -En 's|.*;  */\* ([a-z]+) \*/$|\1|;T;=;p' "$here/calls.c" | paste -d ' ' - -)
    if [[ $1 == gcc && ${!#} == -O[0g] ]]; then
        ! grep -vxF "$said" <<<"$drawn"
    else
        diff <(echo "$said") <(echo "$drawn")
    fi || fail "$*"
}

# What calls.c imports are the routines and its own functions: the warnings add no call of anything else, not even where
# counters for coverage keep branches alive.
imports() {
    local language options object imported
    local expected='TQ|X_TAMBRO_|utf8|unicodeTo|customS|string_operator_|use|fill|_GLOBAL_OFFSET_TABLE_|__gcov'
    object=$(mktemp -d)
    for language in c c++; do
        for options in -Og -O2 '-O2 --coverage'; do
            # shellcheck disable=SC2086
            gcc -x $language $options -w -I "$include" -c "$here/calls.c" -o "$object/calls.o"
            imported=$(nm -u "$object/calls.o" | awk '{print $2}' | c++filt | grep -vE "^($expected)" || true)
            same "$language $options" "" "$imported"
        done
    done
    rm -r "$object"
}

# The version in the header, in the build and at the top of the changelog are one.
version() {
    local stated built
    stated=$(gcc -x c -E -P -I "$include" - <<<'#include <strlib.h>
version STRLIB_VERSION_MAJOR.STRLIB_VERSION_MINOR.STRLIB_VERSION_PATCH' | sed -n 's/^version //p' | tr -d ' ')
    built=$(sed -nE 's/^project\(strlib VERSION ([0-9.]+) .*/\1/p' "$root/CMakeLists.txt")
    same "in strlib.h and CMakeLists.txt" "$stated" "$built"
    same "in strlib.h and CHANGELOG.md" "$stated" "$(sed -nE 's/^## ([0-9.]+).*/\1/p' "$root/CHANGELOG.md" | head -1)"
}

case $case in
header | calls) inEveryLanguage $case ;;
imports | version) $case ;;
*) fail "name a check: header, calls, imports or version" ;;
esac
