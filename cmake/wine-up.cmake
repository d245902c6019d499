# Run by CTest before the tests of a Windows build.
execute_process(COMMAND ${CMAKE_CURRENT_LIST_DIR}/../scripts/wine.sh --up RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "Wine could not be started: ${result}")
endif()
