# The package: find_package(ace) gives the target ace::ace.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(ACE_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/ace)

install(TARGETS ace EXPORT ace COMPONENT ace
        FILE_SET HEADERS COMPONENT ace FILE_SET first COMPONENT ace)
install(EXPORT ace NAMESPACE ace:: FILE ace-config.cmake DESTINATION ${ACE_PACKAGE_DIR}
        COMPONENT ace)

# Before 1.0 a new minor version may break a host.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ace-config-version.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ace-config-version.cmake DESTINATION ${ACE_PACKAGE_DIR}
        COMPONENT ace)
