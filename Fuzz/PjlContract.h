#pragma once

#include <string_view>

namespace Fuzz {

class JobRun;

// A job's header is its opening, then what the vocabulary, the formats and the option tables can make, in the
// order of the stages, filled with the job's own values; and nothing else.
void RequirePjl(std::u16string_view pjl, const JobRun& job);

}  // namespace Fuzz
