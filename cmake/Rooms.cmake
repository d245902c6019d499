# Makes the targets of the rooms from rooms.txt, the one place that says which room may use which.
set(ROOMS_TABLE ${PROJECT_SOURCE_DIR}/rooms.txt)
set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${ROOMS_TABLE})
file(STRINGS ${ROOMS_TABLE} ROOMS_LINES REGEX "^[^#]")

# The headers of the standard library that most sources include, for rooms that don't see the platform; and those for rooms
# that do.
if(VERDANTH_QUICK_BUILD)
    set(common_headers <algorithm> <cmath> <cstring> <limits> <memory> <span> <string> <string_view> <utility> <vector>)
    add_library(standard_headers OBJECT cmake/headers.cpp)
    target_link_libraries(standard_headers PRIVATE project_options)
    target_precompile_headers(standard_headers PRIVATE ${common_headers})
    add_library(system_headers OBJECT cmake/headers.cpp)
    target_link_libraries(system_headers PRIVATE platform)
    target_precompile_headers(system_headers PRIVATE platform/platform.h ${common_headers})
endif()

# The target of a room: gateway_state for gateway/state.
function(room_target room result)
    string(REPLACE "/" "_" target ${room})
    set(${result} ${target} PARENT_SCOPE)
endfunction()

# The rooms that a room may use, as the table names them.
function(rooms_below room result)
    foreach(line IN LISTS ROOMS_LINES)
        if(line MATCHES "^([^ :]+): *(.*)$" AND CMAKE_MATCH_1 STREQUAL room)
            string(REGEX MATCHALL "[^ ]+" below "${CMAKE_MATCH_2}")
            set(${result} ${below} PARENT_SCOPE)
            return()
        endif()
    endforeach()
    message(FATAL_ERROR "rooms.txt has no line for ${room}")
endfunction()

# add_room(SOURCE...): the folder that calls it is a room, an object library that sees the rooms below it and no others.
# Names its objects for scripts/check_calls.sh.
function(add_room)
    cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE room)
    room_target(${room} target)
    add_library(${target} OBJECT ${ARGN})
    target_link_libraries(${target} PUBLIC project_options)
    rooms_below(${room} below)
    foreach(other IN LISTS below)
        room_target(${other} other_target)
        target_link_libraries(${target} PUBLIC ${other_target})
    endforeach()
    if(VERDANTH_QUICK_BUILD)
        if("platform" IN_LIST below)
            target_precompile_headers(${target} REUSE_FROM system_headers)
        else()
            target_precompile_headers(${target} REUSE_FROM standard_headers)
        endif()
    endif()
    file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/objects/${target}.txt
         CONTENT "${room}\n$<JOIN:$<TARGET_OBJECTS:${target}>,\n>\n")
endfunction()

# Rooms and all that is below them.
function(rooms_and_below result)
    set(waiting ${ARGN})
    set(found "")
    while(waiting)
        list(POP_FRONT waiting room)
        if(room IN_LIST found)
            continue()
        endif()
        list(APPEND found ${room})
        rooms_below(${room} below)
        list(APPEND waiting ${below})
    endwhile()
    set(${result} ${found} PARENT_SCOPE)
endfunction()

# link_rooms(TARGET SCOPE ROOM...): links a target with rooms and with all that is below them. Objects, unlike archives, have to
# be named one by one.
function(link_rooms target scope)
    rooms_and_below(rooms ${ARGN})
    foreach(room IN LISTS rooms)
        room_target(${room} room_library)
        target_link_libraries(${target} ${scope} ${room_library})
        get_target_property(type ${room_library} TYPE)
        if(type STREQUAL OBJECT_LIBRARY AND NOT scope STREQUAL PRIVATE)
            target_link_libraries(${target} ${scope} $<TARGET_OBJECTS:${room_library}>)
        endif()
    endforeach()
endfunction()
