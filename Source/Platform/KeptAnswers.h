#pragma once

#include <cstdint>

#include "devicespecific/platform/Export.h"

namespace DeviceSpecificModule::Platform {

// While one lives, the process asks for a queue's first document and for a user's name once at most, and
// gives each answer again: for who converts one job over and over, where every question costs time and an
// answer that changes in between would mislead. Threads that ask for what another is asking for wait. The
// answers go with the last one that lives.
class DEVICESPECIFIC_API KeptAnswers {
public:
    KeptAnswers();
    KeptAnswers(const KeptAnswers&) = delete;
    KeptAnswers& operator=(const KeptAnswers&) = delete;
    ~KeptAnswers();

    // Tells one time of keeping from another; 0 while answers aren't kept.
    static std::uint64_t CurrentTime();
};

}  // namespace DeviceSpecificModule::Platform
