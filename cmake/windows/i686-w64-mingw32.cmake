# Cross-compiles for 32-bit Windows with mingw-w64's gcc, whose threads are POSIX threads, into programs that
# need no library but the system's own. The libraries come from scripts/windows-dependencies, whose prefix is
# given as CORVANTH_WINDOWS_PREFIX or else asked for here.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86)

set(CMAKE_C_COMPILER i686-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER i686-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER i686-w64-mingw32-windres)
set(CMAKE_AR i686-w64-mingw32-gcc-ar-posix CACHE FILEPATH "")
set(CMAKE_RANLIB i686-w64-mingw32-gcc-ranlib-posix CACHE FILEPATH "")

# SSE arithmetic gives the same floating point results as on the 64-bit platform.
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse")
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")

if(NOT CORVANTH_WINDOWS_PREFIX)
    execute_process(
        COMMAND "${CMAKE_CURRENT_LIST_DIR}/../../scripts/windows-dependencies" --print-prefix
        OUTPUT_VARIABLE CORVANTH_WINDOWS_PREFIX OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
endif()
set(CORVANTH_WINDOWS_PREFIX "${CORVANTH_WINDOWS_PREFIX}" CACHE PATH "Where the Windows libraries stand")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES CORVANTH_WINDOWS_PREFIX)

set(CMAKE_FIND_ROOT_PATH "${CORVANTH_WINDOWS_PREFIX}" /usr/i686-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
