# GoogleTest, and how tests are run.
include(GoogleTest)
if(WIN32)
    include(${CMAKE_CURRENT_LIST_DIR}/WindowsTests.cmake)
endif()

function(add_googletest)
    set(INSTALL_GTEST OFF)
    if(WIN32)
        compile_by_clang()
    endif()
    add_subdirectory(/usr/src/googletest googletest EXCLUDE_FROM_ALL SYSTEM)
endfunction()
add_googletest()

# A test program is asked for its tests when they are to be run: with a cross build, building needs no emulator.
set(CMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE PRE_TEST)

# What every program of tests is compiled with: a test is run once, hence no optimization and just the line numbers.
set(test_options -O0 -g1)
if(NOT WIN32)
    list(APPEND test_options -fPIC) # programs, too, so that they can share compiled headers with libraries
endif()
if(VERDANTH_SANITIZE)
    # These checks took a quarter of the time of compiling. What tests compile of ours, functions in headers, is left to
    # the address sanitizer; the sources of ours have them all.
    list(APPEND test_options -fno-sanitize=null,alignment,vptr,object-size)
endif()
target_compile_options(gtest PRIVATE ${test_options})
add_library(test_code INTERFACE)
target_link_libraries(test_code INTERFACE GTest::gtest)
target_compile_options(test_code INTERFACE ${test_options})

# The sources of a directory that calls this are compiled eight at once: half of the time goes into templates of GoogleTest
# and of the standard library that they share. Their unnamed namespaces become one, hence one name can't be two things in a
# program; where it has to be, SKIP_UNITY_BUILD_INCLUSION keeps a source for itself.
macro(compile_in_batches)
    set(CMAKE_UNITY_BUILD ${VERDANTH_QUICK_BUILD})
    if(VERDANTH_QUICK_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL GNU AND NOT WIN32)
        add_compile_options(-Wno-subobject-linkage) # it warns of unnamed namespaces outside of the main file
    endif()
endmacro()

# All targets below a directory.
function(targets_below directory result)
    get_property(targets DIRECTORY ${directory} PROPERTY BUILDSYSTEM_TARGETS)
    get_property(subdirectories DIRECTORY ${directory} PROPERTY SUBDIRECTORIES)
    foreach(subdirectory IN LISTS subdirectories)
        targets_below(${subdirectory} below)
        list(APPEND targets ${below})
    endforeach()
    set(${result} ${targets} PARENT_SCOPE)
endfunction()

# What is test code below a directory shares headers, compiled once as `test_headers`.
function(share_test_headers directory)
    targets_below(${directory} targets)
    foreach(target IN LISTS targets)
        get_target_property(libraries ${target} LINK_LIBRARIES)
        if(NOT target STREQUAL test_headers AND libraries MATCHES "(^|;)test_(code|support)(;|$)")
            target_precompile_headers(${target} REUSE_FROM test_headers)
        endif()
    endforeach()
endfunction()

# The programs of suites see most where sanitizers watch, and the library as it ships under Wine; natively a third run would
# take five minutes of a processor and tell nothing new.
option(VERDANTH_SUITES "Build and run the GoogleTest programs; without, those alone that no other build runs whole" ON)

# Adds the suites of a GoogleTest program to CTest as PREFIX and the suite's name, each run in a process of its own, with
# the test properties that follow; suites whose name matches REGISTRY_SUITES have those of ${ON_REGISTRY}, too. Their cases are
# counted one by one: scripts/run_suite.py. Without VERDANTH_SUITES the program is not built, unless it is here ALWAYS.
function(add_suites target prefix)
    cmake_parse_arguments(suites "ALWAYS" "REGISTRY_SUITES" "" ${ARGN})
    if(NOT VERDANTH_SUITES AND NOT suites_ALWAYS)
        set_target_properties(${target} PROPERTIES EXCLUDE_FROM_ALL ON)
        return()
    endif()
    set(file ${CMAKE_CURRENT_BINARY_DIR}/${prefix}${target}.cmake)
    file(GENERATE OUTPUT ${file} CONTENT
"set(target ${target})
set(prefix ${prefix})
set(program $<TARGET_FILE:${target}>)
set(emulator \"$<TARGET_PROPERTY:${target},CROSSCOMPILING_EMULATOR>\")
set(runner \"${python};${PROJECT_SOURCE_DIR}/scripts/run_suite.py\")
set(cases ${PROJECT_BINARY_DIR}/test-cases)
set(folder ${CMAKE_CURRENT_BINARY_DIR})
set(properties \"${suites_UNPARSED_ARGUMENTS}\")
set(registry_suites \"${suites_REGISTRY_SUITES}\")
set(registry_properties \"${ON_REGISTRY}\")
include(${PROJECT_SOURCE_DIR}/cmake/discover_suites.cmake)
")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${file})
endfunction()

if(WIN32)
    # The test properties of what changes the registry, of which each of the prefixes of scripts/wine.sh has one, or counts
    # on nobody else changing it.
    # They come first, as they take turns and the heap checks take longest: others fill the time beside them.
    set(ON_REGISTRY RESOURCE_LOCK registry COST 20)
    set(ON_SECOND_REGISTRY RESOURCE_LOCK second_registry COST 100 ENVIRONMENT_MODIFICATION VERDANTH_WINE=set:second)
    # Before anything else CTest gets Wine up, which takes longer the first time than a test may.
    configure_file(${PROJECT_SOURCE_DIR}/cmake/wine-up.cmake.in ${PROJECT_BINARY_DIR}/wine-up.cmake @ONLY)
    set_property(DIRECTORY PROPERTY TEST_INCLUDE_FILES ${PROJECT_BINARY_DIR}/wine-up.cmake)
endif()

# Every Windows program called *_tests below a directory runs once more, all of it in one process, with heap checking.
function(add_heap_checks directory)
    targets_below(${directory} targets)
    foreach(target IN LISTS targets)
        get_target_property(type ${target} TYPE)
        if(type STREQUAL EXECUTABLE AND target MATCHES "_tests$")
            get_target_property(arguments ${target} HEAP_CHECK_ARGUMENTS)
            if(NOT arguments)
                set(arguments "")
            endif()
            add_test(NAME HeapCheck.${target}
                     COMMAND ${PROJECT_SOURCE_DIR}/scripts/heap_check.sh $<TARGET_FILE:${target}> ${arguments})
            get_target_property(environment ${target} HEAP_CHECK_ENVIRONMENT)
            if(environment)
                set_tests_properties(HeapCheck.${target} PROPERTIES ENVIRONMENT "${environment}")
            endif()
            set_tests_properties(HeapCheck.${target} PROPERTIES TIMEOUT 900 ${ON_SECOND_REGISTRY})
        endif()
    endforeach()
endfunction()
