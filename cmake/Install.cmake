# Headers, libraries, the CMake package and the pkg-config file.

include(CMakePackageConfigHelpers)
set(packageDir ${CMAKE_INSTALL_LIBDIR}/cmake/XeMFCEmu)

install(FILES ${publicHeaders} DESTINATION ${XE_INSTALL_INCLUDEDIR})
install(TARGETS XeMFCEmu XeCustomUI EXPORT XeMFCEmuTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT XeMFCEmuTargets NAMESPACE XeMFCEmu:: DESTINATION ${packageDir})

list(JOIN XE_QT_MODULES " " packageQtModules)
configure_package_config_file(cmake/XeMFCEmuConfig.cmake.in ${PROJECT_BINARY_DIR}/XeMFCEmuConfig.cmake
    INSTALL_DESTINATION ${packageDir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/XeMFCEmuConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/XeMFCEmuConfig.cmake ${PROJECT_BINARY_DIR}/XeMFCEmuConfigVersion.cmake
    cmake/XeResourceTables.cmake cmake/XeResourceTables.awk
    DESTINATION ${packageDir})

# The pkg-config file finds its prefix from where it lies, so an installed tree may be moved.
file(RELATIVE_PATH pkgConfigToPrefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" pkgConfigToPrefix ${pkgConfigToPrefix})
list(TRANSFORM XE_QT_MODULES REPLACE "(.+)" "Qt5\\1 >= 5.14" OUTPUT_VARIABLE pkgConfigRequires)
list(JOIN pkgConfigRequires ", " pkgConfigRequires)
configure_file(cmake/XeMFCEmu.pc.in ${PROJECT_BINARY_DIR}/XeMFCEmu.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/XeMFCEmu.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
