# qt_test_discover(<target> ENVIRONMENT <var=value>... PROPERTIES <name> <value>...)
#
# Registers each test function of a QtTest program as a ctest test of its
# own, "<target>.<function>", as gtest_discover_tests does for GoogleTest:
# after every build of the program its functions are listed (`-functions`)
# into a file ctest reads. A function that skips (QSKIP) shows as skipped in
# ctest instead of "Passed", and the functions of one suite run in parallel.
#
# Run as a script (cmake -P) after a build, it writes that file.

if(CMAKE_SCRIPT_MODE_FILE)
    # Script mode: TEST_EXECUTABLE, TEST_TARGET, CTEST_FILE, PROPERTIES_FILE.
    include("${PROPERTIES_FILE}")
    set(ENV{QT_QPA_PLATFORM} offscreen)
    execute_process(COMMAND "${TEST_EXECUTABLE}" -functions
        OUTPUT_VARIABLE listing RESULT_VARIABLE status ERROR_VARIABLE errors)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "${TEST_EXECUTABLE} -functions failed (${status}): ${errors}")
    endif()
    string(REPLACE "\n" ";" lines "${listing}")
    set(script "")
    foreach(line IN LISTS lines)
        if(line MATCHES "^([A-Za-z_][A-Za-z0-9_]*)\\(\\)$")
            set(function "${CMAKE_MATCH_1}")
            set(name "${TEST_TARGET}.${function}")
            string(APPEND script
                "add_test([==[${name}]==] [==[${TEST_EXECUTABLE}]==] [==[${function}]==])\n"
                "set_tests_properties([==[${name}]==] PROPERTIES\n"
                "  ENVIRONMENT [==[${TEST_ENVIRONMENT}]==]\n"
                "  SKIP_REGULAR_EXPRESSION [==[SKIP   : ]==]\n"
                "  ${TEST_PROPERTIES})\n")
        endif()
    endforeach()
    if(script STREQUAL "")
        message(FATAL_ERROR "${TEST_EXECUTABLE} listed no test function")
    endif()
    file(WRITE "${CTEST_FILE}" "${script}")
    return()
endif()

function(qt_test_discover target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "ENVIRONMENT;PROPERTIES")
    set(ctest_file "${CMAKE_CURRENT_BINARY_DIR}/${target}_tests.cmake")
    set(properties_file "${CMAKE_CURRENT_BINARY_DIR}/${target}_properties.cmake")
    # Bracket arguments keep the environment's semicolons and the
    # properties' words as they are.
    string(REPLACE ";" " " properties "${arg_PROPERTIES}")
    file(WRITE "${properties_file}"
        "set(TEST_ENVIRONMENT [==[${arg_ENVIRONMENT}]==])\n"
        "set(TEST_PROPERTIES [==[${properties}]==])\n")
    add_custom_command(TARGET ${target} POST_BUILD
        COMMAND "${CMAKE_COMMAND}"
            -D "TEST_EXECUTABLE=$<TARGET_FILE:${target}>"
            -D "TEST_TARGET=${target}"
            -D "CTEST_FILE=${ctest_file}"
            -D "PROPERTIES_FILE=${properties_file}"
            -P "${CMAKE_CURRENT_FUNCTION_LIST_FILE}"
        BYPRODUCTS "${ctest_file}"
        VERBATIM)
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${ctest_file}")
endfunction()
