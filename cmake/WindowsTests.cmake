# How what tests Windows binaries is made: by clang++ in a third of g++'s time, with the headers and libraries of g++, and by
# lld. Without optimization each function of a template has sections of its own, and binutils' linker takes the square of
# their number, half a minute for the largest program. What is tested stays g++'s.
find_program(CLANG clang++ REQUIRED)
find_program(LLD ld.lld REQUIRED)

# Where g++ looks for headers, but for those that belong to the compiler itself, and for libraries.
set(gcc_headers ${CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES})
list(FILTER gcc_headers EXCLUDE REGEX "/lib/gcc/[^+]*/include(-fixed)?$")
list(TRANSFORM gcc_headers PREPEND "-isystem ")
list(JOIN gcc_headers " " gcc_headers)
set(gcc_libraries ${CMAKE_CXX_IMPLICIT_LINK_DIRECTORIES})
list(TRANSFORM gcc_libraries REPLACE "(.+)" "-B\\1 -L\\1")
list(JOIN gcc_libraries " " gcc_libraries)

# For the targets of the directory or function that calls this, and of the directories that it adds afterwards.
macro(compile_by_clang)
    set(clang "${CLANG} --target=${CMAKE_CXX_COMPILER_TARGET}")
    # Like g++ for Windows: thread_local by functions of the runtime, and the comparison of types from the library.
    set(CMAKE_CXX_COMPILE_OBJECT
        "${clang} -nostdlibinc ${gcc_headers} -femulated-tls -D__GXX_TYPEINFO_EQUALITY_INLINE=0 <DEFINES> <INCLUDES> <FLAGS> -o <OBJECT> -c <SOURCE>")
    set(link "${clang} -fuse-ld=lld -pthread ${gcc_libraries}")
    set(CMAKE_CXX_LINK_EXECUTABLE "${link} <FLAGS> <CMAKE_CXX_LINK_FLAGS> <LINK_FLAGS> <OBJECTS> -o <TARGET> <LINK_LIBRARIES>")
    set(CMAKE_CXX_CREATE_SHARED_MODULE "${link} <LANGUAGE_COMPILE_FLAGS> <LINK_FLAGS> -shared -o <TARGET> <OBJECTS> <LINK_LIBRARIES>")
    set(CMAKE_CXX_CREATE_SHARED_LIBRARY
        "${link} <LANGUAGE_COMPILE_FLAGS> <LINK_FLAGS> -shared -o <TARGET> -Wl,--out-implib,<TARGET_IMPLIB> <OBJECTS> <LINK_LIBRARIES>")
    # Windows' headers have a calling convention `pascal`, which is a unit to us.
    string(APPEND CMAKE_CXX_FLAGS " -Wno-ignored-attributes")
    set(CMAKE_CXX_COMPILE_OPTIONS_VISIBILITY_INLINES_HIDDEN -fvisibility-inlines-hidden)
    set(CMAKE_CXX_COMPILE_OPTIONS_INSTANTIATE_TEMPLATES_PCH -fpch-instantiate-templates)
    set(CMAKE_CXX_COMPILE_OPTIONS_CREATE_PCH -Xclang -emit-pch -Xclang -include -Xclang <PCH_HEADER> -x c++-header)
    set(CMAKE_CXX_COMPILE_OPTIONS_USE_PCH -Xclang -include-pch -Xclang <PCH_FILE> -Xclang -include -Xclang <PCH_HEADER>)
    set(CMAKE_PCH_EXTENSION .pch)
    set(CMAKE_PCH_PROLOGUE "#pragma clang system_header")
endmacro()
