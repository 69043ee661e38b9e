#pragma once

#include <json/value.h>

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "devicespecific/platform/WideText.h"

namespace DeviceSpecificModule::Platform {
void PrintTo(const WideText& text, std::ostream* out);  // for messages of failed checks
}

namespace DeviceSpecificModule {

using Platform::WideText;

// UTF-8 to a text and back. A null text reads "(null)".
WideText Wide(std::string_view text);
std::string Narrow(const WideText& text);

// The calling thread's code page while it lives; afterwards it is the locale's again, as other tests expect.
class ThreadCodePage {
public:
    explicit ThreadCodePage(std::string_view name);
    ThreadCodePage(const ThreadCodePage&) = delete;
    ThreadCodePage& operator=(const ThreadCodePage&) = delete;
    ~ThreadCodePage();
};

// The cases of a file below Tests/Data: a JSON list that is not empty.
Json::Value ReadCases(const std::string& file);

// The bytes of a file. Throws when it can't be read.
std::string FileText(const std::string& path);

// Whatever of a text matches a pattern, each with what its groups matched behind it. "^" and "$" match at a
// line's ends. Tests read in the sources what they must know of.
using PatternMatch = std::vector<std::string>;
std::vector<PatternMatch> AllMatches(const std::string& text, const std::string& pattern);
// What the first group matched.
std::vector<std::string> Matches(const std::string& text, const std::string& pattern);
bool HasMatch(const std::string& text, const std::string& pattern);
std::string ReplaceMatches(const std::string& text, const std::string& pattern,
                           const std::string& replacement);

}  // namespace DeviceSpecificModule
