#!/usr/bin/env bash
# Shows what the choice at load time takes in programs of every kind: check.sh CASE SCRATCH COMPILER...
#   links       position-independent or not, static, shared, with interprocedural optimisation, under sanitizers
#   runs        native, under Valgrind, on emulated processors with and without AVX2
#   size        a program of two routines does not get all of them
#   elsewhere   without the choice, by its option, by flags, under sanitizers and with musl
case=$1 scratch=$2/$1
shift 2
here=$(cd "$(dirname "$0")" && pwd)
. "$here/../checks.sh"
mkdir -p "$scratch"
native=baseline
! grep -qw avx2 /proc/cpuinfo || native=avx2

quietly() { "$@" >"$scratch/log" 2>&1 || fail "$*: $(<"$scratch/log")"; }

# The library for a compiler: library COMPILER NAME FLAGS [CMAKE OPTION...]
library() {
    local build=$scratch/$2-${1##*/}
    quietly configure "$build" -DCMAKE_CXX_COMPILER="$1" -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS="-O2 $3" "${@:4}"
    quietly cmake --build "$build" -j2 --target strlib
    archive=$build/libstrlib.a
}

# expect FORM PROGRAM [COMMAND...]: what the program prints when it runs, by a command if there is one.
expect() {
    local form
    form=$("${@:3}" "$2") || fail "$2: $form"
    same "form of $2 ${*:3}" "$1" "$form"
    echo "${2##*/} ${*:3}: $form"
}

# link NAME C-COMPILER FLAGS...: the program, with the archive.
link() {
    program=$scratch/$1-${2##*/}
    quietly "$2" -x c -std=gnu99 -O2 -I"$root/strlib/include" "${@:3}" "$here/forms.c" -x none "$archive" -o "$program"
}

# The compiler for C that goes with one for C++.
c() { if [[ $1 == *clang* ]]; then echo "${1/++/}"; else echo "${1/%g++/gcc}"; fi; }

case $case in
links)
    for compiler; do
        library "$compiler" plain ""
        for flags in "-fPIE -pie" "-fno-pie -no-pie" "-fno-pie -static" "-fPIE -static-pie" "-Wl,-z,now" "-flto" \
            "-fsanitize=address,undefined" "-fsanitize=thread" "-Wl,--gc-sections"; do
            # shellcheck disable=SC2086
            link "${flags// /}" "$(c "$compiler")" $flags
            expect $native "$program"
        done
        # Hidden in a shared object.
        link shared "$(c "$compiler")" -fPIC -shared -fvisibility=hidden -Wl,-z,now \
            -Dmain='__attribute__((visibility("default"))) entry'
        mv "$program" "$program.so"
        quietly "$(c "$compiler")" -x c - -x none -o "$program" "$program.so" <<'END'
extern int entry(void);
int main(void) { return entry(); }
END
        expect $native "$program"
        library "$compiler" interprocedural "-flto"
        link interprocedural "$(c "$compiler")" -flto
        expect $native "$program"
    done
    ;;
runs)
    library "$1" plain ""
    link plain "$(c "$1")" -static
    expect avx2 "$program" qemu-x86_64 -cpu max
    expect baseline "$program" qemu-x86_64 -cpu qemu64
    link plain "$(c "$1")"
    expect $native "$program"
    expect baseline "$program" valgrind -q --error-exitcode=1
    ;;
size)
    limit=5120
    library "$1" plain ""
    with=$archive
    library "$1" without "" -DSTRLIB_X86_64_CHOICE=OFF
    without=$archive
    for flags in "" -Wl,--gc-sections; do
        sizes=()
        for archive in "$with" "$without"; do
            # shellcheck disable=SC2086
            quietly "$(c "$1")" -x c - -x none "$archive" -O2 -I"$root/strlib/include" $flags \
                -o "$scratch/program" <<'END'
#include <strlib.h>
int main(int count, char **texts) { return TQANSI_strlen(*texts) + TQANSI_strcmp(*texts, texts[count - 1]); }
END
            sizes+=("$(size "$scratch/program" | awk 'NR == 2 { print $4 }')")
        done
        echo "with the choice ${sizes[0]} bytes, without ${sizes[1]} $flags"
        ((sizes[0] > sizes[1] && sizes[0] - sizes[1] <= limit)) || fail "expected up to $limit more"
    done
    ;;
elsewhere)
    library "$1" without "" -DSTRLIB_X86_64_CHOICE=OFF
    link without "$(c "$1")"
    expect one "$program"
    library "$1" v3 -march=x86-64-v3
    link v3 "$(c "$1")"
    [[ $native != avx2 ]] || expect one "$program"
    for sanitizer in address thread; do
        library "$1" $sanitizer -fsanitize=$sanitizer
        link $sanitizer "$(c "$1")" -fsanitize=$sanitizer
        expect one "$program"
    done
    # Flags of a project around the library, which a check of the compiler does not see.
    mkdir -p "$scratch/around"
    cat >"$scratch/around/CMakeLists.txt" <<END
cmake_minimum_required(VERSION 3.25)
project(around LANGUAGES C CXX)
add_compile_options(-fsanitize=address)
add_link_options(-fsanitize=address)
add_subdirectory($root strlib)
add_executable(forms $here/forms.c)
target_link_libraries(forms PRIVATE strlib::strlib)
END
    quietly cmake -S "$scratch/around" -B "$scratch/around/build" -G Ninja
    quietly cmake --build "$scratch/around/build" -j2
    expect one "$scratch/around/build/forms"
    specs=$(echo /usr/lib/*/musl-gcc.specs)
    [[ -f $specs ]] || fail "musl's compiler is missing: $specs"
    library g++ musl "-specs=$specs"
    link musl musl-gcc -static
    expect one "$program"
    ;;
*) fail "no such case" ;;
esac
