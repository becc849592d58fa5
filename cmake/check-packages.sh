#!/usr/bin/env bash
# Proves that a list of Debian packages is enough to make a build directory again on a
# machine that has only Debian's base system and git.
#
#   cmake/check-packages.sh BUILD_DIR PACKAGE...
#
# It reads what the build used, with no tracing and no rebuild:
#   - the package configuration files that CMake's find_package found (the *_DIR entries
#     of CMakeCache.txt, each naming the folder of a <Name>Config.cmake),
#   - the headers that compiling read (ninja -t deps),
#   - the programs and libraries on the build's command lines (ninja -t commands: every
#     absolute path that names a file, and each -lNAME resolved by the compiler),
#   - the shared libraries that the built programs load (ldd),
# maps every file outside the source and build folders to its package with dpkg -S, and
# fails, naming the package and a file of it, when a package is neither in the list nor
# pulled in by the list's own dependencies (apt-cache depends --recurse, no recommends).
# Packages of the base system (Essential or Priority required) and git count as present.
# The compiler launcher (ccache) is optional: the build uses it only when it is there.
set -euo pipefail
shopt -s extglob

if [ "$#" -lt 2 ] || [ ! -f "$1/CMakeCache.txt" ] || [ ! -f "$1/build.ninja" ]; then
    echo "usage: $0 BUILD_DIR PACKAGE...  (BUILD_DIR: a configured and built Ninja build)" >&2
    exit 2
fi
build=$(realpath "$1")
shift
listed=("$@")
cache=$build/CMakeCache.txt
source_dir=$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "$cache")
cxx=$(sed -n 's/^CMAKE_CXX_COMPILER:FILEPATH=//p' "$cache")
optional_tools='^/usr/(lib/ccache/|bin/ccache$)'
# The project's own folders: its sources, this build, and the prefixes it was pointed at
# (CMAKE_PREFIX_PATH: an install of this project that an example builds against).
own=("$build" "$source_dir")
IFS=';' read -r -a prefixes <<<"$(sed -n 's/^CMAKE_PREFIX_PATH:[A-Z]*=//p' "$cache")"
own+=("${prefixes[@]}")
own_pattern=$(for dir in "${own[@]}"; do [ -n "$dir" ] && printf '%s/\n' "$(realpath -m "$dir")"; done)

# --- the files the build used -------------------------------------------------------
used_files() {
    # Package configuration files: Foo_DIR=/path holds FooConfig.cmake or foo-config.cmake.
    sed -n 's/^\([A-Za-z0-9_.+-]*\)_DIR:PATH=\(\/.*\)$/\1 \2/p' "$cache" |
        while read -r name dir; do
            for file in "$dir/${name}Config.cmake" "$dir/${name,,}-config.cmake"; do
                if [ -f "$file" ]; then echo "$file"; fi
            done
        done
    # Headers read by the compiler, as the compiler reported them.
    (cd "$build" && ninja -t deps) | sed -n 's/^    \(.*\)$/\1/p'
    # The shared libraries that the built programs and libraries load when they run.
    local binary
    find "$build" -path "$build/CMakeFiles" -prune -o -type f -perm -u+x -print |
        while read -r binary; do
            if [ "$(head -c 4 "$binary" | tr -d '\0')" = $'\x7fELF' ]; then
                ldd "$binary" 2>/dev/null | sed -n 's/.* => \(\/[^ ]*\) (.*/\1/p'
            fi
        done
    # Programs and libraries named on command lines; -lNAME as the compiler finds it.
    local token
    (cd "$build" && ninja -t commands) | tr ' \t' '\n\n' | sort -u | while read -r token; do
        case $token in
        /*) if [ -f "$token" ]; then echo "$token"; fi ;;
        -l?*)
            local lib
            lib=$("$cxx" -print-file-name="lib${token#-l}.so")
            [ -f "$lib" ] || lib=$("$cxx" -print-file-name="lib${token#-l}.a")
            if [ -f "$lib" ]; then echo "$lib"; fi
            ;;
        esac
    done
}

mapfile -t files < <(used_files | (cd "$build" && xargs -r realpath -m -s --) | sort -u |
    grep -v -F -f <(echo "$own_pattern") | grep -v "^/tmp/" | grep -Ev "$optional_tools" || true)
if [ "${#files[@]}" -eq 0 ]; then
    echo "package check: $build has recorded no build (run the build first)" >&2
    exit 2
fi

# --- the package of each file ---------------------------------------------------------
# dpkg -S prints "pkg[:arch][, pkg[:arch]]: /path"; with merged /usr a file may be
# registered under /lib, /bin or /sbin, and a link (alternatives) under its target.
declare -A owner
owners_of() { # paths...
    local line pkgs path
    while IFS= read -r line; do
        case $line in diversion\ *) continue ;; esac
        pkgs=${line%%: /*}
        path=/${line#*: /}
        pkgs=${pkgs//,/}
        owner[$path]=${pkgs//:+([a-z0-9])/}
    done < <(dpkg -S "$@" 2>/dev/null || true)
}
owners_of "${files[@]}"
declare -A alias_of
unowned=()
for file in "${files[@]}"; do
    [ -n "${owner[$file]:-}" ] && continue
    for other in "$(readlink -f "$file")" "${file#/usr}"; do
        alias_of[$other]=$file
    done
    unowned+=("$file")
done
if ((${#unowned[@]})); then
    owners_of "${!alias_of[@]}"
    for other in "${!alias_of[@]}"; do
        file=${alias_of[$other]}
        if [ -n "${owner[$other]:-}" ] && [ -z "${owner[$file]:-}" ]; then
            owner[$file]=${owner[$other]}
        fi
    done
fi

# --- what the list brings -------------------------------------------------------------
declare -A present
closure=$(apt-cache depends --recurse --no-recommends --no-suggests --no-conflicts --no-breaks \
    --no-replaces --no-enhances "${listed[@]}" git 2>&1) || {
    echo "package check: apt-cache does not know every package of the list:" >&2
    echo "$closure" | grep -E '^(E|W):' >&2
    exit 1
}
while read -r pkg; do
    pkg=${pkg#<}
    pkg=${pkg%>}
    present[${pkg%%:*}]=1
done < <(echo "$closure" | grep -v '^ ')
while read -r pkg essential priority; do
    if [ "$essential" = yes ] || [ "$priority" = required ]; then present[$pkg]=1; fi
done < <(dpkg-query -W -f='${Package} ${Essential} ${Priority}\n')

# --- verdict ---------------------------------------------------------------------------
declare -A missing_file missing_count
packages_used=()
failed=0
for file in "${files[@]}"; do
    pkgs=${owner[$file]:-}
    if [ -z "$pkgs" ]; then
        echo "package check: $file is used by the build but belongs to no Debian package" >&2
        failed=1
        continue
    fi
    covered=0
    for pkg in $pkgs; do
        packages_used+=("$pkg")
        if [ -n "${present[$pkg]:-}" ]; then covered=1; fi
    done
    if ((!covered)); then
        pkg=${pkgs%% *}
        : "${missing_file[$pkg]:=$file}"
        missing_count[$pkg]=$((${missing_count[$pkg]:-0} + 1))
    fi
done
for pkg in $(printf '%s\n' "${!missing_file[@]}" | sort); do
    more=$((missing_count[$pkg] - 1))
    echo "package check: $pkg is missing from the package list in run (not in it, nor a" \
        "dependency of it): the build used ${missing_file[$pkg]}$( ((more)) && echo " and $more more of its files")" >&2
    failed=1
done
if ((failed)); then
    exit 1
fi
echo "package check: ${#files[@]} files of $(printf '%s\n' "${packages_used[@]}" | sort -u | wc -l)" \
    "Debian packages used by $(basename "$build"), every one brought by the package list"
