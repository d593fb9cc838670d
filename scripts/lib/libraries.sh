# Building static libraries from Debian's source packages, for programs that travel. Sourced by the scripts that build
# them for a platform, behind common.sh and apt.sh, never run. The scripts set `prefix`, where the libraries go,
# `compiler` and `archiver`, `c_flags` and `cmake_options`; `work` is a folder for the time of the build.

# Sections of their own and no tables for exceptions, which never pass through C, let the linker leave out what a program
# does not use.
lean_flags="-ffunction-sections -fdata-sections -fno-unwind-tables -fno-asynchronous-unwind-tables"

# library_key FILE...: tells builds apart by what they are made with.
library_key() {
    {
        cat "$project_directory"/scripts/lib/{apt,libraries}.sh "$project_directory"/cmake/{freetype-modules,mbedtls-config}.h "$@"
        $compiler --version
        debian_codename
    } | sha256sum | cut -c 1-16
}

# fetch_sources PACKAGE...
fetch_sources() {
    say "fetching the sources of $*"
    private_apt deb-src "$work/apt"
    mkdir -p "$work/sources"
    cd "$work/sources"
    quietly "$work/apt-update.log" apt-get "${apt_options[@]}" update
    quietly "$work/apt-source.log" apt-get "${apt_options[@]}" source --download-only "$@"
    for description in *.dsc; do
        local package
        package=$(sed -n 's/^Source: //p' "$description")
        quietly "$work/unpack.log" dpkg-source --no-check -x "$description" "$package"
        printf '%s %s\n' "$package" "$(sed -n 's/^Version: //p' "$description" | head -n 1)"
    done >"$work/versions"
    cd "$work"
}

# compile_archive NAME FOLDER FLAGS FILE...: the archive libNAME.a of a few C files.
compile_archive() {
    local name=$1 folder=$2 flags=$3 file
    shift 3
    mkdir -p "$work/objects/$name"
    for file in "$@"; do
        # shellcheck disable=SC2086 # several flags in one word
        $compiler -O2 $c_flags $flags -I"$folder" -c "$folder/$file" -o "$work/objects/$name/$(basename "$file" .c).o"
    done
    $archiver rcs "$prefix/lib/lib$name.a" "$work/objects/$name"/*.o
}

# build_with_cmake PACKAGE OPTION...
build_with_cmake() {
    local package=$1
    shift
    local folder=$work/build/$package
    quietly "$work/$package-configure.log" cmake -G Ninja -S "$work/sources/$package" -B "$folder" \
        "${cmake_options[@]}" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_INSTALL_PREFIX="$prefix" \
        -DCMAKE_INSTALL_LIBDIR:STRING=lib -DCMAKE_BUILD_TYPE=Release -DCMAKE_C_FLAGS="$c_flags" -DBUILD_SHARED_LIBS=OFF "$@"
    quietly "$work/$package-build.log" cmake --build "$folder" --target install
}

build_compressors() {
    say "compiling zlib, bzip2"
    local folder=$work/sources/zlib
    compile_archive z "$folder" -DZ_HAVE_UNISTD_H $(cd "$folder" && ls ./*.c)
    cp "$folder"/zlib.h "$folder"/zconf.h "$prefix/include/"
    folder=$work/sources/bzip2
    compile_archive bz2 "$folder" "-D_FILE_OFFSET_BITS=64" \
        blocksort.c huffman.c crctable.c randtable.c compress.c decompress.c bzlib.c
    cp "$folder"/bzlib.h "$prefix/include/"
}

# Of the library for TLS only a digest and what reads keys.
build_digests() {
    say "compiling mbedtls"
    local folder=$work/sources/mbedtls
    cp "$project_directory/cmake/mbedtls-config.h" "$folder/include/mbedtls/config.h"
    compile_archive mbedcrypto "$folder/library" "-I$folder/include" \
        sha256.c pem.c base64.c asn1parse.c constant_time.c platform_util.c
    cp -r "$folder/include/mbedtls" "$prefix/include/"
}

# What pictures and letters come from waits for disks: the smaller code.
build_pictures_and_fonts() {
    local small=-DCMAKE_C_FLAGS_RELEASE="-Os -DNDEBUG"
    say "compiling libpng"
    build_with_cmake libpng1.6 "$small" -DPNG_SHARED=OFF -DPNG_TESTS=OFF -DPNG_EXECUTABLES=OFF
    say "compiling libjpeg-turbo"
    build_with_cmake libjpeg-turbo "$small" -DCMAKE_C_FLAGS="$c_flags -DNO_GETENV -DNO_PUTENV" -DENABLE_SHARED=OFF -DWITH_SIMD=OFF -DWITH_TURBOJPEG=OFF
    say "compiling freetype"
    # The list of letters by name serves fonts that know letters by nothing else, which are not taken.
    sed -i '/^#define FT_CONFIG_OPTION_ADOBE_GLYPH_LIST/d' \
        "$work/sources/freetype/include/freetype/config/ftoption.h"
    build_with_cmake freetype "$small" \
        -DCMAKE_C_FLAGS="$c_flags -DFT_CONFIG_MODULES_H='<$project_directory/cmake/freetype-modules.h>'" \
        -DFT_REQUIRE_ZLIB=ON -DFT_REQUIRE_BZIP2=ON -DFT_REQUIRE_PNG=ON \
        -DFT_DISABLE_HARFBUZZ=ON -DFT_DISABLE_BROTLI=ON
}

# ensure_libraries NAME PACKAGE...: fetches the packages and calls build_all, unless the prefix is complete. A lock, since
# several builds may be configured at once; the stamp comes last, so that a broken-off build is done again from the
# start.
ensure_libraries() {
    local name=$1
    shift
    [ ! -f "$prefix/complete" ] || return 0
    mkdir -p "$cache_directory"
    exec 9>"$cache_directory/$name.lock"
    flock 9
    [ ! -f "$prefix/complete" ] || return 0

    rm -rf "$prefix"
    mkdir -p "$prefix/include" "$prefix/lib"
    work=$(mktemp -d "${TMPDIR:-/tmp}/corvanth-libraries.XXXXXX")
    fetch_sources "$@"
    build_all
    cp "$work/versions" "$prefix/versions"
    touch "$prefix/complete"
    rm -rf "$work"
}

# run_library_script NAME PACKAGE... -- ARGUMENT...: what such a script does with its arguments; choose_prefix is its own.
run_library_script() {
    local name=$1 packages=() print_prefix=no
    shift
    while [ "$1" != -- ]; do packages+=("$1") && shift; done
    shift
    for argument in "$@"; do
        case $argument in
        --print-prefix) print_prefix=yes ;;
        --help) usage && exit 0 ;;
        *) refuse_argument "$argument" ;;
        esac
    done
    choose_prefix
    ensure_libraries "$name" "${packages[@]}" >&2
    if [ $print_prefix = yes ]; then
        printf '%s\n' "$prefix"
    else
        say "the libraries stand in $prefix"
        cat "$prefix/versions"
    fi
}
