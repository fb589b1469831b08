# How tests, and any other program that ctest runs, register themselves.

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
        set_tests_properties(${name} PROPERTIES RESOURCE_LOCK screen)
    endif()
endfunction()

# xe_test_needs(<class>... [X11] [TIMEOUT <seconds>] [ENVIRONMENT <NAME=value>...])
#   What the test classes, named as their files are, run with. To be said ahead of their program.
function(xe_test_needs)
    cmake_parse_arguments(PARSE_ARGV 0 arg "X11" "TIMEOUT" "ENVIRONMENT")
    foreach(class IN LISTS arg_UNPARSED_ARGUMENTS)
        set(options TIMEOUT "${arg_TIMEOUT}")
        if(arg_X11)
            list(APPEND options X11)
        endif()
        set_property(DIRECTORY PROPERTY xe_options_${class} ${options})
        set_property(DIRECTORY PROPERTY xe_environment_${class} "${arg_ENVIRONMENT}")
    endforeach()
endfunction()

# xe_add_test_program(<name> [TESTS <file>...] [SOURCES <file>...] [LIBRARIES <target>...])
#   Builds a program of test classes, each in a file tst_<class>.cpp, and registers each class for a run of its own.
#   Without TESTS it takes all such files in the folders below this one that no program has taken before.
#   SOURCES are what the tests need beside them, Qt resources too; a header there has classes with meta-objects.
function(xe_add_test_program name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "TESTS;SOURCES;LIBRARIES")
    if(NOT arg_TESTS)
        file(GLOB arg_TESTS CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} */tst_*.cpp)
        get_property(taken DIRECTORY PROPERTY xe_taken)
        list(REMOVE_ITEM arg_TESTS "" ${taken})
    endif()
    set_property(DIRECTORY APPEND PROPERTY xe_taken ${arg_TESTS})

    set(resources ${arg_SOURCES})
    list(FILTER resources INCLUDE REGEX "\\.qrc$")
    qt5_add_resources(arg_SOURCES ${resources})
    add_executable(${name} ${arg_TESTS} ${arg_SOURCES} $<TARGET_OBJECTS:xe_test_main>)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE xe_test_code ${arg_LIBRARIES})
    target_precompile_headers(${name} REUSE_FROM xe_test_main)
    xe_compile_subjects_as_one(${name} ${arg_TESTS})
    set(headers ${arg_SOURCES})
    list(FILTER headers INCLUDE REGEX "\\.h$")
    xe_make_meta_objects(${name} ${arg_TESTS} ${headers})
    foreach(file IN LISTS arg_TESTS)
        xe_register_test_class(${file} ${name})
    endforeach()
endfunction()

# Test classes of a subject, which is a folder, are compiled as one file: most of the time that a short file takes is
# that of the headers it includes. Files of a subject therefore share their unnamed namespaces, too.
function(xe_compile_subjects_as_one target)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ${XE_SUBJECTS_AS_ONE} UNITY_BUILD_MODE GROUP)
    target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
    foreach(file IN LISTS ARGN)
        get_filename_component(subject ${file} DIRECTORY)
        set_property(SOURCE ${file} PROPERTY UNITY_GROUP ${subject})
    endforeach()
endfunction()

# xe_add_lone_test(<file> [SOURCES <file>...] [LIBRARIES <target>...])
#   The same for one class that needs a program to itself, say because it replaces a function of the whole process.
function(xe_add_lone_test file)
    get_filename_component(class ${file} NAME_WE)
    string(REPLACE tst_ test_ program ${class})
    xe_add_test_program(${program} TESTS ${file} ${ARGN})
endfunction()

# The meta-objects of foo.cpp or foo.h are the file foo.moc, which a source includes. A moc that sees no include folder
# reads the one file only, and is done at once.
function(xe_make_meta_objects target)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/${target}_moc)
    target_include_directories(${target} PRIVATE ${folder})
    foreach(file IN LISTS ARGN)
        get_filename_component(stem ${file} NAME_WE)
        qt5_generate_moc(${file} ${folder}/${stem}.moc)
        target_sources(${target} PRIVATE ${folder}/${stem}.moc)
    endforeach()
endfunction()

function(xe_register_test_class file program)
    get_filename_component(class ${file} NAME_WE)
    get_property(options DIRECTORY PROPERTY xe_options_${class})
    get_property(environment DIRECTORY PROPERTY xe_environment_${class})
    xe_register_run(${class} ${options} COMMAND ${environment} $<TARGET_FILE:${program}> ${class})
endfunction()
