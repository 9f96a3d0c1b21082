#!/usr/bin/env bash
# Uses the library without its build system: check.sh CASE SCRATCH [OBJECT...]
#   makefile   the makefile of docs/sources.md makes what CMake makes, of the same files with the same flags
#   imports    the one file compiles without a word, and with its flags imports memset only
#   suite      the suite, whose objects are named, passes with it, with flags and without
#   boards     the program of examples/baremetal passes with it
case=$1 scratch=$2/$1
. "$(dirname "$0")/../checks.sh"
rm -rf "$scratch"
mkdir -p "$scratch"
"$root/script/amalgamate" "$scratch"
cd "$scratch"

routines=$(sed -nE 's/^[a-z][a-z0-9_ ]*[ *]([A-Za-z0-9_]+)\(.*/\1/p' strlib.h | sort)

# The flags that the first lines of the file give for a compiler.
flagsFor() { sed -nE "/^\/\/ {5}$1/,/^\/\/ [^ ]/s/^\/\/ {5}($1 )?//p" strlib.cpp | paste -sd ' '; }
read -ra gccFlags <<<"$(flagsFor 'g\+\+')"
read -ra clangFlags <<<"$(flagsFor 'clang\+\+')"

# compile OBJECT COMPILER [FLAG...]: without a word from the compiler.
compile() { "${@:2}" -Wall -Wextra -Werror -c strlib.cpp -o "$1" || fail "${*:2}"; }

# audit OBJECT [HELPER...]: exports the routines, imports memset and of those helpers of the compiler what it needs.
audit() {
    local imports
    imports=$(nm -u "$1" | awk '{print $2}' | sort)
    same "exports of $1" "$routines" "$(nm -g --defined-only "$1" | awk '{print $3}' | sort)"
    same "imports of $1" memset "$(comm -23 <(echo "$imports") <(printf '%s\n' "${@:2}" | sort))"
}

# auditAll NAME COMPILER [FLAG...] -- [HELPER...]: at each level, and as interprocedural optimisation leaves it.
auditAll() {
    local name=$1 level compiler=()
    shift
    while [[ $1 != -- ]]; do compiler+=("$1") && shift; done
    shift
    for level in -O1 -O2 -O3 -Os; do
        compile "$name$level.o" "${compiler[@]}" $level
        audit "$name$level.o" "$@"
    done
    [[ $name != clang ]] || return 0
    compile "$name-flto.ir" "${compiler[@]}" -O2 -flto
    "${compiler[@]}" -O2 -flto -r -nostdlib -flinker-output=nolto-rel "$name-flto.ir" -o "$name-flto.o"
    audit "$name-flto.o" "$@"
}

# The sources that commands compile, each with the flags that bear on its code.
sourcesAndFlags() {
    while read -r command; do
        tr ' ' '\n' <<<"${command//gnu++/c++}" | grep -E '^-(std=|f|m|O|D|Wno-)|\.cpp$' | sed 's|.*/||' | sort | paste -sd ' '
    done | sort
}

case $case in
makefile)
    sed -n '/^```make$/,/^```$/{//!p}' "$root/docs/sources.md" >Makefile
    ln -s "$root/strlib" strlib
    for compiler in g++ clang++; do
        # The choice at load time is CMake's alone.
        configure $compiler -DCMAKE_CXX_COMPILER=$compiler -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS=-O2 \
            -DSTRLIB_X86_64_CHOICE=OFF >log 2>&1 || fail "$(cat log)"
        same "$compiler: sources and flags by CMakeLists.txt and by docs/sources.md" \
            "$(sed -n 's/^ *"command": "\(.*\)",*$/\1/p' $compiler/compile_commands.json | sourcesAndFlags)" \
            "$(make -n CXX=$compiler | grep -e ' -c ' | sourcesAndFlags)"
        make -j2 CXX=$compiler >log 2>&1 || fail "$(cat log)"
        mv libstrlib.a $compiler.a && rm -- *.o
        same "exports of the archive" "$routines" "$(nm -g $compiler.a | awk '$2 == "T" {print $3}' | sort)"
    done
    ;;
imports)
    compile bare-g++.o g++
    compile bare-clang++.o clang++ -std=c++20
    auditAll gcc g++ "${gccFlags[@]}" --
    auditAll avx2 g++ "${gccFlags[@]}" -march=x86-64-v3 --
    auditAll clang clang++ "${clangFlags[@]}" --
    ;;
suite)
    run() {
        echo "$*"
        compile strlib.o "$@"
        "$@" "${objects[@]}" strlib.o -o suite
        for kind in small random; do STRLIB_TEST_DEPTH=-1 ./suite $kind; done
    }
    objects=("${@:3}")
    run g++
    run g++ -O3
    run g++ "${gccFlags[@]}" -O2 -flto
    run clang++ -std=c++20 -O2
    run clang++ "${clangFlags[@]}" -O2 -flto
    ;;
boards)
    program=$root/examples/baremetal
    # board CORE START MACHINE HELPER...: the start-up code and the machine of examples/baremetal.
    board() {
        local core=$1 start=$program/$2 machine=$3 flags lto
        flags=("${gccFlags[@]}" -mcpu="$core" -mthumb -mfloat-abi=soft)
        auditAll "$core" arm-none-eabi-g++ "${flags[@]}" -- "${@:4}"
        # Start-up code in assembly language names functions that interprocedural optimisation does not see it use.
        arm-none-eabi-g++ "${flags[@]}" -O2 -DCHECK_ALIGNMENT=0 -I"$program" -c "$start/start.cpp" -o "$core.start.o"
        for lto in -fno-lto -flto; do
            arm-none-eabi-g++ "${flags[@]}" -O2 $lto -I. "$core.start.o" "$program"/{memset,main}.cpp strlib.cpp \
                -nostdlib -Wl,--gc-sections -T "$start/layout.ld" -lgcc -o "$core$lto.elf"
            echo "$core, $lto:"
            timeout 60 "$root/cmake/toolchains/emulate-board" "$machine" "$core$lto.elf" || fail "$core, $lto"
        done
    }
    # Cortex-M0 has no instruction for a long product, for leading zeros and for a jump through a table.
    board cortex-m0 cortex_m microbit __aeabi_lmul __clzsi2 __ctzsi2 __gnu_thumb1_case_{s,u}{q,h}i
    board cortex-m4 cortex_m mps2-an386
    board cortex-a9 cortex_a9 vexpress-a9
    ;;
*) fail "no such case" ;;
esac
