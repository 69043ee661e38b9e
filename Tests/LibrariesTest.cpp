#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>

#include "Support.h"

// The libraries as hosts meet them: what each offers, and under which version.

namespace DeviceSpecificModule {
namespace {

using Names = std::set<std::string>;

// What a library exports, each with its version behind "@@"; C++ names as one reads them. The version has a
// symbol of its own, which counts for nothing.
Names ExportsOf(const std::string& library) {
    const std::string listing = OutputOf("nm -DC --defined-only '" + library + "'");
    const std::regex line(R"(^\w+ ([^A]) (.*)$)", std::regex::multiline);
    Names names;
    for (std::sregex_iterator each(listing.begin(), listing.end(), line), end; each != end; ++each)
        names.insert((*each)[2]);
    return names;
}

// What a header declares so that an expression's first group names it, with the version that it must have.
Names DeclaredIn(const std::string& file, const std::string& expression) {
    std::ifstream header(file);
    const std::string text(std::istreambuf_iterator<char>(header), {});
    const std::regex declaration(expression, std::regex::multiline);
    Names names;
    for (std::sregex_iterator each(text.begin(), text.end(), declaration), end; each != end; ++each)
        names.insert((*each)[1].str() + "@@DEVICESPECIFIC_0");
    return names;
}

TEST(Libraries, ModuleExportsItsFunctionsAlone) {
    Names expected;
    for (const char* name :
         {"ProcessDrvPT", "CreatePTConverterClassPointer", "DestroyPTConverterClassPointer",
          "GetSizeOfPageMediaSize", "GetPageMediaSize", "GetSizeOfPageMediaType", "GetPageMediaType",
          "GetSizeOfPageInputBin", "GetPageInputBin", "GetSizeOfSimplexPageMode", "GetSimplexPageMode",
          "GetSizeOfDuplexPageMode", "GetDuplexPageMode"})
        expected.insert(name + std::string("@@DEVICESPECIFIC_0"));
    EXPECT_EQ(ExportsOf(MODULE_FILE), expected);
}

TEST(Libraries, CInterfaceExportsWhatItsHeaderDeclares) {
    const Names declared = DeclaredIn(C_HEADER_FILE, R"(^(?:DsmStatus|size_t|void) (Dsm\w+)\()");
    EXPECT_EQ(declared.size(), 15u);
    EXPECT_EQ(ExportsOf(C_INTERFACE_FILE), declared);
}

// Not what the compiler makes of the standard library, which would stand in for a host's own.
TEST(Libraries, PlatformExportsItsOwnNamesAlone) {
    const Names exported = ExportsOf(PLATFORM_FILE);
    const std::regex own(
        "((typeinfo|typeinfo name|vtable) for )?DeviceSpecificModule::Platform::.*"
        "@@DEVICESPECIFIC_0");
    for (const std::string& name : exported) EXPECT_TRUE(std::regex_match(name, own)) << name;
    const char* const caught = "typeinfo for DeviceSpecificModule::Platform::ResultError@@DEVICESPECIFIC_0";
    EXPECT_TRUE(exported.contains(caught) && exported.size() > 50);
}

}  // namespace
}  // namespace DeviceSpecificModule
