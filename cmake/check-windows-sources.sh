#!/usr/bin/env bash
# Compiles the library's Windows-only code on Linux: every source file of the library that
# holds a _WIN32 or Q_OS_WIN branch goes through Debian's mingw-w64 cross compiler with
# -fsyntax-only, so that the Windows branches are parsed and type-checked against Qt's
# headers and the Windows SDK headers of mingw-w64.
#
#   cmake/check-windows-sources.sh BUILD_DIR
#
# Each file gets the flags of its own compile command in BUILD_DIR (ninja -t commands:
# defines, include folders, language standard, warnings, the precompiled header's include
# list as a plain header), minus what only the Linux compiler understands, plus what a Qt
# build for Windows defines (UNICODE, _UNICODE, WIN32, WIN64, _WIN64). The compiler
# itself defines _WIN32, and Qt's headers then define Q_OS_WIN.
#
# Qt's headers here are the Linux build's: its generated qconfig.h and qt*-config.h describe
# a Linux Qt. The only part that names the platform is the mkspec folder
# (qplatformdefs.h), which is swapped for Qt's own win32-g++ one; the feature switches are
# left as they are, since the code checked here tests none that differ between the two
# builds. A Windows-only Qt header that is not shipped on Linux (qt_windows.h is) would
# need a shim folder here.
set -euo pipefail

if [ "$#" -ne 1 ] || [ ! -f "$1/build.ninja" ]; then
    echo "usage: $0 BUILD_DIR  (a configured Ninja build of the library)" >&2
    exit 2
fi
build=$(realpath "$1")
source_dir=$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "$build/CMakeCache.txt")
cxx=x86_64-w64-mingw32-g++-posix
if ! command -v "$cxx" >/dev/null; then
    echo "windows check: $cxx is missing (Debian package g++-mingw-w64-x86-64-posix)" >&2
    exit 1
fi

# The library's sources with Windows branches (tests, examples and tools are not part of
# the library; the build folders are not sources).
mapfile -t sources < <(cd "$source_dir" && grep -rlE --include='*.cpp' \
    '^[[:space:]]*#[[:space:]]*if(def)?[[:space:]].*(_WIN32|Q_OS_WIN)' . |
    sed 's|^\./||' | grep -vE '^(tests|examples|apps|bench|build[^/]*|out)/' | sort)
if [ "${#sources[@]}" -eq 0 ]; then
    echo "windows check: no Windows-only code found below $source_dir" >&2
    exit 1
fi

# The compile command of one source file in this build, as words.
compile_words() { # relative source path
    local object
    object=$(sed -n "s|^build \([^:]*/${1//./\\.}\.o\): .*|\1|p" "$build/build.ninja" | head -1)
    if [ -z "$object" ]; then
        echo "windows check: $1 is not compiled by the build in $build" >&2
        return 1
    fi
    (cd "$build" && ninja -t commands "$object" | tail -1)
}

# One response file of compiler arguments per source, compiled JOBS at a time.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failed=0
for index in "${!sources[@]}"; do
    source=${sources[$index]}
    command=$(compile_words "$source") || {
        failed=1
        continue
    }
    eval "set -- $command"
    flags=()
    while [ "$#" -gt 0 ]; do
        case $1 in
        -D* | -I* | -std=* | -Wall | -Wextra | -Wno-*) flags+=("$1") ;;
        -isystem)
            shift
            flags+=(-isystem "${1/\/mkspecs\/linux-g++/\/mkspecs\/win32-g++}")
            ;;
        -include)
            shift
            # The precompiled header's list of includes, read as a plain header: a Windows
            # build sees windows.h (through QtGui) before any of the library's headers.
            flags+=(-include "$1")
            ;;
        esac
        shift
    done
    printf '%q\n' -fsyntax-only -Werror "${flags[@]}" -DUNICODE -D_UNICODE -DWIN32 -DWIN64 -D_WIN64 \
        "$source_dir/$source" >"$work/$index.rsp"
done
compiler=$(command -v "$cxx")
ls "$work" | sed -n 's/\.rsp$//p' | xargs -r -P "${JOBS:-2}" -I{} \
    sh -c "'$compiler' @'$work/{}.rsp' >'$work/{}.out' 2>&1 || touch '$work/{}.failed'"
for index in "${!sources[@]}"; do
    echo "windows check: ${sources[$index]}"
    cat "$work/$index.out" 2>/dev/null || true
    if [ -e "$work/$index.failed" ]; then failed=1; fi
done
if ((failed)); then
    echo "windows check: the Windows code above does not compile" >&2
    exit 1
fi
echo "windows check: ${#sources[@]} files with Windows-only code compile with $cxx"
