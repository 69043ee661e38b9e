#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "Support.h"

// The libraries as hosts meet them: what each offers, and under which version.

namespace DeviceSpecificModule {
namespace {

using Names = std::set<std::string>;

// What a library exports, each with its version behind "@@"; C++ names as one reads them. The version has a
// symbol of its own, which counts for nothing.
Names ExportsOf(const std::string& library) {
    const std::string listing = OutputOf("nm -DC --defined-only '" + library + "'");
    const std::vector<std::string> names = Matches(listing, R"(^\w+ [^A] (.*)$)");
    return {names.begin(), names.end()};
}

// What a header declares so that an expression's first group names it, with the version that it must have.
Names DeclaredIn(const std::string& file, const std::string& expression) {
    Names names;
    for (const std::string& name : Matches(FileText(file), expression))
        names.insert(name + "@@DEVICESPECIFIC_0");
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
    const char* const own =
        "^((typeinfo|typeinfo name|vtable) for )?DeviceSpecificModule::Platform::.*@@DEVICESPECIFIC_0$";
    for (const std::string& name : exported) EXPECT_TRUE(HasMatch(name, own)) << name;
    const char* const caught = "typeinfo for DeviceSpecificModule::Platform::ResultError@@DEVICESPECIFIC_0";
    EXPECT_TRUE(exported.contains(caught) && exported.size() > 50);
}

}  // namespace
}  // namespace DeviceSpecificModule
