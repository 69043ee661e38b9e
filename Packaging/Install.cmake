# What is installed of the libraries, in two parts as packages have them: what runs, and what hosts are built with.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(libraries devicespecificplatform devicespecific devicespecificc)
set(packageFolder ${CMAKE_INSTALL_LIBDIR}/cmake/DeviceSpecificModule)
set(pkgConfigFolder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(
    TARGETS ${libraries}
    EXPORT DeviceSpecificModule
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
    INCLUDES
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
foreach(library ${libraries})
    search_in_build(${library} $ORIGIN ${CMAKE_INSTALL_LIBDIR} runtime)
endforeach()
install(DIRECTORY Include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)

install(
    EXPORT DeviceSpecificModule
    NAMESPACE DeviceSpecificModule::
    FILE DeviceSpecificModuleTargets.cmake
    DESTINATION ${packageFolder}
    COMPONENT development)
configure_package_config_file(Packaging/DeviceSpecificModuleConfig.cmake.in DeviceSpecificModuleConfig.cmake
                              INSTALL_DESTINATION ${packageFolder})
write_basic_package_version_file(DeviceSpecificModuleConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/DeviceSpecificModuleConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/DeviceSpecificModuleConfigVersion.cmake
        DESTINATION ${packageFolder}
        COMPONENT development)

# The files for pkg-config find what they name from where they lie, so that a prefix may be moved.
set(prefix ${CMAKE_INSTALL_PREFIX})
file(RELATIVE_PATH prefixFromPkgConfig ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${prefix})
file(RELATIVE_PATH librariesFromPrefix ${prefix} ${CMAKE_INSTALL_FULL_LIBDIR})
file(RELATIVE_PATH includesFromPrefix ${prefix} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
string(REGEX REPLACE "/$" "" prefixFromPkgConfig ${prefixFromPkgConfig})
foreach(name devicespecific devicespecificc)
    configure_file(Packaging/${name}.pc.in ${name}.pc @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc DESTINATION ${pkgConfigFolder} COMPONENT development)
endforeach()
