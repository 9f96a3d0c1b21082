#!/usr/bin/env bash
# Demands for every routine of the header a property, a call on bare processors, an array the optimiser sees, a
# benchmark, and a line on its edges: coverage.sh ROOT
set -euo pipefail
export LC_ALL=C

[[ -d ${1:-} ]] || { echo "usage: coverage.sh ROOT" >&2 && exit 2; }
cd "$1"
failures=0

mapfile -t routines < <(grep -oE '\b(TQ_|TQANSI_|X_TAMBRO_|utf8|unicodeTo|customS|string_operator_)[A-Za-z0-9_]*\(' \
    strlib/include/strlib.h | grep -vE '^TQANSI_[a-z]*\(\)$' | tr -d '(' | sort -u)
((${#routines[@]} == 38)) || { echo "${#routines[@]} routines declared instead of 38" && failures=1; }

# demand PATTERN FILE...
demand() { grep -qE -- "$1" "${@:2}" || { echo "$routine: missing in ${*:2}" && failures=$((failures + 1)); }; }
for routine in "${routines[@]}"; do
    demand "\b$routine\b" tests/*propert*.cpp
    demand "\{\"$routine\"," examples/baremetal/main.cpp
    demand "Routine\{\"$routine\"," tests/optimiser/texts.cpp
    demand "\b$routine\b" benchmarks/ceilings.tsv
    demand "\b$routine\b" docs/behaviour.md
done
echo "${#routines[@]} routines, $failures gaps"
exit $((failures > 0))
