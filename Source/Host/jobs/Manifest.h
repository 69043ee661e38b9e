#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Host/jobs/Job.h"

namespace TicketHost {

struct ManifestCall {
    std::int32_t Level = 0;
    std::string Ticket;  // as the manifest has it: inline XML when it begins with "<", otherwise a path

    bool IsInline() const { return Ticket.starts_with('<'); }
};

// A job as a JSON document describes it:
//
//   { "pipeline": { NAME: text | integer | null },   "UserSecurityToken": a user id
//     "driver":   { NAME: text | integer },
//     "queue":    { NAME: text | integer },
//     "tables":   null | [ names of tables ],        absent: all of them; null: no OptionTables record
//     "snapshot": true | false,                      absent: true
//     "calls":    [ { "level": integer, "ticket": path relative to the manifest, or inline XML } ] }
//
// "calls" must be there, and "level" and "ticket" in each of them; keys that aren't named here must not.
struct Manifest {
    JobSettings Settings;
    std::vector<ManifestCall> Calls;
};

// Throws InputError, "file: place: cause", for all that doesn't fit the form; `file` is only the name in it.
Manifest ParseManifest(const std::string& file, std::string_view bytes);

}  // namespace TicketHost
