# A room is a folder of src/ with the folders below it, by subject. What a platform or a window system has of its own
# lies in folders named after it, of which a build takes those of CORVANTH_PLATFORMS. Files named *Main.cpp start
# programs and stay out of the libraries.

# All folders of that kind.
set(CORVANTH_PLATFORM_FOLDERS posix win32 x11 headless glibc)

# Collects the C++ files below a folder that this platform builds.
function(corvanth_sources output folder)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${folder}/*.cpp")
    foreach(platform IN LISTS CORVANTH_PLATFORM_FOLDERS)
        if(NOT platform IN_LIST CORVANTH_PLATFORMS)
            list(FILTER sources EXCLUDE REGEX "/${platform}/")
        endif()
    endforeach()
    set(${output} ${sources} PARENT_SCOPE)
endfunction()

# What nearly every file includes. Builds without precompiled headers, the native one among them, find the file that
# forgets to.
set(CORVANTH_COMMON_HEADERS <algorithm> <array> <cstdint> <functional> <memory> <string> <string_view> <vector>
    "${CMAKE_SOURCE_DIR}/src/foundation/base/MList.h" "${CMAKE_SOURCE_DIR}/src/foundation/base/MException.h")

# corvanth_precompile_headers(TARGET FIRST header...): compiles the headers for the target FIRST, and lets every other
# target use what was compiled for it.
function(corvanth_precompile_headers target first)
    if(NOT CORVANTH_PRECOMPILED_HEADERS)
        return()
    elseif(target STREQUAL first)
        target_precompile_headers(${target} PRIVATE ${ARGN})
    else()
        target_precompile_headers(${target} REUSE_FROM ${first})
    endif()
endfunction()

# corvanth_add_library(NAME [SMALL] ROOMS room... LIBRARIES library...)
# SMALL: in delivered builds the compiler prefers few bytes to speed. For code that waits for users and disks, not for
# loops over pixels, letters or bytes.
function(corvanth_add_library name)
    cmake_parse_arguments(arg "SMALL" "" "ROOMS;LIBRARIES" ${ARGN})
    set(sources)
    foreach(room IN LISTS arg_ROOMS)
        corvanth_sources(room_sources "${CMAKE_SOURCE_DIR}/src/${room}")
        list(FILTER room_sources EXCLUDE REGEX "Main\\.cpp$")
        list(APPEND sources ${room_sources})
    endforeach()
    if(sources)
        add_library(${name} STATIC ${sources})
        target_link_libraries(${name} PUBLIC ${arg_LIBRARIES} corvanth-options)
        set(first_of_its_kind corvanth-base)
        if(arg_SMALL AND CMAKE_BUILD_TYPE STREQUAL "Release")
            target_compile_options(${name} PRIVATE -Os)
            set(first_of_its_kind corvanth-style)
        endif()
        corvanth_precompile_headers(${name} ${first_of_its_kind} ${CORVANTH_COMMON_HEADERS})
    else()
        add_library(${name} INTERFACE)
        target_link_libraries(${name} INTERFACE ${arg_LIBRARIES} corvanth-options)
    endif()
endfunction()

# corvanth_make_small(room...): the same for some rooms of a library. They do without its precompiled headers, which are
# compiled for speed.
function(corvanth_make_small)
    if(CMAKE_BUILD_TYPE STREQUAL "Release")
        foreach(room IN LISTS ARGN)
            corvanth_sources(sources "${CMAKE_SOURCE_DIR}/src/${room}")
            set_source_files_properties(${sources} PROPERTIES COMPILE_OPTIONS -Os SKIP_PRECOMPILE_HEADERS ON)
        endforeach()
    endif()
endfunction()

# corvanth_add_program(NAME ROOM room LIBRARY library DESCRIPTION text [WINDOWED])
# WINDOWED: on Windows the program has no console of its own.
function(corvanth_add_program name)
    cmake_parse_arguments(arg "WINDOWED" "ROOM;LIBRARY;DESCRIPTION" "" ${ARGN})
    corvanth_sources(sources "${CMAKE_SOURCE_DIR}/src/${arg_ROOM}")
    list(FILTER sources INCLUDE REGEX "Main\\.cpp$")
    if(NOT sources)
        return()
    endif()
    add_executable(${name} ${sources})
    target_link_libraries(${name} PRIVATE ${arg_LIBRARY})
    if(WIN32)
        target_link_options(${name} PRIVATE -municode)
        set_target_properties(${name} PROPERTIES WIN32_EXECUTABLE ${arg_WINDOWED})
        corvanth_add_windows_resources(${name} "${arg_DESCRIPTION}")
    endif()
endfunction()
