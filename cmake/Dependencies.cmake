# Finds what is linked in. CORVANTH_STATIC_LIBRARIES takes the archives, so that the programs run on machines
# that lack the libraries.

set(ZLIB_USE_STATIC_LIBS ${CORVANTH_STATIC_LIBRARIES})
find_package(ZLIB REQUIRED)

set(shared_suffixes ${CMAKE_FIND_LIBRARY_SUFFIXES})
if(CORVANTH_STATIC_LIBRARIES)
    set(CMAKE_FIND_LIBRARY_SUFFIXES .a)
endif()
find_package(BZip2 REQUIRED)
set(CMAKE_FIND_LIBRARY_SUFFIXES ${shared_suffixes})

find_package(Threads REQUIRED)
find_package(CLI11 REQUIRED)

set(CORVANTH_SYSTEM_LIBRARIES)
if(WIN32)
    set(CORVANTH_SYSTEM_LIBRARIES ole32 shell32 shlwapi advapi32 user32 gdi32 ws2_32 uuid)
endif()
