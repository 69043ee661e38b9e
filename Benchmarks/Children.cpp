#include "Children.h"

#include <spawn.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

#include "Row.h"

namespace Benchmarks {
namespace {

double Seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
}

// What a command prints. Throws when it fails.
std::string OutputOf(const std::string& command) {
    FILE* const pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) throw std::runtime_error("cannot run " + command);
    char text[256] = "";
    std::string output;
    while (fgets(text, sizeof text, pipe) != nullptr) output += text;
    if (pclose(pipe) != 0) throw std::runtime_error("failed: " + command);
    return output;
}

// The user's Python, or the system's, which is the one that Debian's package of lxml is for.
std::string PythonWithLxml() {
    for (const std::string python : {"python3", "/usr/bin/python3"})
        if (system((python + " -c 'import lxml' 2>/dev/null").c_str()) == 0) return python;
    throw NotMeasurable{"lxml is not installed"};
}

}  // namespace

double SecondsOfLoading(const std::string& library) {
    std::string program = LOADER_FILE, argument = library;
    char* const arguments[] = {program.data(), library.empty() ? nullptr : argument.data(), nullptr};
    pid_t child = 0;
    if (posix_spawn(&child, program.c_str(), nullptr, nullptr, arguments, environ) != 0)
        throw std::runtime_error("cannot start " + program);
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child || status != 0)
        throw std::runtime_error("cannot load " + library);
    return Seconds(usage.ru_utime) + Seconds(usage.ru_stime);
}

LxmlLoop::LxmlLoop(const std::string& ticket) : python_(PythonWithLxml()), file_("/tmp/lxml-ticket-XXXXXX") {
    const int descriptor = mkstemp(file_.data());
    if (descriptor < 0) throw std::runtime_error("cannot write a file in /tmp");
    const bool wrote = write(descriptor, ticket.data(), ticket.size()) == static_cast<ssize_t>(ticket.size());
    close(descriptor);
    if (!wrote) throw std::runtime_error("cannot write " + file_);
}

LxmlLoop::~LxmlLoop() { unlink(file_.c_str()); }

LxmlLoop::Seconds LxmlLoop::Run() const {
    const std::string output = OutputOf(python_ + " '" LXML_LOOP "' '" + file_ + "' '" DEVMODE_NAMESPACE "'");
    Seconds seconds{};
    if (sscanf(output.c_str(), "%lf %lf %lf", &seconds.Loop, &seconds.XPath, &seconds.Whole) != 3)
        throw std::runtime_error("the lxml loop printed " + output);
    return seconds;
}

}  // namespace Benchmarks
