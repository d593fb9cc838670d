# Finds what is linked in. CORVANTH_STATIC_LIBRARIES takes the archives that scripts/linux-dependencies and
# scripts/windows-dependencies build, so that the programs run on machines that lack the libraries.

set(ZLIB_USE_STATIC_LIBS ${CORVANTH_STATIC_LIBRARIES})
find_package(ZLIB REQUIRED)

set(shared_suffixes ${CMAKE_FIND_LIBRARY_SUFFIXES})
if(CORVANTH_STATIC_LIBRARIES)
    set(CMAKE_FIND_LIBRARY_SUFFIXES .a)
endif()
find_package(BZip2 REQUIRED)
find_package(PNG REQUIRED)
find_package(JPEG REQUIRED)
find_library(CORVANTH_DIGEST_LIBRARY mbedcrypto REQUIRED)
find_path(CORVANTH_DIGEST_HEADERS mbedtls/sha256.h REQUIRED)
if(CORVANTH_STATIC_LIBRARIES)
    # Has its own description, which knows what the archive needs.
    find_package(freetype CONFIG REQUIRED)
    set(freetype_library freetype)
else()
    find_package(Freetype REQUIRED)
    set(freetype_library Freetype::Freetype)
endif()
set(CMAKE_FIND_LIBRARY_SUFFIXES ${shared_suffixes})

add_library(corvanth-digests INTERFACE)
target_include_directories(corvanth-digests SYSTEM INTERFACE "${CORVANTH_DIGEST_HEADERS}")
target_link_libraries(corvanth-digests INTERFACE "${CORVANTH_DIGEST_LIBRARY}")

# In the order in which archives need each other.
set(CORVANTH_DRAWING_LIBRARIES ${freetype_library} PNG::PNG JPEG::JPEG)

find_package(Threads REQUIRED)
find_package(CLI11 REQUIRED)

set(CORVANTH_SYSTEM_LIBRARIES ${CMAKE_DL_LIBS})
if(WIN32)
    set(CORVANTH_SYSTEM_LIBRARIES ole32 shell32 shlwapi advapi32 user32 gdi32 ws2_32 uuid)
endif()
