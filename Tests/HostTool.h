#pragma once

#include <gtest/gtest.h>
#include <json/forwards.h>

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include "Host/ground/Platform.h"
#include "Platform/XmlElement.h"

namespace TicketHost {

// Why there is no terminal for a test to have for itself; empty where there is.
std::string WhyNoTerminal();

struct Job;

// Makes a job what a verb's arguments say of it. Throws InputError.
void ApplyArguments(const Json::Value& words, Job& job);

// An attribute's value by its local name; empty without one.
std::string AttributeOf(const Platform::XmlElement& element, std::string_view name);

// Runs of the tool in a folder of their own, which is gone at the end.
class HostTool : public testing::Test {
protected:
    struct Outcome {
        int Status;  // a shell's
        std::string Output, Errors;
    };

    HostTool();
    ~HostTool() override;

    void Write(const std::string& name, const std::string& bytes);
    std::string Read(const std::string& name) const;

    // A shell's line in the folder, where $TOOL is the tool. The output goes to a file of the folder, or "&3"
    // and the like. Ends after a minute, and whatever it starts after ten seconds of computing,
    // both longer under a sanitizer.
    Outcome RunShell(const std::string& line, const std::string& output = "output");
    // The tool with these arguments, quoted for a shell.
    Outcome Run(const std::string& arguments, const std::string& output = "output");

    // What a folder holds: a file's bytes by its name, "(link)" and "(folder)".
    std::map<std::string, std::string> Contents(const std::string& folder) const;

    const std::filesystem::path folder_;
};

}  // namespace TicketHost
