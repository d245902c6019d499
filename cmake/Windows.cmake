# What Windows binaries carry besides code: type libraries and a version.

find_program(WIDL widl REQUIRED)
find_path(STANDARD_TYPE_LIBRARIES stdole2.tlb REQUIRED NO_CMAKE_FIND_ROOT_PATH
          PATHS /usr/lib/${CMAKE_HOST_SYSTEM_PROCESSOR}-linux-gnu/wine/x86_64-windows /usr/lib/wine/x86_64-windows)

# Makes NAME.tlb from NAME.idl of this folder, in the build folder. BITS is the kind of system the library says it is
# for: 32-bit programs find only a library of theirs in the registry, 64-bit ones find both.
function(add_type_library name bits)
    set(library ${PROJECT_BINARY_DIR}/${name}.tlb)
    # Without a time stamp, so that the same source gives the same bytes.
    add_custom_command(
        OUTPUT ${library}
        COMMAND ${CMAKE_COMMAND} -E env WIDL_TIME_OVERRIDE=0 ${WIDL} -m${bits} -L ${STANDARD_TYPE_LIBRARIES} -t -o
                ${library} ${CMAKE_CURRENT_SOURCE_DIR}/${name}.idl
        DEPENDS ${name}.idl
        VERBATIM)
    add_custom_target(${name}_type_library ALL DEPENDS ${library})
endfunction()

# Puts NAME.tlb into the binary TARGET as its type library.
function(target_type_library target name)
    set(resource ${CMAKE_CURRENT_BINARY_DIR}/${name}_type_library.rc)
    file(CONFIGURE OUTPUT ${resource} CONTENT "1 TYPELIB \"${PROJECT_BINARY_DIR}/${name}.tlb\"\n")
    set_source_files_properties(${resource} PROPERTIES OBJECT_DEPENDS ${PROJECT_BINARY_DIR}/${name}.tlb)
    target_sources(${target} PRIVATE ${resource})
    add_dependencies(${target} ${name}_type_library)
endfunction()

# Gives the binary TARGET a version block with the version of the project.
function(target_version target file_name description)
    string(REPLACE "." "," words ${PROJECT_VERSION})
    get_target_property(type ${target} TYPE)
    set(kind VFT_DLL)
    if(type STREQUAL EXECUTABLE)
        set(kind VFT_APP)
    endif()
    set(resource ${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${resource} @ONLY)
    target_sources(${target} PRIVATE ${resource})
endfunction()
