# Compiles and links Linux programs with Debian 11's C library, so that they start on every system since then. It comes
# from scripts/linux-sysroot, whose folder is given as CORVANTH_LINUX_PREFIX or else asked for here; empty means the
# machine's own, where there is no other. The libraries that travel inside the programs come from
# scripts/linux-dependencies, whose folder is given as CORVANTH_LINUX_LIBRARIES or else asked for here.

if(NOT DEFINED CORVANTH_LINUX_PREFIX)
    execute_process(
        COMMAND "${CMAKE_CURRENT_LIST_DIR}/../../scripts/linux-sysroot" --print-prefix
        OUTPUT_VARIABLE CORVANTH_LINUX_PREFIX OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE status)
    # Status 3: there is none, as the script has told.
    if(NOT status MATCHES "^[03]$")
        message(FATAL_ERROR "scripts/linux-sysroot failed")
    endif()
endif()
set(CORVANTH_LINUX_PREFIX "${CORVANTH_LINUX_PREFIX}" CACHE PATH "Where the older C library stands")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES CORVANTH_LINUX_PREFIX CORVANTH_LINUX_LIBRARIES)

if(NOT CORVANTH_LINUX_LIBRARIES)
    set(sysroot_option)
    if(CORVANTH_LINUX_PREFIX)
        set(sysroot_option --sysroot "${CORVANTH_LINUX_PREFIX}/sysroot")
    endif()
    execute_process(
        COMMAND "${CMAKE_CURRENT_LIST_DIR}/../../scripts/linux-dependencies" --print-prefix ${sysroot_option}
        OUTPUT_VARIABLE CORVANTH_LINUX_LIBRARIES OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
endif()
set(CORVANTH_LINUX_LIBRARIES "${CORVANTH_LINUX_LIBRARIES}" CACHE PATH "Where the libraries stand that travel")
list(PREPEND CMAKE_PREFIX_PATH "${CORVANTH_LINUX_LIBRARIES}")

if(CORVANTH_LINUX_PREFIX)
    if(NOT EXISTS "${CORVANTH_LINUX_PREFIX}/complete")
        message(FATAL_ERROR "${CORVANTH_LINUX_PREFIX} is gone; configure this build with --fresh")
    endif()
    set(sysroot "${CORVANTH_LINUX_PREFIX}/sysroot")
    execute_process(COMMAND g++ -print-multiarch OUTPUT_VARIABLE multiarch OUTPUT_STRIP_TRAILING_WHITESPACE)
    # Headers of other libraries are the machine's, whose C library stands behind the older one.
    set(CMAKE_CXX_FLAGS_INIT
        "--sysroot=${sysroot} -idirafter /usr/include/${multiarch} -idirafter /usr/include")
    # The C++ library counts on a C library that holds threads. Told so, its headers ask for them plainly, and a program
    # that is not linked with them does not come into being, where it would otherwise do without locks.
    string(APPEND CMAKE_CXX_FLAGS_INIT " -DGTHREAD_USE_WEAK=0")
    # Else the compiler looks for the C library beside its own, first. The machine's shared libraries, which benchmarks
    # are measured against, need a newer C library than the one that is linked here.
    set(CMAKE_EXE_LINKER_FLAGS_INIT
        "-B${sysroot}/usr/lib/${multiarch} -Wl,--as-needed -Wl,--allow-shlib-undefined")
endif()
