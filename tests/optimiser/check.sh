#!/usr/bin/env bash
# Builds texts.cpp so that the optimiser sees the library's code as well, and runs it. One line a build, and how many
# failed. Each build takes one of fourteen turns of the array sizes, so that a few builds of a machine take them all.
set -euo pipefail

usage='usage: check.sh [--deep]
Without --deep one build for each kind of machine; with it every compiler, level and machine.'
case ${1:-} in
    '') deep= ;;
    --deep) deep=deep ;;
    --help) echo "$usage" && exit ;;
    *) echo "$usage" >&2 && exit 2 ;;
esac

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

mapfile -t sources < <(find "$root/strlib" -name '*.cpp' | sort)
printf '#include "%s"\n' "${sources[@]}" "$here/texts.cpp" >"$work/one_unit.cpp"

# Flags by machine. What is not x86-64 is emulated.
arm='-march=armv7-a+fp -mthumb' neon='-march=armv7-a -mfpu=neon -mfloat-abi=hard -mthumb'
declare -A machines=(
    [x86-64]='' [x86-64-v3]='-march=x86-64-v3' [words]='-DSTRLIB_BLOCK_WORD'
    [armv7]=$arm [armv7-neon]=$neon [armv7-strict]="$arm -mno-unaligned-access"
)

# build COMPILER LEVEL MACHINE KIND TURN: the library linked with interprocedural optimisation, or one unit.
build() {
    local compiler=$1 level=$2 machine=$3 kind=$4 turn=$5 name="$1 $2 $3 $4" flags inputs program emulator=()
    program=$work/${name// /_}
    read -ra flags <<<"${machines[$machine]}"
    flags+=(-w -std=c++20 "$level" -DTURN="$turn" -I"$root/strlib" -I"$root/strlib/include")
    if [[ $machine == armv7* ]]; then
        emulator=(qemu-arm -cpu cortex-a9 -L /usr/arm-linux-gnueabihf)
        case $compiler in
            g++) compiler=arm-linux-gnueabihf-g++ ;;
            *) flags+=(--target=arm-linux-gnueabihf) ;;
        esac
    fi
    case $kind in
        linked)
            inputs=("$here/texts.cpp" "${sources[@]}")
            flags+=(-flto)
            if [[ $compiler == clang* ]]; then flags+=(-fuse-ld=lld); fi
            ;;
        unit) inputs=("$work/one_unit.cpp") ;;
    esac
    if nice "$compiler" "${flags[@]}" "${inputs[@]}" -o "$program" >"$program.log" 2>&1 &&
        timeout 60 "${emulator[@]}" "$program" >"$program.log" 2>&1; then
        echo "right  $name: $(tail -1 "$program.log")"
    else
        echo "WRONG  $name:" && head -20 "$program.log"
        echo "$name" >>"$work/failed"
    fi
    rm -f "$program"
}

if [[ $deep ]]; then
    wanted=()
    for machine in "${!machines[@]}"; do
        levels=(-O2 -O3 -Os)
        if [[ $machine == words || $machine == armv7-strict ]]; then levels=(-O2); fi
        for kind in linked unit; do
            for level in "${levels[@]}"; do
                for compiler in g++ clang++; do wanted+=("$compiler $level $machine $kind"); done
            done
        done
    done
else
    wanted=('g++ -O2 x86-64 linked' 'clang++ -O3 x86-64-v3 unit' 'g++ -Os armv7 linked' 'g++ -O2 armv7-neon unit')
fi

turns=(3 8 1 14 5 10 2 7 12 4 9 6 11 13)
started=0
for one in "${wanted[@]}"; do
    read -ra arguments <<<"$one"
    while (($(jobs -rp | wc -l) >= $(nproc))); do wait -n || true; done
    build "${arguments[@]}" "${turns[started % ${#turns[@]}]}" &
    started=$((started + 1))
done
wait

failed=$([[ -e $work/failed ]] && wc -l <"$work/failed" || echo 0)
echo "${#wanted[@]} builds, $failed failed"
exit $((failed > 0))
