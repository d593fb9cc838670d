# What a build can choose, and the flags that every target of the project shares through corvanth-options.

option(BUILD_TESTING "Build the tests" ON)
option(CORVANTH_STATIC_LIBRARIES "Link the third-party and runtime libraries into the programs" OFF)
option(CORVANTH_SANITIZE "Build with address, leak and undefined behaviour sanitizers" OFF)
option(CORVANTH_SANITIZE_THREADS "Build with the thread sanitizer" OFF)
option(CORVANTH_BENCHMARKS "Build the benchmarks in bench/" OFF)
option(CORVANTH_FUZZERS "Build the fuzz targets in fuzz/; needs clang" OFF)
option(CORVANTH_COMPILER_CACHE "Compile through ccache where it is installed" ON)
option(CORVANTH_PRECOMPILED_HEADERS "Read the headers that nearly every file includes once" OFF)
set(CORVANTH_EXAMPLE_PLUGINS "$ENV{HOME}/.cache/corvanth-setup/example-plugins" CACHE PATH
    "Folder with the plug-ins of the example product; scripts/lib/fetch-example-plugins fills it")
set(CORVANTH_TEST_IMAGES "$ENV{HOME}/.cache/corvanth-setup/test-images" CACHE PATH
    "Folder with pictures that other decoders are tested with; scripts/lib/fetch-test-images fills it")

# The folders whose files implement the portable headers of a room.
if(WIN32)
    set(CORVANTH_PLATFORMS win32 headless)
else()
    set(CORVANTH_PLATFORMS posix x11 headless)
endif()

if(CORVANTH_COMPILER_CACHE)
    find_program(CORVANTH_CCACHE ccache)
    if(CORVANTH_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
        # Without paths and times of its own, a build shares what another checkout has compiled.
        set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}" CCACHE_NOHASHDIR=1
            "CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime" "${CORVANTH_CCACHE}")
    endif()
endif()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}")

add_library(corvanth-options INTERFACE)
target_include_directories(corvanth-options INTERFACE
    "${CMAKE_SOURCE_DIR}/src" "${CMAKE_BINARY_DIR}/generated")
# Constructors name their arguments after the members that they fill. gcc's -Wshadow refuses that, clang's does
# not, so clang also finds the other locals that hide a member.
target_compile_options(corvanth-options INTERFACE -Wall -Wextra -Wpedantic -Werror
    $<IF:$<CXX_COMPILER_ID:GNU>,-Wshadow=local,-Wshadow>)
target_compile_definitions(corvanth-options INTERFACE _FILE_OFFSET_BITS=64)

if(WIN32)
    target_compile_definitions(corvanth-options INTERFACE
        UNICODE _UNICODE _WIN32_WINNT=0x0601 WINVER=0x0601)
    # Without time stamps two builds of the same sources are equal byte for byte.
    # Programs that say they are older than Windows 7 get borders and metrics of that time.
    target_link_options(corvanth-options INTERFACE
        LINKER:--major-subsystem-version,6 LINKER:--minor-subsystem-version,1
        LINKER:--no-insert-timestamp LINKER:--large-address-aware LINKER:--dynamicbase LINKER:--nxcompat)
elseif(CORVANTH_STATIC_LIBRARIES)
    target_link_options(corvanth-options INTERFACE -static-libstdc++ -static-libgcc)
endif()

# Of a file only what the program uses gets into it: less than half of the bytes.
if(CMAKE_BUILD_TYPE STREQUAL "Release")
    target_compile_options(corvanth-options INTERFACE -ffunction-sections -fdata-sections)
    target_link_options(corvanth-options INTERFACE -s LINKER:--gc-sections)
endif()

if(CORVANTH_SANITIZE)
    set(sanitizer_flags -fsanitize=address,undefined -fno-sanitize-recover=all)
    if(CORVANTH_FUZZERS)
        list(APPEND sanitizer_flags -fsanitize=fuzzer-no-link)
    endif()
    target_compile_options(corvanth-options INTERFACE -O1 -g1 -fno-omit-frame-pointer ${sanitizer_flags})
    target_link_options(corvanth-options INTERFACE ${sanitizer_flags})
endif()

if(CORVANTH_SANITIZE_THREADS)
    target_compile_options(corvanth-options INTERFACE -O1 -g1 -fno-omit-frame-pointer -fsanitize=thread)
    target_link_options(corvanth-options INTERFACE -fsanitize=thread)
endif()

# The instrumentation hides from gcc's flow analysis what has been written and how far, so these warnings cry wolf.
if((CORVANTH_SANITIZE OR CORVANTH_SANITIZE_THREADS) AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(corvanth-options INTERFACE
        -Wno-maybe-uninitialized -Wno-array-bounds -Wno-stringop-overflow)
endif()
