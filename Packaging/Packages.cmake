# Debian's packages of what is installed: "cmake --workflow --preset package" makes them.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR "The device-specific module's authors")
set(CPACK_PACKAGE_CONTACT "The device-specific module's authors <authors@device-vendor.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                                WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE devicespecific)
# So that what Debian itself may once make of this version goes before it.
set(CPACK_DEBIAN_PACKAGE_RELEASE 0vendor1)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})

find_program(GZIP gzip REQUIRED)
set(debianVersion ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
set(runtimePackage libdevicespecific${PROJECT_VERSION_MAJOR})
string(REPLACE ".so." "" cupsPackage ${cupsSoname})

# The first line of a description is the short one.
macro(describe_package component package section depends description)
    list(APPEND CPACK_COMPONENTS_ALL ${component})
    string(TOUPPER ${component} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${package})
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
    set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${depends}")
    set(CPACK_DEBIAN_${upper}_DESCRIPTION "${description}")
    foreach(file changelog.gz changelog.Debian.gz copyright)
        install(FILES ${CMAKE_CURRENT_BINARY_DIR}/debian/${file} DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package}
                COMPONENT ${component} EXCLUDE_FROM_ALL)
    endforeach()
endmacro()

# CUPS is loaded at first need, which no tool sees in the libraries.
describe_package(
    runtime ${runtimePackage} libs "${cupsPackage}"
    "device-specific module of a printer driver
Turns Print Tickets into a job header in Printer Job Language and lines of
device data. Print filters load it as a shared library.")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_SOURCE_DIR}/Packaging/triggers)
describe_package(
    development libdevicespecific-dev libdevel "${runtimePackage} (= ${debianVersion})"
    "device-specific module of a printer driver (development files)
Headers, CMake package and files for pkg-config, for print filters in C++
and C that are built with the module.")
if(BUILD_TICKETHOST)
    describe_package(
        tool tickethost utils "${runtimePackage} (= ${debianVersion})"
        "shows what a printer driver makes of Print Tickets
Converts tickets, jobs and print packages with the device-specific module,
says which setting caused which line of the result, and what in a ticket
counts for nothing.")
    install(CODE "execute_process(COMMAND ${GZIP} -9nf tickethost.1 COMMAND_ERROR_IS_FATAL ANY
                                  WORKING_DIRECTORY \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_MANDIR}/man1\")"
            COMPONENT tool)
endif()

# What Debian wants to find beside the files. The time is SOURCE_DATE_EPOCH's, if that is set.
string(TIMESTAMP now "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(READ LICENSE license)
string(REGEX REPLACE "^.*\n\n(Permission is.*)\n$" "\\1" license "${license}")
string(REPLACE "\n\n" "\n.\n" license "${license}")
string(REPLACE "\n" "\n " license "${license}")
foreach(file changelog.Debian copyright)
    configure_file(Packaging/${file}.in debian/${file} @ONLY)
endforeach()
configure_file(CHANGELOG.md debian/changelog COPYONLY)
foreach(file changelog changelog.Debian)
    execute_process(COMMAND ${GZIP} -9nkf ${CMAKE_CURRENT_BINARY_DIR}/debian/${file} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
include(CPack)
