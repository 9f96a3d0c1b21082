#!/usr/bin/env bash
# Uses the library as its users get it: check.sh CASE SCRATCH VERSION. The case `build` comes first.
set -euo pipefail

case=$1 shared=$2/build version=$3
here=$(cd "$(dirname "$0")" && pwd)
source=$(cd "$here/../.." && pwd)
scratch=$2/$case
rm -rf "$scratch"
mkdir -p "$scratch"
exec 3>&1 >"$scratch/log"

installed=no
cleanUp() {
    local status=$?
    [[ $installed == no ]] || dpkg -P libstrlib-dev
    ((status == 0)) || cat "$scratch/log" >&3
}
trap cleanUp EXIT

fail() {
    echo "$case: $*" >&2
    exit 1
}

same() {
    [[ $2 == "$3" ]] || fail "$1: expected '$2', found '$3'"
}

buildLibrary() {
    cmake -S "$source" -B "$1" -G Ninja -DSTRLIB_BUILD_TESTS=OFF -DSTRLIB_BUILD_EXAMPLES=OFF "${@:2}"
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

# Every file that belongs to an installation, below its prefix.
expectedFiles() {
    local libraries
    libraries=lib/$(c++ -print-multiarch)
    printf '%s\n' include/strlib{.h,.hpp,_checks.h} "$libraries/libstrlib.a" "$libraries/pkgconfig/strlib.pc" \
        "$libraries/cmake/strlib/strlibConfig.cmake" "$libraries/cmake/strlib/strlibConfig-release.cmake" \
        "$libraries/cmake/strlib/strlibConfigVersion.cmake" share/man/man3/strlib.3
    nm -g --defined-only "$shared/libstrlib.a" | awk '$2 ~ /^[Ti]$/ && $3 !~ /[.]/ {print "share/man/man3/" $3 ".3"}'
}

sameFiles() {
    same "files below $1" "$(expectedFiles | sort)" "$(cd "$1" && find . -type f -printf '%P\n' | sort)"
}

case $case in
build)
    buildLibrary "$shared" -DCMAKE_INSTALL_PREFIX=/usr
    cmake --build "$shared" --target docs
    same "number of routines" 38 "$(nm -g --defined-only "$shared/libstrlib.a" | grep -cE ' [Ti] [^.]*$')"
    ;;
install)
    cmake --install "$shared" --prefix "$scratch/prefix"
    sameFiles "$scratch/prefix"
    consume -DCMAKE_PREFIX_PATH="$scratch/prefix"
    if cmake -S "$here/consumer" -B "$scratch/refused" -DSTRLIB_VERSION=99 -DCMAKE_PREFIX_PATH="$scratch/prefix" \
        2>"$scratch/refusal"; then
        fail "a consumer of version 99 was served"
    fi
    grep -q 'requested version "99"' "$scratch/refusal" || fail "version 99 was refused for another reason"
    ;;
moved)
    cmake --install "$shared" --prefix "$scratch/before"
    mv "$scratch/before" "$scratch/after"
    consume -DCMAKE_PREFIX_PATH="$scratch/after"
    consumeByPkgConfig "$scratch/after/lib/$(c++ -print-multiarch)/pkgconfig"
    ;;
subdirectory)
    [[ -f $source/strlib/core/bytes.h ]] || fail "the header that the consumer must not find has another name now"
    consume -DSTRLIB_SOURCE="$source"
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
    toolchain=$source/cmake/toolchains/armv7.cmake
    buildLibrary "$scratch/build" --toolchain "$toolchain" -DCMAKE_INSTALL_PREFIX="$scratch/prefix"
    cmake --install "$scratch/build"
    consume --toolchain "$toolchain" -DCMAKE_PREFIX_PATH="$scratch/prefix"
    (cd "$scratch/build" && cpack)
    same "architecture" armhf "$(dpkg-deb -f "$scratch"/build/libstrlib-dev_*.deb Architecture)"
    ;;
deb)
    (cd "$shared" && cpack -B "$scratch")
    package=$scratch/libstrlib-dev_${version}_$(dpkg --print-architecture).deb
    same "section" libdevel "$(dpkg-deb -f "$package" Section)"
    same "architecture" "$(dpkg --print-architecture)" "$(dpkg-deb -f "$package" Architecture)"
    same "maintainer" "strlib maintainers <strlib@localhost>" "$(dpkg-deb -f "$package" Maintainer)"
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
    installed=no
    while read -r file; do [[ ! -e /usr/$file ]] || fail "/usr/$file is still there"; done < <(expectedFiles)
    ! dpkg-query -s libstrlib-dev &>/dev/null || fail "the package is still known"
    ;;
*) fail "no such case" ;;
esac
