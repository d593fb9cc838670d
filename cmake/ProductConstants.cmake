# The maker's own names and addresses, written into foundation/MProductConstants.h of the build folder.

set(CORVANTH_MAKER "Corvanth" CACHE STRING "Name of the maker, as users see it and as folders are called")
set(CORVANTH_WEB_ADDRESS "https://www.corvanth.example" CACHE STRING "The maker's web site")
set(CORVANTH_SUPPORT_ADDRESS "support@corvanth.example" CACHE STRING "Where users turn to for help")
set(CORVANTH_UPDATE_HOST "update.corvanth.example" CACHE STRING "The maker's server of updates")
set(CORVANTH_NOTE_FACTOR 7919 CACHE STRING "The number that the form for notes on the web site knows (docs/notes.md)")
set(CORVANTH_VERSION "${PROJECT_VERSION}" CACHE STRING "Version of the programs, three numbers")

configure_file("${CMAKE_SOURCE_DIR}/cmake/MProductConstants.h.in"
    "${CMAKE_BINARY_DIR}/generated/foundation/MProductConstants.h" @ONLY)
