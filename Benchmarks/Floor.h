#pragma once

#include <string>

namespace Benchmarks {

// What anybody pays who touches a ticket: one parse, one serialisation and the freeing of both, by plain
// libxml2.
void ParseAndSerialise(const std::string& ticket);

// The CPU time that this takes, in seconds, at its best: once more right behind one that is not counted, so
// that what ran before has no share in it.
double FloorSeconds(const std::string& ticket);

}  // namespace Benchmarks
