#pragma once

#include <string>

// Measurements that need a process of their own.

namespace Benchmarks {

// The CPU time, in seconds, of a process that loads a library and ends; of one that
// loads nothing where the name is empty. Throws when it doesn't load.
double SecondsOfLoading(const std::string& library);

// A loop in Python that does to a ticket what a page call does, by lxml.
class LxmlLoop {
public:
    // Throws NotMeasurable where Python or lxml is not installed.
    explicit LxmlLoop(const std::string& ticket);
    LxmlLoop(const LxmlLoop&) = delete;
    LxmlLoop& operator=(const LxmlLoop&) = delete;
    ~LxmlLoop();

    struct Seconds {
        double Loop;   // reading and editing a loaded ticket in one loop over the root's children
        double XPath;  // the same by the module's queries, compiled once
        double Whole;  // the loop, from the ticket's text to the edited ticket's text
    };
    // CPU time of one turn of the loop.
    Seconds Run() const;

private:
    std::string python_;
    std::string file_;
};

}  // namespace Benchmarks
