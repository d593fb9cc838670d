# The default look and the faces that travel with the programs: packed from data/ into one blob by the project's own
# setup-builder, and linked in through the library corvanth-resources. The same sources give the same bytes.

# The setup-builder that runs on this machine. A build for another system takes that of the native build beside it, or
# makes one of its own.
set(CORVANTH_HOST_BUILDER "" CACHE FILEPATH "A setup-builder that runs on this machine; empty: the build's own")
set(native_builder "${CMAKE_SOURCE_DIR}/build/linux/setup-builder")
if(CORVANTH_HOST_BUILDER)
    set(host_builder "${CORVANTH_HOST_BUILDER}")
    set(host_builder_file "${host_builder}")
elseif(NOT CMAKE_CROSSCOMPILING)
    set(host_builder $<TARGET_FILE:setup-builder>)
    set(host_builder_file setup-builder)
elseif(EXISTS "${native_builder}")
    set(host_builder "${native_builder}")
    set(host_builder_file "${native_builder}")
else()
    include(ExternalProject)
    set(host_builder "${CMAKE_BINARY_DIR}/host/setup-builder")
    ExternalProject_Add(host-builder
        SOURCE_DIR "${CMAKE_SOURCE_DIR}" BINARY_DIR "${CMAKE_BINARY_DIR}/host" PREFIX "${CMAKE_BINARY_DIR}/host-steps"
        CMAKE_ARGS -D CMAKE_BUILD_TYPE=Release -D BUILD_TESTING=OFF
        BUILD_COMMAND "${CMAKE_COMMAND}" --build <BINARY_DIR> --target setup-builder
        BUILD_BYPRODUCTS "${host_builder}" BUILD_ALWAYS ON INSTALL_COMMAND "" USES_TERMINAL_BUILD ON)
    set(host_builder_file host-builder)
endif()

set(resource_folder "${CMAKE_SOURCE_DIR}/data/style")
set(resource_blob "${CMAKE_BINARY_DIR}/generated/embedded/Resources.mstyle")
set(resource_array "${CMAKE_BINARY_DIR}/generated/embedded/Resources.inc")
file(GLOB_RECURSE resource_files CONFIGURE_DEPENDS "${resource_folder}/pictures/*")
add_custom_command(OUTPUT "${resource_array}"
    BYPRODUCTS "${resource_blob}"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${CMAKE_BINARY_DIR}/generated/embedded"
    COMMAND "${host_builder}" blob "${resource_folder}/pictures" "${resource_folder}/default.xml"
        --output "${resource_blob}"
    COMMAND "${CMAKE_COMMAND}" -D "INPUT=${resource_blob}" -D "OUTPUT=${resource_array}" -D NAME=resources
        -P "${CMAKE_SOURCE_DIR}/cmake/EmbedFile.cmake"
    DEPENDS "${host_builder_file}" "${resource_folder}/default.xml" ${resource_files}
        "${CMAKE_SOURCE_DIR}/cmake/EmbedFile.cmake"
    COMMENT "Packing the default look" VERBATIM)

corvanth_add_library(corvanth-resources ROOMS embedded LIBRARIES corvanth-base)
set_source_files_properties("${CMAKE_SOURCE_DIR}/src/embedded/MProgramBlocks.cpp" PROPERTIES
    OBJECT_DEPENDS "${resource_array}")
