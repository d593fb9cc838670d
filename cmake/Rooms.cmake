# A room is a folder of src/: its portable files and, in a folder named after the platform, the files that
# implement the portable headers there. Files named *Main.cpp start programs and stay out of the libraries.

# Collects a room's sources into OUTPUT; the list is empty while the room does not exist.
function(corvanth_room_sources output room)
    file(GLOB sources CONFIGURE_DEPENDS
        "${CMAKE_SOURCE_DIR}/src/${room}/*.cpp"
        "${CMAKE_SOURCE_DIR}/src/${room}/${CORVANTH_PLATFORM}/*.cpp")
    list(FILTER sources EXCLUDE REGEX "Main\\.cpp$")
    set(${output} ${sources} PARENT_SCOPE)
endfunction()

# corvanth_add_library(NAME ROOMS room... LIBRARIES library...)
function(corvanth_add_library name)
    cmake_parse_arguments(arg "" "" "ROOMS;LIBRARIES" ${ARGN})
    set(sources)
    foreach(room IN LISTS arg_ROOMS)
        corvanth_room_sources(room_sources ${room})
        list(APPEND sources ${room_sources})
    endforeach()
    if(sources)
        add_library(${name} STATIC ${sources})
        target_link_libraries(${name} PUBLIC ${arg_LIBRARIES} corvanth-options)
    else()
        add_library(${name} INTERFACE)
        target_link_libraries(${name} INTERFACE ${arg_LIBRARIES} corvanth-options)
    endif()
endfunction()

# corvanth_add_program(NAME ROOM room LIBRARY library DESCRIPTION text [WINDOWED])
# WINDOWED: on Windows the program has no console of its own.
function(corvanth_add_program name)
    cmake_parse_arguments(arg "WINDOWED" "ROOM;LIBRARY;DESCRIPTION" "" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/src/${arg_ROOM}/${CORVANTH_PLATFORM}/*Main.cpp")
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
