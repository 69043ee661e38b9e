# What this platform brings along: its libraries, and how its linker is told what a library exports.

find_package(Threads REQUIRED)
pkg_check_modules(LIBXML2 REQUIRED IMPORTED_TARGET libxml-2.0)
find_package(Cups REQUIRED)
set(platformLibraries PkgConfig::LIBXML2 ${CUPS_LIBRARIES} Threads::Threads)

# Bound while they load: binding a function at its first call would save the registers that move blocks of bytes, and
# so perhaps a piece of a secret, on the stack.
add_link_options(-Wl,--as-needed -Wl,-z,now)

# Lets a library export what the list names, no more. What nothing defines fails here and not at load time.
function(set_exports library list)
    target_link_options(${library} PRIVATE -Wl,--version-script=${list} -Wl,-z,defs)
    set_target_properties(${library} PROPERTIES LINK_DEPENDS ${list})
endfunction()
