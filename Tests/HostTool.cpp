#include "HostTool.h"

#include <pty.h>
#include <unistd.h>

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>

#include "Cases.h"
#include "Host/verbs/JobOptions.h"
#include "Support.h"

namespace TicketHost {
namespace fs = std::filesystem;

std::string WhyNoTerminal() {
    int terminal = -1, shell = -1;
    if (openpty(&terminal, &shell, nullptr, nullptr, nullptr) != 0)
        return std::string("needs a pseudo-terminal, and this machine gives none (is /dev/pts mounted?): ") +
               std::strerror(errno);
    close(terminal);
    close(shell);
    return "";
}

void ApplyArguments(const Json::Value& words, Job& job) {
    CLI::App app;
    JobOptions options;
    AddJobChanges(app, options);
    std::vector<std::string> backwards;
    for (const Json::Value& word : words) backwards.insert(backwards.begin(), word.asString());
    app.parse(backwards);
    ApplyJobOptions(options, job);
}

std::string AttributeOf(const Platform::XmlElement& element, std::string_view name) {
    for (const auto& attribute : element.Attributes)
        if (attribute.Name.Local == name) return attribute.Value;
    return "";
}

HostTool::HostTool() : folder_(testing::TempDir() + "tickethost-" + std::to_string(getpid())) {
    fs::create_directories(folder_);
}

HostTool::~HostTool() { fs::remove_all(folder_); }

void HostTool::Write(const std::string& name, const std::string& bytes) {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
}

std::string HostTool::Read(const std::string& name) const {
    return DeviceSpecificModule::FileText(folder_ / name);
}

HostTool::Outcome HostTool::RunShell(const std::string& line, const std::string& output) {
    Write("line", (SANITIZED ? "ulimit -t 100\n" : "ulimit -t 10\n") + line);
    const std::string command = "cd '" + folder_.string() + "' && TOOL='" TICKETHOST "' timeout " +
                                (SANITIZED ? "300" : "60") + " sh ./line >" + output + " 2>errors";
    const int status = std::system(command.c_str());
    return {DeviceSpecificModule::EndOf(status), output == "output" ? Read(output) : "", Read("errors")};
}

HostTool::Outcome HostTool::Run(const std::string& arguments, const std::string& output) {
    return RunShell("exec \"$TOOL\" " + arguments, output);
}

std::map<std::string, std::string> HostTool::Contents(const std::string& folder) const {
    std::map<std::string, std::string> contents;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder_ / folder)) {
        const std::string name = entry.path().filename().string();
        contents[name] = entry.is_symlink()     ? "(link)"
                         : entry.is_directory() ? "(folder)"
                                                : Read(folder + "/" + name);
    }
    return contents;
}

}  // namespace TicketHost
