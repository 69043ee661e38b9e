#include "Cases.h"

#include <json/reader.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <stdexcept>

#include "devicespecific/platform/CodePages.h"

namespace DeviceSpecificModule::Platform {
void PrintTo(const WideText& text, std::ostream* out) { *out << DeviceSpecificModule::Narrow(text); }
}  // namespace DeviceSpecificModule::Platform

namespace DeviceSpecificModule {

WideText Wide(std::string_view text) {
    WideText wide;
    Platform::ConvertToWide(Platform::CodePage::Utf8, text, wide);
    return wide;
}

std::string Narrow(const WideText& text) {
    std::string narrow;
    Platform::ConvertFromWide(Platform::CodePage::Utf8, text.View(), narrow);
    return text.IsNull() ? "(null)" : narrow;
}

ThreadCodePage::ThreadCodePage(std::string_view name) { Platform::SetThreadCodePage(name); }

ThreadCodePage::~ThreadCodePage() { Platform::SetThreadCodePage(""); }

Json::Value ReadCases(const std::string& file) {
    std::ifstream stream(TEST_DATA_DIR "/" + file);
    Json::Value cases;
    std::string errors;
    if (!Json::parseFromStream(Json::CharReaderBuilder(), stream, &cases, &errors) || !cases.isArray() ||
        cases.empty())
        throw std::runtime_error("no cases in " + file + ": " + errors);
    return cases;
}

std::string FileText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("can't read " + path);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<PatternMatch> AllMatches(const std::string& text, const std::string& pattern) {
    const std::regex expression(pattern, std::regex::multiline);
    std::vector<PatternMatch> found;
    for (std::sregex_iterator each(text.begin(), text.end(), expression), end; each != end; ++each)
        found.emplace_back(each->begin(), each->end());
    return found;
}

std::vector<std::string> Matches(const std::string& text, const std::string& pattern) {
    std::vector<std::string> first;
    for (const PatternMatch& match : AllMatches(text, pattern)) first.push_back(match.at(1));
    return first;
}

bool HasMatch(const std::string& text, const std::string& pattern) {
    return std::regex_search(text, std::regex(pattern, std::regex::multiline));
}

std::string ReplaceMatches(const std::string& text, const std::string& pattern,
                           const std::string& replacement) {
    return std::regex_replace(text, std::regex(pattern), replacement);
}

}  // namespace DeviceSpecificModule
