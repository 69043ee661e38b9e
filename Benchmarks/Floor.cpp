#include "Floor.h"

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <stdexcept>

#include "Clock.h"

namespace Benchmarks {

void ParseAndSerialise(const std::string& ticket) {
    const xmlDocPtr document =
        xmlReadMemory(ticket.data(), static_cast<int>(ticket.size()), nullptr, nullptr, XML_PARSE_NONET);
    if (document == nullptr) throw std::runtime_error("libxml2 refuses a ticket");
    xmlChar* text = nullptr;
    int length = 0;
    xmlDocDumpMemory(document, &text, &length);
    if (text == nullptr) throw std::runtime_error("libxml2 doesn't serialise a ticket");
    xmlFree(text);
    xmlFreeDoc(document);
}

double FloorSeconds(const std::string& ticket) {
    ParseAndSerialise(ticket);
    return CpuSeconds([&] { ParseAndSerialise(ticket); });
}

}  // namespace Benchmarks
