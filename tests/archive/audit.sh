#!/usr/bin/env bash
# Audits the archive's boundary: audit.sh ARCHIVE HEADER NM READELF [STACK_USAGE_DIRECTORY]
# STRLIB_RUNTIME is a pattern of the compiler's own helpers that the archive may import, where a target needs any.
set -euo pipefail
export LC_ALL=C

archive=$1 header=$2 nm=$3 readelf=$4 stackUsage=${5:-}
stackLimit=512
# The calls between routines that are part of the design; everything else is a leaf.
allowedCalls='collate:TQANSI_strcmp copy:TQANSI_strlen find_string:TQANSI_strnicmp format_input:TQANSI_atoi format_output:TQANSI_itoa'
failures=0

same() {
    local differences
    if ! differences=$(diff <(echo "$2") <(echo "$3")); then
        echo "$1:" && echo "$differences"
        failures=$((failures + 1))
    fi
}

declared=$(grep -oE '\b(TQ_|TQANSI_|X_TAMBRO_|utf8|unicodeTo|customS|string_operator_)[A-Za-z0-9_]*\(' "$header" |
    grep -vE '^TQANSI_[a-z]*\(\)$' | tr -d '(' | sort -u)
same "number of routines" 38 "$(wc -l <<<"$declared")"

# Where routines exist in several forms, the name of each but the public one ends in a dot and the form.
form='\.(avx2|baseline)$'
symbols=$("$nm" -A "$archive" | sed -E 's/^[^:]*:([^:]*)\.cpp\.o(bj)?:/\1 /' |
    grep -vE " U (${STRLIB_RUNTIME:-nothing})$")
defined=$(awk '$3 ~ /^[A-TV-Zi]$/ {print $4}' <<<"$symbols" | grep -vE "$form" | sort)
imported=$(awk '$2 == "U" {print $3}' <<<"$symbols" | grep -vE "$form" | sort -u)
same "exports are exactly the routines declared" "$declared" "$defined"
same "imports are exactly memset" memset "$(comm -23 <(echo "$imported") <(echo "$defined"))"
same "calls between routines" "$(tr ' ' '\n' <<<"$allowedCalls")" \
    "$(awk '$2 == "U" && $3 != "memset" {print $1 ":" $3}' <<<"$symbols" | grep -vE "$form" | sort -u)"
same "every form is there once" "$(grep -oE "[^ ]+$form" <<<"$symbols" | sort -u)" \
    "$(awk '$3 == "T" {print $4}' <<<"$symbols" | grep -E "$form" | sort)"

elf=$("$readelf" -W -s "$archive")
same "every routine is hidden" 38 "$(grep 'GLOBAL HIDDEN *[0-9]' <<<"$elf" | grep -cvE "$form")"
same "nothing is visible" "" "$(grep 'GLOBAL DEFAULT *[0-9]' <<<"$elf" || true)"

# Name and size of what would make the library keep state or run before main.
sections=$("$readelf" -W -S "$archive" | sed -nE 's/^ *\[ *[0-9]+\] (\S+) +\S+ +\S+ +\S+ +(\S+) .*/\1 \2/p' |
    grep -E '^\.(data|bss|tdata|tbss|init|fini|ctors|dtors|init_array|fini_array|preinit_array)' |
    awk '$2 !~ /^0+$/' || true)
same "sections that hold state or start-up code" "" "$sections"

if [[ -n $stackUsage ]]; then
    frames=$(find "$stackUsage" -name '*.su' -exec cat {} +)
    [[ -n $frames ]] || { echo "no stack usage was recorded" && failures=$((failures + 1)); }
    # An aligned frame counts as dynamic, but its bound is known.
    same "frames that are not bounded or above $stackLimit bytes" "" \
        "$(awk -F'\t' -v limit=$stackLimit '$3 !~ /^(static|dynamic,bounded)$/ || $2 > limit' <<<"$frames")"
    echo "greatest stack frame: $(sort -t$'\t' -k2 -n <<<"$frames" | tail -1 | awk -F'\t' '{print $2 " bytes, " $1}')"
fi
echo "$(wc -l <<<"$defined") routines exported, imports: $imported" | tr '\n' ' ' && echo
exit $((failures > 0))
