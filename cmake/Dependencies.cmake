# Finds what is linked in. CORVANTH_STATIC_LIBRARIES takes the archives, so that the programs run on machines
# that lack the libraries.

set(ZLIB_USE_STATIC_LIBS ${CORVANTH_STATIC_LIBRARIES})
find_package(ZLIB REQUIRED)

set(shared_suffixes ${CMAKE_FIND_LIBRARY_SUFFIXES})
if(CORVANTH_STATIC_LIBRARIES)
    set(CMAKE_FIND_LIBRARY_SUFFIXES .a)
endif()
find_package(BZip2 REQUIRED)
find_package(PNG REQUIRED)
find_package(JPEG REQUIRED)
if(WIN32)
    # The prefix has its own description, which knows what the archive needs.
    find_package(freetype CONFIG REQUIRED)
else()
    find_package(Freetype REQUIRED)
    find_library(BROTLI_DECODER brotlidec REQUIRED)
    find_library(BROTLI_COMMON brotlicommon REQUIRED)
endif()
set(CMAKE_FIND_LIBRARY_SUFFIXES ${shared_suffixes})

# In the order in which archives need each other.
if(WIN32)
    set(CORVANTH_DRAWING_LIBRARIES freetype PNG::PNG JPEG::JPEG)
else()
    set(CORVANTH_DRAWING_LIBRARIES Freetype::Freetype ${BROTLI_DECODER} ${BROTLI_COMMON} PNG::PNG JPEG::JPEG)
endif()

find_package(Threads REQUIRED)
find_package(CLI11 REQUIRED)

set(CORVANTH_SYSTEM_LIBRARIES ${CMAKE_DL_LIBS})
if(WIN32)
    set(CORVANTH_SYSTEM_LIBRARIES ole32 shell32 shlwapi advapi32 user32 gdi32 ws2_32 uuid)
endif()
