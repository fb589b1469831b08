# The resource tables of a program or a plug-in: what LoadString_X, GetObjectNameById and the other lookups of
# <xeresource.h> find for the module that calls them.
#
#   xe_add_resource_tables(<target> IDS <resource.h> STRINGS <file>)
#
# Compiles the tables into an executable, a SHARED or a MODULE library as ":/<module>/<module>IDs" and
# ":/<module>/<module>ST". <module> is the target's file name up to its first ".", PREFIX and OUTPUT_NAME included. The
# tables are made by the build, anew when a file changes, and a mistake in a file stops it. To be called once for a
# target, in the folder that makes it. The code of the target is compiled so that a call at the end of a function stays
# a call: turned into a jump it would hide the module from the lookup.
#
# IDS is a resource.h as Visual Studio writes it:
#
#   #define IDS_HELLO   101     // decimal or 0x hexadecimal, in parentheses or not
#   #define IDC_STATIC  (-1)    // a negative number stands for its 32-bit unsigned value
#   #define IDC_FIRST   IDC_A   // a name that has been defined before
#
# Comments, names without a value, names that begin with _APS_ and all other directives than #define are passed over. Of
# two names with one number the last is kept, with a warning.
#
# STRINGS has a text a line, in UTF-8, and comment lines:
#
#   // greetings
#   IDS_HELLO  "Hello, \"world\""
#
# A "," or "=" may stand between name and text. In the text "" and \" are a quote, \\ a backslash, \n, \r and \t the
# control characters; everything else stands for itself.
#
# Needs awk. Q_INIT_RESOURCE and Q_CLEANUP_RESOURCE know the tables as <target>_tables.

set(_xe_resource_tables_awk ${CMAKE_CURRENT_LIST_DIR}/XeResourceTables.awk CACHE INTERNAL "")

function(xe_add_resource_tables target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "IDS;STRINGS" "")
    if(NOT arg_IDS OR NOT arg_STRINGS OR arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "The call is xe_add_resource_tables(<target> IDS <resource.h> STRINGS <file>)")
    endif()
    if(NOT TARGET ${target})
        message(FATAL_ERROR "xe_add_resource_tables: there is no target ${target}")
    endif()
    get_target_property(type ${target} TYPE)
    if(NOT type MATCHES "^(EXECUTABLE|SHARED_LIBRARY|MODULE_LIBRARY)$")
        message(FATAL_ERROR "xe_add_resource_tables: ${target} (${type}) is no module at run time. "
            "The tables belong to the program or the plug-in that it is linked into.")
    endif()
    get_filename_component(ids ${arg_IDS} ABSOLUTE)
    get_filename_component(strings ${arg_STRINGS} ABSOLUTE)

    set(folder ${CMAKE_CURRENT_BINARY_DIR}/${target}_tables)
    set(source ${folder}/tables.cpp)
    string(MAKE_C_IDENTIFIER ${target}_tables name)
    file(GENERATE OUTPUT ${folder}/module CONTENT "$<TARGET_FILE_NAME:${target}>\n")
    add_custom_command(OUTPUT ${source}
        COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C awk -f ${_xe_resource_tables_awk} module ${ids} ${strings}
        COMMAND Qt5::rcc --name ${name} --output ${source} tables.qrc
        DEPENDS ${ids} ${strings} ${folder}/module ${_xe_resource_tables_awk}
        WORKING_DIRECTORY ${folder}
        COMMENT "Resource tables of ${target}"
        VERBATIM)
    set_source_files_properties(${source} PROPERTIES SKIP_AUTOGEN ON SKIP_UNITY_BUILD_INCLUSION ON)
    target_sources(${target} PRIVATE ${source})
    target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:C,CXX>:-fno-optimize-sibling-calls>)
endfunction()
