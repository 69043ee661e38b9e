#include <dlfcn.h>

#include <stdexcept>

// Loads the library that is named, if one is, the way that a program gets which links it: functions are bound
// as they are called. What a host of the module has anyway, the C++ library, is part of this program too: an
// exception that nobody throws keeps it.
int main(int count, char** arguments) {
    if (count > 2) throw std::invalid_argument("one library");
    return count > 1 && dlopen(arguments[1], RTLD_LAZY) == nullptr ? 1 : 0;
}
