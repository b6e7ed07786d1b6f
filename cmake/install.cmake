# The package: find_package(ace) gives the target ace::ace, and ace::sim to try a host on.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(ACE_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/ace)

install(TARGETS ace EXPORT ace COMPONENT ace
        FILE_SET HEADERS COMPONENT ace FILE_SET first COMPONENT ace)
# Included as "sim/sim_host.h", in a folder of its own.
set(ACE_SIM_HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ace_sim COMPONENT ace)
install(TARGETS ace_sim EXPORT ace COMPONENT ace
        FILE_SET HEADERS ${ACE_SIM_HEADERS} FILE_SET first ${ACE_SIM_HEADERS})
install(EXPORT ace NAMESPACE ace:: FILE ace-config.cmake DESTINATION ${ACE_PACKAGE_DIR}
        COMPONENT ace)

# Before 1.0 a new minor version may break a host.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ace-config-version.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ace-config-version.cmake DESTINATION ${ACE_PACKAGE_DIR}
        COMPONENT ace)
