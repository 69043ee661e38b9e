#pragma once

#include <cups/cups.h>

namespace DeviceSpecificModule::Platform {

// What is used of the CUPS library, each function under its own name. The library is no dependency that the
// loader sees: it brings a dozen others along and would take longer to load than all else, for what few jobs
// ask.
class Cups {
    void* Find(const char* name);

    void* library_;
    bool complete_;

public:
    // Loads the library, for as long as the process lives.
    Cups();

    bool IsComplete() const { return complete_; }

// NOLINTNEXTLINE(bugprone-macro-parentheses): a name that is declared stands in none.
#define CUPS_FUNCTION(name) decltype(&::name) name = reinterpret_cast<decltype(&::name)>(Find(#name))
    CUPS_FUNCTION(cupsEncryption);
    CUPS_FUNCTION(cupsServer);
    CUPS_FUNCTION(cupsUser);
    CUPS_FUNCTION(httpAssembleURIf);
    CUPS_FUNCTION(httpClearFields);
    CUPS_FUNCTION(httpClose);
    CUPS_FUNCTION(httpConnect2);
    CUPS_FUNCTION(httpEncryption);
    CUPS_FUNCTION(httpGetFd);
    CUPS_FUNCTION(httpGetStatus);
    CUPS_FUNCTION(httpPost);
    CUPS_FUNCTION(httpSetField);
    CUPS_FUNCTION(httpSetLength);
    CUPS_FUNCTION(httpUpdate);
    CUPS_FUNCTION(ippAddInteger);
    CUPS_FUNCTION(ippAddString);
    CUPS_FUNCTION(ippAddStrings);
    CUPS_FUNCTION(ippDelete);
    CUPS_FUNCTION(ippFindAttribute);
    CUPS_FUNCTION(ippGetStatusCode);
    CUPS_FUNCTION(ippGetString);
    CUPS_FUNCTION(ippLength);
    CUPS_FUNCTION(ippNew);
    CUPS_FUNCTION(ippNewRequest);
    CUPS_FUNCTION(ippPort);
    CUPS_FUNCTION(ippRead);
    CUPS_FUNCTION(ippWrite);
#undef CUPS_FUNCTION
};

// The library, loaded by the first call that finds it whole; null while there is none or one of its functions
// is missing. For any thread.
const Cups* FindCups();

}  // namespace DeviceSpecificModule::Platform
