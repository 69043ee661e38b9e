#pragma once

#include <cstdint>
#include <string>

struct zip_source;

namespace TicketHost {

// Looks at the end of an archive, which says how large its directory is, before the archive is opened:
// opening one takes time and memory in proportion to what is said there. `source` must be open; `name` is for
// errors. Throws InputError for a directory beyond ZipLimits, for more than one end, none of which can be
// told to be the right one, and for none.
void CheckZipEnd(const std::string& name, zip_source* source, std::uint64_t size);

}  // namespace TicketHost
