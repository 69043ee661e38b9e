#pragma once

#include <ostream>

#include "Host/explain/Explanation.h"

namespace TicketHost {

// For a person: call by call each line with its causes below it, what each item did, and at last the items
// without effect.
void WriteExplanation(std::ostream& out, const Explanation& explanation, bool colour);

// As one JSON document:
//
//   { "job": text, "callCount": integer, "narrowed": true | false,
//     "calls": [ { "call": integer, "level": integer, "ticket": text,
//                  "lines": [ { "kind": KIND, "text": text,
//                               "causes": [ { "items": [ index ], "instead": text | null } ],
//                               "subjects": [ index ] } ] } ],
//     "items": [ { "kind": text, "name": text, "value": text, "label": text, "file": text, "line": integer,
//                  "in": index | null, "tried": true | false, "hasEffect": true | false,
//                  "effects": [ { "call": integer, "kind": KIND, "line": index | null, "instead": text | null
//                  } ], "hiddenBy": [ index ] } ] }
//
// KIND is "error", "PJL", "DATA", "property" or "ticket". The members are those of Explanation.h; indices
// count from 0, of items among "items", of lines among those of their call; calls and the lines of files
// from 1.
void WriteExplanationAsJson(std::ostream& out, const Explanation& explanation);

}  // namespace TicketHost
