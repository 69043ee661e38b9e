# What this platform brings along: its libraries, how its compiler and linker guard what they build, and how the linker
# is told what a library exports.

include(CheckCXXCompilerFlag)
include(CheckPIESupported)

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

# Against attackers: what is bound is then read-only, the stack holds no code, programs load anywhere too, frames that
# were overrun end the process, and formats are constants.
check_pie_supported()
add_link_options(-Wl,-z,relro -Wl,-z,noexecstack)
add_compile_options(-fstack-protector-strong -Wformat -Werror=format-security)

# Only some processors follow calls and jumps. The linker marks an object for shadow stacks itself, because the C
# library's start files, which are fit for them, don't say so everywhere.
check_cxx_compiler_flag(-fcf-protection=full FOLLOWS_CALLS)
if(FOLLOWS_CALLS)
    add_compile_options(-fcf-protection=full)
    add_link_options(-Wl,-z,shstk)
endif()

# The C library checks sizes in optimised code alone, and hides calls from sanitizers by that.
if(allFlags MATCHES "-O[1-3gsf]" AND NOT SANITIZED)
    add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
endif()

# Lets a library export what the list names, no more. What nothing defines fails here and not at load time, but what
# sanitizers and fuzzers bring, which clang puts into executables alone.
function(set_exports library list)
    target_link_options(${library} PRIVATE -Wl,--version-script=${list})
    if(NOT BUILD_FUZZERS AND NOT SANITIZED)
        target_link_options(${library} PRIVATE -Wl,-z,defs)
    endif()
    set_target_properties(${library} PROPERTIES LINK_DEPENDS ${list})
endfunction()

# Where a built object seeks the libraries that were built with it. Once it is installed in a folder it seeks where the
# system does. CMake's own way to that ends the path in the build with an empty place, which the loader takes for the
# folder that the user is in.
function(search_in_build target path folder component)
    set_target_properties(${target} PROPERTIES BUILD_WITH_INSTALL_RPATH ON INSTALL_RPATH ${path})
    install(CODE "set(file \"${folder}/$<TARGET_FILE_NAME:${target}>\")
                  cmake_path(ABSOLUTE_PATH file BASE_DIRECTORY \"\${CMAKE_INSTALL_PREFIX}\")
                  file(RPATH_REMOVE FILE \"\$ENV{DESTDIR}\${file}\")"
            COMPONENT ${component})
endfunction()
