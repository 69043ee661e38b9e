#pragma once

#include <libxml/tree.h>

#include <array>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "devicespecific/platform/TicketDocument.h"

namespace DeviceSpecificModule::Platform {

using Namespaces = std::vector<std::pair<std::string, std::string>>;  // prefix and name

// The name that queries know by a prefix, the last where there are several; null where there is none.
const std::string* NameOfNamespace(const Namespaces& namespaces, std::u16string_view prefix);

// Finds by walking the tree what the query engine finds for a path's query, at a small part of the cost.
class PathWalk {
public:
    // Of a series of names the last step's Name is what they begin with; three digits stand behind it.
    enum class Names { Single, Series };

    // Neither path nor namespaces are copied.
    PathWalk(Path path, const Namespaces& namespaces, Names names = Names::Single);

    // False where only the engine can say what the query means: for names that needn't stand in it as they
    // are (quotes, anything but ASCII), for prefixes that mean nothing, for more than eight steps.
    bool IsPossible() const { return possible_; }

    // The first match below a node or a document, in document order, an element or an attribute; null for
    // none.
    xmlNodePtr First(xmlNodePtr from) const;
    // Shows all matches, in document order, until the visitor has seen enough and says so.
    bool Visit(xmlNodePtr from, const std::function<bool(xmlNodePtr)>& visitor) const {
        return Search(from, 1, visitor);
    }

private:
    using Steps = unsigned;  // a set of steps, a bit each

    bool Fits(const xmlNode* element, std::size_t step) const;
    bool Search(xmlNodePtr parent, Steps open, const std::function<bool(xmlNodePtr)>& visitor) const;

    // The name of a step's element, and the last namespace that turned out to be its.
    struct ElementName {
        std::u16string_view Local;
        const std::string* Uri = nullptr;
        mutable const xmlNs* Known = nullptr;
    };

    Path path_;
    Names names_;
    std::array<ElementName, 8> elements_;
    bool possible_;
};

// The number that the last three characters of a match of a series stand for.
std::size_t NumberInSeries(const xmlNode* element);

}  // namespace DeviceSpecificModule::Platform
