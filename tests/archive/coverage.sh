#!/usr/bin/env bash
# Demands for every routine of the header a property, a call on bare processors, an array the optimiser sees, a
# benchmark, a line on its edges, and a row of ARCHITECTURE.md that names the file where it is defined: coverage.sh ROOT
set -euo pipefail
export LC_ALL=C

[[ -d ${1:-} ]] || { echo "usage: coverage.sh ROOT" >&2 && exit 2; }
cd "$1"
failures=0

# missing ROUTINE WHAT
missing() {
    echo "$1: $2"
    failures=$((failures + 1))
}

# The files whose rows in ARCHITECTURE.md name a routine.
namedFiles() { sed -nE "s/^\| \`(strlib\/[a-z0-9_]+\.cpp)\` \|.*\`$1\`.*/\1/p" ARCHITECTURE.md; }

mapfile -t routines < <(grep -oE '\b(TQ_|TQANSI_|X_TAMBRO_|utf8|unicodeTo|customS|string_operator_)[A-Za-z0-9_]*\(' \
    strlib/include/strlib.h | grep -vE '^TQANSI_[a-z]*\(\)$' | tr -d '(' | sort -u)
((${#routines[@]} == 38)) || missing "strlib.h" "${#routines[@]} routines declared instead of 38"

for routine in "${routines[@]}"; do
    grep -qw "$routine" tests/*propert*.cpp || missing "$routine" "no property in tests"
    grep -q "{\"$routine\"," examples/baremetal/main.cpp || missing "$routine" "no call in examples/baremetal/main.cpp"
    grep -q "Routine{\"$routine\"," tests/optimiser/texts.cpp || missing "$routine" "no row in tests/optimiser/texts.cpp"
    grep -qwr --include='*.cpp' --include='*.h' "$routine" benchmarks || missing "$routine" "no benchmark"
    grep -qw "$routine" docs/behaviour.md || missing "$routine" "no line in docs/behaviour.md"
    file=$(namedFiles "$routine")
    if [[ ! -f $file ]] || ! grep -qE "^[a-z].*\b$routine\(.*\{" "$file"; then
        missing "$routine" "ARCHITECTURE.md names '$file' as its file"
    fi
done
echo "${#routines[@]} routines, $failures gaps"
exit $((failures > 0))
