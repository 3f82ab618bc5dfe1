# What users of an installed Kerfline find beside the program, and the Debian package.
include(CMakePackageConfigHelpers)

set(config_folder ${CMAKE_INSTALL_DATADIR}/cmake/Kerfline)
configure_package_config_file(cmake/KerflineConfig.cmake.in KerflineConfig.cmake
    INSTALL_DESTINATION ${config_folder}
    PATH_VARS CMAKE_INSTALL_BINDIR
    NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(KerflineConfigVersion.cmake COMPATIBILITY SameMajorVersion ARCH_INDEPENDENT)
install(FILES
    ${CMAKE_CURRENT_BINARY_DIR}/KerflineConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/KerflineConfigVersion.cmake
    cmake/KerflineCheck.cmake
    DESTINATION ${config_folder})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kerfline)
set(CPACK_PACKAGE_VENDOR Kerfline)
set(CPACK_PACKAGE_CONTACT "Kerfline maintainers <maintainers@kerfline.invalid>")
# It stands at the head of both packages.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "formatter for C and C++ that changes only what you told it to")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The program must not drag in what its windows need, so what is installed as the component "window"
# becomes a package of its own.
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_NAME kerfline)
set(CPACK_DEBIAN_UNSPECIFIED_DESCRIPTION
    "Kerfline copies C and C++ source and replaces white space only at the\nplaces that a scheme of options speaks of. Comments, directives and\ndisabled code always survive. Several schemes, such as K&R, Allman\nand GNU, come with it.")
set(CPACK_DEBIAN_WINDOW_PACKAGE_NAME kerfline-options)
set(CPACK_DEBIAN_WINDOW_PACKAGE_DEPENDS "kerfline (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_WINDOW_DESCRIPTION
    "Windows to edit the options and schemes of kerfline: every option with its\nexplanation, and a preview that follows each change.")
# The prefix of a package is not that of a program built by hand.
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
include(CPack)
