# What this platform brings along: its libraries, and how its linker is told what a library exports.

find_package(Threads REQUIRED)
pkg_check_modules(LIBXML2 REQUIRED IMPORTED_TARGET libxml-2.0)
find_package(Cups REQUIRED)
set(platformLibraries PkgConfig::LIBXML2 Threads::Threads ${CMAKE_DL_LIBS})

# CUPS is loaded at first need, by the name that its builders gave it. No tool sees that in what is built here, so the
# description of a package must name it.
execute_process(COMMAND ${CMAKE_READELF} -d ${CUPS_LIBRARIES} OUTPUT_VARIABLE cupsHeader COMMAND_ERROR_IS_FATAL ANY)
if(NOT cupsHeader MATCHES "\\(SONAME\\)[^[]*\\[([^]]+)\\]")
    message(FATAL_ERROR "${CUPS_LIBRARIES} has no SONAME")
endif()
set(cupsSoname ${CMAKE_MATCH_1})
set_source_files_properties(${CMAKE_CURRENT_LIST_DIR}/Cups.cpp PROPERTIES COMPILE_DEFINITIONS
                                                                          CUPS_SONAME="${cupsSoname}")

# Bound while they load: binding a function at its first call would save the registers that move blocks of bytes, and
# so perhaps a piece of a secret, on the stack.
add_link_options(-Wl,--as-needed -Wl,-z,now)

# Lets a library export what the list names, no more. What nothing defines fails here and not at load time.
function(set_exports library list)
    target_link_options(${library} PRIVATE -Wl,--version-script=${list} -Wl,-z,defs)
    set_target_properties(${library} PROPERTIES LINK_DEPENDS ${list})
endfunction()
