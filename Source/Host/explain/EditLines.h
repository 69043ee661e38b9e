#pragma once

#include <string>
#include <vector>

#include "Platform/WideText.h"

namespace TicketHost {

// What a call changed in its ticket: the names of what it changed, and a line for each.
struct EditLine {
    std::string Key, Text;
};
std::vector<EditLine> EditLinesOf(const Platform::WideText& before, const Platform::WideText& after);

}  // namespace TicketHost
