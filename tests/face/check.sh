#!/usr/bin/env bash
# What compilers make of <strlib.hpp>: nothing to say about the header alone; the lines of refusals.cpp that do not
# compile, and why, against the lines that say so; and no more code than for the routines alone.
here=$(cd "$(dirname "$0")" && pwd)
. "$here/../checks.sh"
options=(-std=c++20 -I "$root/strlib/include" -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow
    -Wold-style-cast -Wundef -Wcast-qual)

# Line and reason of each refusal: the function in strlib::detail::refused that a constant expression came to, a format
# that is no constant, or a destination that is none.
reasons() {
    awk '
        match($0, /refusals\.cpp:[0-9]+:/) {line = substr($0, RSTART + 13, RLENGTH - 14)}
        match($0, /refused::[A-Za-z]+\(\)|non-constexpr function .[A-Za-z]+/) {
            reason = substr($0, RSTART, RLENGTH)
            gsub(/refused::|\(\)|non-constexpr function ./, "", reason)
            print line, reason
        }
        /error: .text. is not a constant expression|note: function parameter .text. / {print line, "notConstant"}
        /error: (no matching function|cannot bind non-const lvalue)/ {print line, "noDestination"}
        /(error|warning): / && !/refused::|consteval function|not a constant|no matching|cannot bind|deduction failed/ {
            print line, $0
        }' | sort -u -k 1,1n -k 2
}

refusals() {
    diff <(sed -En 's|.*;  *// ([A-Za-z]+)$|\1|;T;=;p' "$here/refusals.cpp" | paste -d ' ' - -) \
        <({ "$@" "${options[@]}" -fsyntax-only "$here/refusals.cpp" 2>&1 || true; } | reasons) ||
        { echo "refusals: $*" >&2 && return 1; }
}

# Each function of cost.cpp that takes more bytes through the face than by hand, and both numbers.
object=$(mktemp)
trap 'rm -f "$object"' EXIT
g++ "${options[@]}" -O2 -c "$here/cost.cpp" -o "$object"
dearer=$(nm -S -t d "$object" | awk '
    $3 == "T" {bytes[$4] = $2 + 0}
    /face/ {faces[substr($4, 5)]}
    END {
        for (name in faces)
            if (bytes["face" name] > bytes["hand" name]) print name, bytes["face" name], bytes["hand" name]
        if (length(faces) == 0) print "nothing was measured"
    }')
same "bytes through the face, and by hand, of what costs more" "" "$dearer"

for compiler in g++ $(installed clang++); do
    "$compiler" "${options[@]}" -Werror -O2 -x c++ -c - -o /dev/null <<<'#include <strlib.hpp>'
    limit=-ferror-limit=0
    [[ $compiler == g++ ]] && limit=-fmax-errors=0
    refusals "$compiler" $limit
done
