# What ships. Each folder of it is a component of `cmake --install BUILD --component NAME --prefix FOLDER`:
#   windows   what a Windows user gets, from windows-x64 and, into the same folder, windows-x86
#   linux     what a Linux user gets, from linux
#   octave    the Octave package, from linux
# What is put into one of them is installed where it is made; the target `shipped` builds it all.
add_custom_target(shipped)

# Installs the binary TARGET as it was built, search paths included, without what only a debugger needs. The build id,
# too, would tell of folders and of debug information that is not there.
#
#   ship(TARGET [COMPONENT FOLDER]...)
function(ship target)
    add_dependencies(shipped ${target})
    while(ARGN)
        list(POP_FRONT ARGN component folder)
        install(PROGRAMS $<TARGET_FILE:${target}> DESTINATION ${folder} COMPONENT ${component})
        set(file "\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${folder}/$<TARGET_FILE_NAME:${target}>")
        install(CODE "execute_process(COMMAND ${CMAKE_STRIP} --strip-unneeded --remove-section=.note.gnu.build-id \"${file}\"
                                      COMMAND_ERROR_IS_FATAL ANY)" COMPONENT ${component})
    endwhile()
endfunction()
