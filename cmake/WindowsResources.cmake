# Version information, manifest and icon of the Windows programs.

if(WIN32)
    enable_language(RC)
endif()

# Gives a target its manifest, version information and icon. Without a manifest that says asInvoker, Windows takes
# every 32-bit program with "setup" in its name for an installer and asks for an administrator.
function(corvanth_add_windows_resources target description)
    if(NOT WIN32)
        return()
    endif()
    set(folder "${CMAKE_BINARY_DIR}/generated/windows/${target}")
    set(CORVANTH_PROGRAM_NAME "${target}")
    set(CORVANTH_PROGRAM_DESCRIPTION "${description}")
    string(REPLACE "." "," CORVANTH_VERSION_NUMBERS "${CORVANTH_VERSION},0")
    configure_file("${CMAKE_SOURCE_DIR}/cmake/windows/Program.manifest.in" "${folder}/Program.manifest" @ONLY)
    configure_file("${CMAKE_SOURCE_DIR}/cmake/windows/Program.rc.in" "${folder}/Program.rc" @ONLY)
    target_sources(${target} PRIVATE "${folder}/Program.rc")
    set_source_files_properties("${folder}/Program.rc" TARGET_DIRECTORY ${target}
        PROPERTIES OBJECT_DEPENDS "${folder}/Program.manifest;${CMAKE_SOURCE_DIR}/data/icons/program.ico" INCLUDE_DIRECTORIES "${folder}")
endfunction()
