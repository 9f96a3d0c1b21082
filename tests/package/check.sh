#!/usr/bin/env bash
# Uses the library as its users get it: check.sh CASE SCRATCH VERSION. The case `build` comes first.
(($# == 3)) || { sed -n '2s/^# //p' "$0" >&2 && exit 2; }
case=$1 shared=$2/build version=$3
here=$(cd "$(dirname "$0")" && pwd)
. "$here/../checks.sh"
scratch=$2/$case
rm -rf "$scratch"
mkdir -p "$scratch"
exec 3>&1 >"$scratch/log"

installed=
trap 'status=$?; ${installed:+dpkg -P libstrlib-dev}; ((status == 0)) || cat "$scratch/log" >&3' EXIT

buildLibrary() {
    configure "$@"
    cmake --build "$1" -j 2
}

# Builds the consumer, runs its programs, and sees that its shared object exports no routine of the library.
consume() {
    cmake -S "$here/consumer" -B "$scratch/consumer" -G Ninja -DSTRLIB_VERSION="$version" "$@"
    cmake --build "$scratch/consumer" -j 2
    ctest --test-dir "$scratch/consumer" --no-tests=error --output-on-failure
    exportsOnlyTheWrapper "$scratch/consumer/libwrapper.so"
}

exportsOnlyTheWrapper() {
    same "exports of $1" wrappedLength "$(nm -D --defined-only "$1" | awk '{print $3}')"
}

# The same without CMake: the flags come from the pkg-config file in the directory named.
consumeByPkgConfig() {
    export PKG_CONFIG_PATH=$1
    same "version" "$version" "$(pkg-config --modversion strlib)"
    local cflags libs
    read -ra cflags < <(pkg-config --cflags strlib)
    read -ra libs < <(pkg-config --libs strlib)
    cc -std=c99 -fPIC -shared "$here/consumer/wrapper.c" "${cflags[@]}" "${libs[@]}" -o "$scratch/libwrapper.so"
    exportsOnlyTheWrapper "$scratch/libwrapper.so"
    libs+=("$scratch/libwrapper.so")
    cc -std=c99 "$here/consumer/consumer.c" "${cflags[@]}" "${libs[@]}" -o "$scratch/c99"
    "$scratch/c99"
    for standard in c++17 c++20; do
        c++ -std=$standard "$here/consumer/consumer.cpp" "${cflags[@]}" "${libs[@]}" -o "$scratch/$standard"
        "$scratch/$standard"
    done
}

# The files of an installation below its prefix, with the library directory given; but for the manual.
expectedFiles() {
    printf '%s\n' "$1/libstrlib.a" "$1/pkgconfig/strlib.pc" "$1/cmake/strlib/strlibConfig.cmake" \
        "$1/cmake/strlib/strlibConfig-release.cmake" "$1/cmake/strlib/strlibConfigVersion.cmake"
    (cd "$root/strlib" && printf '%s\n' include/*)
    (cd "$root" && shopt -s nullglob &&
        printf 'share/doc/strlib/%s\n' *.md docs/*.md docs/*.svg examples/porting/*.c)
}

expectedManPages() {
    echo share/man/man3/strlib.3
    nm -g --defined-only "$shared/libstrlib.a" | awk '$3 ~ /^[A-Za-z0-9_]+$/ {print "share/man/man3/" $3 ".3"}'
}

filesBelow() { (cd "$1" && find . -type f -not -path './share/doc/strlib/html/*' -printf '%P\n' | sort); }

sameFiles() {
    local expected
    expected=$({ expectedFiles "lib/$(c++ -print-multiarch)" && expectedManPages; } | sort)
    same "files below $1" "$expected" "$(filesBelow "$1")"
    for page in index group__copying strlib_8h; do
        [[ -s $1/share/doc/strlib/html/$page.html ]] || fail "the manual below $1 has no page $page"
    done
    linksLead "$1/share/doc/strlib"
}

# Every relative link of the documents below a directory leads to a file there.
linksLead() {
    local document link
    while IFS=: read -r document link; do
        [[ -e $(dirname "$document")/$link ]] || fail "$document: the link to $link leads nowhere"
    done < <(grep -roE --include='*.md' '\]\([^):#]+' "$1" | sed 's/](//')
}

copySource() { mkdir -p "$1" && tar -C "$root" --exclude=./build --exclude=./.git -cf - . | tar -C "$1" -xf -; }

# refuses REASON COMMAND...
refuses() {
    ! "${@:2}" 2>"$scratch/refusal" || fail "not refused: ${*:2}"
    grep -q "$1" "$scratch/refusal" || fail "refused for another reason: $(<"$scratch/refusal")"
}

# block LANGUAGE PATTERN: the block of README's in that language of which a line matches.
block() {
    awk -v fence="\`\`\`$1" -v pattern="$2" '
        $0 == "```" && inside { if (text ~ pattern) printf "%s", text; inside = 0 }
        inside { text = text $0 "\n" }
        $0 == fence { inside = 1; text = "" }' "$root/README.md" | grep . || fail "README has no $1 block with $2"
}

# A directory of links to the programs named, to be the whole PATH. CMake looks into the system's own directories as
# well, unless it is told not to.
onlyThesePrograms() {
    local directory=$1 program
    mkdir -p "$directory"
    for program in "${@:2}"; do ln -s "$(command -v "$program")" "$directory/$program"; done
    printf '#!/bin/sh\n[ "$1" = -S ] && set -- "$@" -DCMAKE_FIND_USE_CMAKE_SYSTEM_PATH=OFF\nexec %s "$@"\n' \
        "$(command -v cmake)" >"$directory/cmake"
    chmod +x "$directory/cmake"
}

case $case in
build) buildLibrary "$shared" -DCMAKE_INSTALL_PREFIX=/usr ;;
install)
    cmake --install "$shared" --prefix "$scratch/prefix"
    sameFiles "$scratch/prefix"
    consume -DCMAKE_PREFIX_PATH="$scratch/prefix"
    refuses 'requested version "99"' cmake -S "$here/consumer" -B "$scratch/refused" -DSTRLIB_VERSION=99 \
        -DCMAKE_PREFIX_PATH="$scratch/prefix"
    ;;
moved)
    cmake --install "$shared" --prefix "$scratch/before"
    mv "$scratch/before" "$scratch/after"
    consume -DCMAKE_PREFIX_PATH="$scratch/after"
    consumeByPkgConfig "$scratch/after/lib/$(c++ -print-multiarch)/pkgconfig"
    ;;
subdirectory)
    [[ -f $root/strlib/core/bytes.h ]] || fail "the header that the consumer must not find has another name now"
    consume -DSTRLIB_SOURCE="$root"
    cmake --install "$scratch/consumer" --prefix "$scratch/prefix"
    [[ ! -e $scratch/prefix ]] || fail "the consumer's own installation brings the library's files along"
    ;;
absolute)
    buildLibrary "$scratch/build" -DCMAKE_INSTALL_PREFIX="$scratch/prefix" -DCMAKE_INSTALL_LIBDIR="$scratch/libraries"
    cmake --install "$scratch/build"
    consumeByPkgConfig "$scratch/libraries/pkgconfig"
    consume -DCMAKE_PREFIX_PATH="$scratch/prefix" -Dstrlib_DIR="$scratch/libraries/cmake/strlib"
    ;;
armv7)
    toolchain=$root/cmake/toolchains/armv7.cmake
    buildLibrary "$scratch/build" --toolchain "$toolchain" -DCMAKE_INSTALL_PREFIX="$scratch/prefix"
    cmake --install "$scratch/build"
    consume --toolchain "$toolchain" -DCMAKE_PREFIX_PATH="$scratch/prefix"
    (cd "$scratch/build" && cpack)
    same "architecture" armhf "$(dpkg-deb -f "$scratch"/build/libstrlib-dev_*.deb Architecture)"
    ;;
deb)
    (cd "$shared" && cpack -B "$scratch")
    package=$scratch/libstrlib-dev_${version}_$(dpkg --print-architecture).deb
    same "fields" "libdevel $(dpkg --print-architecture) strlib maintainers <strlib@localhost>" \
        "$(dpkg-deb -W --showformat '${Section} ${Architecture} ${Maintainer}' "$package")"
    dpkg-deb -x "$package" "$scratch/root"
    sameFiles "$scratch/root/usr"
    same "files outside /usr" usr "$(ls "$scratch/root")"
    consumeByPkgConfig "$scratch/root/usr/lib/$(c++ -print-multiarch)/pkgconfig"
    if ((EUID != 0)) || dpkg-query -s libstrlib-dev &>/dev/null; then
        echo "not installed: that takes root and a system without the package" >&3
        exit
    fi
    installed=yes
    dpkg -i "$package"
    consumeByPkgConfig ""
    same "place of the manual page" /usr/share/man/man3/TQ_sprintf.3 "$(man -w 3 TQ_sprintf)"
    dpkg -P libstrlib-dev
    installed=
    while read -r file; do [[ ! -e /usr/$file ]] || fail "/usr/$file is still there"; done < <(
        expectedFiles "lib/$(c++ -print-multiarch)" && expectedManPages)
    [[ ! -e /usr/share/doc/strlib ]] || fail "/usr/share/doc/strlib is still there"
    ! dpkg-query -s libstrlib-dev &>/dev/null || fail "the package is still known"
    ;;
readme)
    # The commands of README as they stand, with no more programs than it names and those that come with a compiler.
    copySource "$scratch/source"
    cd "$scratch/source"
    mkdir hello
    block cmake find_package >hello/CMakeLists.txt
    block c 'int main' >hello/hello.c
    { echo set -e && block sh 'cmake --install' && block sh 'cmake -S hello'; } >"$scratch/commands"
    bare=(env -i HOME="$scratch" PATH="$scratch/bin")
    onlyThesePrograms "$scratch/bin" ninja c++ cc as ld ar ranlib
    said=$("${bare[@]}" CMAKE_GENERATOR=Ninja /bin/sh "$scratch/commands" 2>&1) || fail "$said"
    rm -r build hello/build "$scratch/strlib" "$scratch/bin"
    onlyThesePrograms "$scratch/bin" make c++ cc as ld ar ranlib
    said=$("${bare[@]}" /bin/sh "$scratch/commands" 2>&1) || fail "$said"
    same "what hello prints" "$(sed -n 's|.*; *// ||p' hello/hello.c)" "$(tail -1 <<<"$said")"
    same "lines about the manual" 1 "$(grep -c 'Without Doxygen' <<<"$said")"
    same "files installed" "$(expectedFiles lib | sort)" "$(filesBelow "$scratch/strlib")"
    linksLead "$scratch/strlib/share/doc/strlib"
    export PKG_CONFIG_PATH=$scratch/strlib/lib/pkgconfig
    (cd hello && sh -c "$(grep -oE 'cc hello.c [^`]+' "$root/README.md")")
    same "what hello prints, built with pkg-config" "$(tail -1 <<<"$said")" "$(hello/a.out)"
    block cpp strlib.hpp >hello/hello.cpp
    read -ra flags < <(pkg-config --cflags --libs strlib)
    c++ -std=c++20 hello/hello.cpp "${flags[@]}" -o hello/face
    same "what hello prints, in C++" "42|Lima" "$(hello/face)"
    for slip in 's/%d|%s/%s|%d/' 's/\[64\]/[8]/'; do
        sed "$slip" hello/hello.cpp >hello/refused.cpp
        ! c++ -std=c++20 -fsyntax-only hello/refused.cpp "${flags[@]}" 2>&1 || fail "this compiles: $slip"
    done
    minimum=$(sed -nE 's/^cmake_minimum_required\(VERSION ([0-9]+\.[0-9]+).*/\1/p' CMakeLists.txt)
    # The commands may want a newer one than the build.
    named=$(sed -nE 's/.*CMake ([0-9.]+) or newer.*/\1/p' README.md)
    same "oldest CMake of README and CMakeLists.txt" "$minimum" "$(printf '%s\n' "$minimum" "$named" | sort -V | head -1)"
    cd build/use
    refuses 'The package holds the manual' cpack -G DEB
    ;;
architecture)
    # ARCHITECTURE's tables name every source, private header and routine, each routine with the source that defines it.
    tables=$(sed -nE 's/^\| `(strlib\/[^`]*)` \|(.*)/\1 \2/p' "$root/ARCHITECTURE.md")
    same "files" "$(cd "$root" && printf '%s\n' strlib/*.cpp strlib/core/* strlib/machine/* | sort)" \
        "$(cut -d' ' -f1 <<<"$tables" | sort)"
    same "routines by file" "$(nm -A -g --defined-only "$shared/libstrlib.a" |
        sed -nE 's/.*:([a-z0-9_]+)\.cpp\.o:.* [A-Za-z] ([A-Za-z0-9_]+)$/\1 \2/p' | sort)" \
        "$(sed -nE 's|^strlib/([a-z0-9_]+)\.cpp|\1|p' <<<"$tables" | sed 's/`memset`//' |
            awk '{for (i = 2; i <= NF; ++i) if (split($i, part, "`") > 2) print $1, part[2]}' | sort)"
    ;;
toolchains)
    # Each configures as README lists it; where nothing but the library can be built, that is what the defaults build.
    for toolchain in "$root"/cmake/toolchains/*.cmake; do
        tree=$scratch/$(basename "$toolchain" .cmake)
        if ! cmake -S "$root" -B "$tree" -DSTRLIB_BUILD_TESTS=OFF -DSTRLIB_BUILD_EXAMPLES=OFF \
            --toolchain "$toolchain" 2>"$tree.error"; then
            grep -q 'not found in the PATH' "$tree.error" || fail "$(<"$tree.error")"
            echo "$(basename "$toolchain"): no compiler here" >&3
        elif grep -q '^set(CMAKE_SYSTEM_NAME "Generic")' "$tree"/CMakeFiles/*/CMakeSystem.cmake; then
            cmake -S "$root" -B "$tree.default" --toolchain "$toolchain" -DCMAKE_DISABLE_FIND_PACKAGE_Doxygen=ON
            cmake --build "$tree.default" -j 2
        fi
    done
    ;;
refusals)
    copySource "$scratch/source"
    cd "$scratch/source"
    refuses 'Build elsewhere' cmake .
    bash -ec "$(sed -nE 's/.*Build elsewhere: (.*)/\1/p' "$scratch/refusal" | tr -s ' ') -DSTRLIB_BUILD_TESTS=OFF"
    same "what is left among the sources" "$(ls -A "$root" | grep -vE '^(build|\.git)$')" "$(ls -A | grep -v '^build$')"
    configure "$scratch/shared" -DBUILD_SHARED_LIBS=ON |
        grep 'static only' || fail "a shared library is neither built nor refused"
    ;;
scripts)
    # Apart from the sources nothing can be built, so that a script that does more than to answer fails.
    cp -r "$root/script" "$scratch/script"
    for script in "$scratch"/script/*; do
        [[ $(basename "$script") != demo ]] || continue
        timeout 10 "$script" --help >"$scratch/help" || fail "$(basename "$script") --help"
        [[ -s $scratch/help ]] || fail "$(basename "$script") --help says nothing"
    done
    # What is there need not have come by a package, and without apt-get only what is missing is named.
    mkdir "$scratch/bin"
    for program in c++ cmake; do ln -s /bin/true "$scratch/bin/$program"; done
    for program in bash sed sort paste; do ln -s "$(command -v $program)" "$scratch/bin/$program"; done
    same "a system without Ninja" "bootstrap: missing, and no apt-get here to install it: ninja-build" \
        "$(PATH=$scratch/bin bash "$root/script/bootstrap" demo 2>&1)"
    ln -s /bin/true "$scratch/bin/ninja"
    same "a system that has all" "" "$(PATH=$scratch/bin bash "$root/script/bootstrap" demo 2>&1)"
    ;;
compilers)
    # Those that README names, as far as they are here, with our warnings as errors.
    named=$(sed -nE 's/^\| Compilers \|[^:]*: ([^.]*)\..*/\1/p' "$root/README.md" | sed -E 's/[, ]+(and )?/ /g')
    read -ra words <<<"$named"
    ((${#words[@]} > 0)) || fail "README names no compilers"
    for word in "${words[@]}"; do
        case $word in
            g++) c=gcc cxx=g++ && continue ;;
            clang) c=clang cxx=clang++ && continue ;;
        esac
        if ! command -v "$cxx-$word"; then
            echo "$cxx-$word: not here" >&3
            continue
        fi
        prefix=$scratch/$cxx-$word
        cmake -S "$root" -B "$prefix/build" -G Ninja -DCMAKE_CXX_COMPILER="$cxx-$word" -DSTRLIB_BUILD_TESTS=OFF \
            -DSTRLIB_WERROR=ON -DCMAKE_DISABLE_FIND_PACKAGE_Doxygen=ON
        cmake --build "$prefix/build" -j 2
        "$root/examples/check_gazetteer.sh" "$prefix/build/examples/gazetteer"
        cmake --install "$prefix/build" --prefix "$prefix"
        rm -rf "$scratch/consumer"
        consume -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_C_COMPILER="$c-$word" -DCMAKE_CXX_COMPILER="$cxx-$word"
    done
    ;;
*) fail "no such case" ;;
esac
