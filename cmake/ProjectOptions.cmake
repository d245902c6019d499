# What every target of the project compiles and links with.
option(VERDANTH_SANITIZE "Build with the address and undefined-behavior sanitizers" OFF)
option(VERDANTH_FUZZ "Build for libFuzzer, which clang++ brings along" OFF)
# Most of the time of compiling goes into what many sources include. linux-clang goes without, so that no source lives on
# what another includes.
option(VERDANTH_QUICK_BUILD "Compile shared headers once, and test sources eight at a time" ON)

add_library(project_options INTERFACE)
target_include_directories(project_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(project_options INTERFACE -Wall -Wextra -Wpedantic -Werror)

# What a library exports it names; the stand-ins, which play whole system libraries, export all.
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

if(VERDANTH_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()

if(VERDANTH_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

if(WIN32)
    # One file each: the compiler's runtime goes into every binary; and no time stamp, so that the same sources give
    # the same bytes.
    add_link_options(-static -Wl,--no-insert-timestamp)
    set(CMAKE_SHARED_LIBRARY_PREFIX "")
    set(CMAKE_SHARED_MODULE_PREFIX "")
else()
    set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
    # clang++ has the sanitizers' functions in programs alone.
    if(NOT VERDANTH_SANITIZE OR CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        add_link_options(-Wl,-z,defs)
    endif()
endif()
