#!/usr/bin/env bash
# Checks the gazetteer: what it finds, and what it says about bad input.
set -euo pipefail

usage='usage: check_gazetteer.sh [EMULATOR...] PROGRAM'
(($# > 0)) || { echo "$usage" >&2 && exit 2; }
[[ $1 != --help ]] || { echo "$usage" && exit; }
program=("${@:1:$#-1}" "$(realpath "${@: -1}")")
examples=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
file=$scratch/file
good='Roma;Rome;Italy;41.89;12.48;2748000'
failures=0

# run ARGUMENT...: leaves what the program writes in $scratch and its exit status in $status.
run() {
    status=0
    "${program[@]}" "$@" >"$scratch/out" 2>"$scratch/err" || status=$?
}

# expect WHAT WANTED SEEN
expect() {
    [[ $3 == "$2" ]] && return
    printf '%s: wanted "%s", saw "%s"\n' "$1" "$2" "$3"
    failures=$((failures + 1))
}

# finds TOTALS ARGUMENT...: from the checked-in file, without a complaint.
finds() {
    run "$examples/capitals.txt" "${@:2}"
    expect "${*:2}" "0 $1 " "$status $(grep -E '^[0-9]+ capitals?,' "$scratch/out") $(<"$scratch/err")"
}

# misuse MESSAGE ARGUMENT...
misuse() {
    run "${@:2}"
    expect "${*:2}" "2 gazetteer: $1 (--help tells more) " "$status $(<"$scratch/err") $(<"$scratch/out")"
}

# refused MESSAGE [CONTENT]: the whole file, of that content where one is given.
refused() {
    if [[ $# -gt 1 ]]; then printf '%b' "$2" >"$file"; fi
    run "$file"
    expect "file '${2-}'" "1 $file:$1 " "$status $(<"$scratch/err") $(<"$scratch/out")"
}

# skipped REASON LINE: that line only, between two good ones.
skipped() {
    printf '%s\r\n%b\r\n%s' "$good" "$2" "$good" >"$file"
    run "$file"
    expect "line '$2'" "1 $file:2: $1 2 capitals, 5,496,000 inhabitants" \
        "$status $(<"$scratch/err") $(grep '^2 capitals' "$scratch/out")"
}

# accepted ROW LINE: the line's row in the table, with single blanks.
accepted() {
    printf '%b' "$2" >"$file"
    run "$file"
    expect "line '$2'" "0  $1" "$status $(<"$scratch/err") $(sed -n 3p "$scratch/out" | tr -s ' ')"
}

# says FIRSTLINE ARGUMENT...: on the standard output, and nothing else is wrong.
says() {
    run "${@:2}"
    expect "${*:2}" "0 $1" "$status $(<"$scratch/err")$(head -n 1 "$scratch/out")"
}

for option in --help -h '--sort name -h'; do
    says 'Usage: gazetteer [OPTION]... FILE' $option
done
if [[ $failures -gt 0 ]]; then exit 1; fi
# The example of a line that the help gives is one.
grep -E '^  Wien;' "$scratch/out" >"$file" || true
says 'Capital  Own name  Country  Latitude  Longitude  Population' "$file"
version=$(sed -nE 's/^project\(strlib VERSION ([0-9.]+).*/\1/p' "$examples/../CMakeLists.txt")
says "gazetteer $version" --version

run "$examples/capitals.txt" --prefix t --sort population
expect 'the expected table' '' "$(diff "$examples/expected_table.txt" "$scratch/out" 2>&1)"

finds '194 capitals, 377,939,390 inhabitants' --sort country
finds '1 capital, 14,094,000 inhabitants' --find 東京
finds '1 capital, 13,150,000 inhabitants' --find МОСКВА
finds '1 capital, 643,000 inhabitants' --find ΑΘΗΝΑ
finds '1 capital, 1,092,000 inhabitants' --find ԵՐ
finds '1 capital, 8,587,000 inhabitants' --find='HA NOI'
finds '1 capital, 418,000 inhabitants' --find TIRANË
finds '1 capital, 2,336,000 inhabitants' --find=BAKİ
finds '2 capitals, 12,256,000 inhabitants' --find KOREA
finds '1 capital, 71,900 inhabitants' --find 'sao tome'
finds '1 capital, 7,744,000 inhabitants' --find BOGOTÁ --prefix bo
finds '6 capitals, 11,353,060 inhabitants' --prefix san
finds '5 capitals, 1,584,100 inhabitants' --prefix 'PORT '
finds '1 capital, 767,000 inhabitants' --prefix Z
finds '1 capital, 767,000 inhabitants' --prefix=Z --prefix z --sort=population
says 'No capital matches.' --prefix zz "$examples/capitals.txt"
expect 'lines when nothing matches' 1 "$(wc -l <"$scratch/out" | tr -d ' ')"

# The standard input, and files with names like options.
run - <"$examples/capitals.txt"
expect 'the standard input' '0 194 capitals' "$status $(<"$scratch/err")$(grep -oE '^[0-9]+ capitals' "$scratch/out")"
echo Roma >"$file"
run - <"$file"
expect 'a bad standard input' '1 standard input:1: too few fields' "$status $(<"$scratch/err")"
run - </dev/null
expect 'an empty standard input' '1 standard input: empty file' "$status $(<"$scratch/err")"
cd "$scratch"
echo "$good" >--find
says 'Capital  Own name  Country  Latitude  Longitude  Population' --prefix r -- --find

misuse 'unknown option --fnid' --fnid x "$examples/capitals.txt"
misuse 'unknown option -x' -x
misuse 'unknown option --findx=y' --findx=y
misuse 'unknown option --help=x' --help=x
misuse 'no file named' --
misuse 'blank text behind --find' "$examples/capitals.txt" --find=
misuse 'name, country or population must follow --sort' --sort=size
misuse 'nothing behind --find' "$examples/capitals.txt" --find
misuse 'blank text behind --prefix' "$examples/capitals.txt" --prefix ' '
misuse 'invalid UTF-8 behind --find' "$examples/capitals.txt" --find $'\xC3'
misuse 'text too long behind --find' "$examples/capitals.txt" --find "$(printf '%096d' 0)"
misuse 'name, country or population must follow --sort' "$examples/capitals.txt" --sort size
misuse 'no file named'

rm "$file"
refused ' No such file or directory'
refused ' empty file' ''
refused ' no records' '# nothing\r\n\r\n \r\n'
refused '3: NUL byte in the file' "$good\n$good\nRo\0ma\n"
rm "$file"
mkdir "$file"
refused ' Is a directory'
rmdir "$file"

skipped 'line too long' "# $(printf '%0510d' 0)"
skipped 'line too long' "# $(printf '%02000d' 0)"
skipped 'carriage return inside the line' 'Ro\rma;Rome;Italy;41.89;12.48;2748000'
skipped 'invalid UTF-8' 'Malm\xF6;Malmo;Sweden;55.6;13;357000'
skipped 'invalid UTF-8' '# \xE0\x80\x80'
skipped 'invalid UTF-8' '# \xED\xA0\x80'
skipped 'invalid UTF-8' '# \xF4\x90\x80\x80'
skipped 'control character' 'Ro\tma;Rome;Italy;41.89;12.48;2748000'
skipped 'control character' 'Roma;\xE2\x80\xAERome;Italy;41.89;12.48;2748000'
skipped 'too few fields' 'Roma;Rome;Italy;41.89;12.48'
skipped 'too many fields' 'Roma;Rome;Italy;41.89;12.48;2748000;1'
skipped 'empty field' 'Roma;;Italy;41.89;12.48;2748000'
skipped 'empty field' ';Rome;Italy;41.89;12.48;2748000'
skipped 'empty field' 'Roma;Rome;Italy;41.89;12.48;'
skipped 'empty field' 'Roma; ;Italy;41.89;12.48;2748000'
skipped 'field too long' "Roma;$(printf '%096d' 0);Italy;41.89;12.48;2748000"
skipped 'latitude is no number' 'Roma;Rome;Italy;north;12.48;2748000'
skipped 'latitude is no number' 'Roma;Rome;Italy;0x1F;12.48;2748000'
skipped 'latitude is no number' 'Roma;Rome;Italy;- 4;12.48;2748000'
skipped 'latitude is no number' 'Roma;Rome;Italy;--4;12.48;2748000'
skipped 'latitude is no number' 'Roma;Rome;Italy;41.;12.48;2748000'
skipped 'latitude is no number' 'Roma;Rome;Italy;.5;12.48;2748000'
skipped 'latitude is no number' 'Roma;Rome;Italy;41.8999x;12.48;2748000'
skipped 'latitude is no number' 'Roma;Rome;Italy;41.8.9;12.48;2748000'
skipped 'latitude out of range' 'Roma;Rome;Italy;4294967337;12.48;2748000'
skipped 'latitude out of range' 'Roma;Rome;Italy;-90.01;12.48;2748000'
skipped 'latitude out of range' 'Roma;Rome;Italy;90.001;12.48;2748000'
skipped 'longitude is no number' 'Roma;Rome;Italy;41.89;12,48;2748000'
skipped 'longitude out of range' 'Roma;Rome;Italy;41.89;180.5;2748000'
skipped 'population is no number' 'Roma;Rome;Italy;41.89;12.48;2,748,000'
skipped 'population is no number' 'Roma;Rome;Italy;41.89;12.48;-1'
skipped 'population out of range' 'Roma;Rome;Italy;41.89;12.48;4297715296'

accepted 'Pole Nord Arctic 90.00°N 180.00°W 0' '\xEF\xBB\xBF# mark\n Nord ; Pole ; Arctic ; 90 ; -180.00 ; 0 '
accepted 'Rome Roma Italy 0.50°S 9.05°E 999,999,999' 'Roma;Rome;Italy;-0.5;09.05;999999999'
accepted 'Rome Roma Italy 1.12°N 1.13°W 1' 'Roma;Rome;Italy;1.123;-1.1259999999999999999;1'
accepted 'Rome Roma Italy 1.00°N 0.00°E 1' 'Roma;Rome;Italy;0.995;-0.0049;1'
accepted 'Rome Roma Italy 41.89°N 12.48°E 2,748,000' "# $(printf '%0509d' 0)\r\n$good"

# 131,072 records take some 80 MB. Where not even the version can be told in 40, as under sanitizers, this cannot be
# tried.
inLittleMemory=(bash -c 'ulimit -v 40000 && exec "$@"' bash)
if "${inLittleMemory[@]}" "${program[@]}" --version &>/dev/null; then
    echo "$good" >"$file"
    for ((i = 0; i < 17; ++i)); do cat "$file" "$file" >"$file.twice" && mv "$file.twice" "$file"; done
    program=("${inLittleMemory[@]}" "${program[@]}")
    run "$file"
    expect 'too little memory' '1 gazetteer: out of memory' "$status $(<"$scratch/err")$(<"$scratch/out")"
fi

[[ $failures == 0 ]]
