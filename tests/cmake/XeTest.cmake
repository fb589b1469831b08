# How a test, or any other program that ctest runs, registers itself.

# xe_register_run(<name> [X11] [TIMEOUT <seconds>] [LABELS <label>...] COMMAND <program> [<argument>...])
#   Makes ctest run the command in the surroundings that tests/support/in-test-env gives: an empty home of its own below
#   scratch/ in the build tree, UTF-8, UTC, the offscreen platform, or with X11 a virtual X server and window manager.
function(xe_register_run name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "X11" "TIMEOUT" "COMMAND;LABELS")
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()
    set(platform offscreen)
    if(arg_X11)
        set(platform x11)
    endif()
    add_test(NAME ${name} COMMAND ${PROJECT_SOURCE_DIR}/tests/support/in-test-env
        ${PROJECT_BINARY_DIR}/scratch/${name} ${platform} ${arg_COMMAND})
    set_tests_properties(${name} PROPERTIES
        TIMEOUT ${arg_TIMEOUT} LABELS "${platform};${arg_LABELS}" FAIL_REGULAR_EXPRESSION QWARN)
    if(arg_X11)
        set_tests_properties(${name} PROPERTIES RUN_SERIAL ON)
    endif()
endfunction()

# xe_add_test(<name> SOURCES <file>... [LIBRARIES <target>...] [RESOURCES <qrc file>...]
#             [ENVIRONMENT <NAME=value>...] [X11] [TIMEOUT <seconds>])
#   Builds a QtTest program and registers it under its name.
function(xe_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "X11" "TIMEOUT" "SOURCES;LIBRARIES;RESOURCES;ENVIRONMENT")
    add_executable(${name} ${arg_SOURCES} ${arg_RESOURCES})
    set_target_properties(${name} PROPERTIES AUTORCC ON)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/tests/support)
    target_link_libraries(${name} PRIVATE XeMFCEmu::XeMFCEmu Qt5::Test ${arg_LIBRARIES})
    target_precompile_headers(${name} REUSE_FROM xe_test_pch)

    set(options TIMEOUT ${arg_TIMEOUT})
    if(arg_X11)
        list(APPEND options X11)
    endif()
    xe_register_run(${name} ${options} COMMAND ${arg_ENVIRONMENT} $<TARGET_FILE:${name}>)
endfunction()
