#pragma once

#include <array>
#include <string_view>

namespace Fuzz {

// One way of handing the module input that nobody has looked at. A run takes any bytes; it ends the process
// with a message as soon as a contract doesn't hold. "Fuzz/Seeds/NAME" holds its seeds.
struct Target {
    std::string_view Name;
    void (*Run)(std::string_view input);
    std::string_view Samples = {};  // files of Samples that are seeds, too: what their paths end in
};

void RunTicket(std::string_view input);
void RunSettings(std::string_view input);
void RunPages(std::string_view input);
void RunSecrets(std::string_view input);
void RunManifest(std::string_view input);
void RunOutput(std::string_view input);
void RunForms(std::string_view input);
void RunPackage(std::string_view input);

inline constexpr std::array<Target, 8> Targets = {{
    {"ticket", RunTicket, ".xml"},
    {"settings", RunSettings},
    {"pages", RunPages},
    {"secrets", RunSecrets},
    {"manifest", RunManifest, ".json"},
    {"output", RunOutput, ".xml"},
    {"forms", RunForms, ".xml"},
    {"package", RunPackage},
}};

}  // namespace Fuzz
