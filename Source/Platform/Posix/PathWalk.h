#pragma once

#include <libxml/tree.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "Platform/TicketDocument.h"

namespace Platform {

using Namespaces = std::vector<std::pair<std::string, std::string>>;  // prefix and name

// The name that queries know by a prefix, the last where there are several; null where there is none.
const std::string* NameOfNamespace(const Namespaces& namespaces, std::u16string_view prefix);

// Finds the match of a path by walking the tree: what the query engine finds for the path's query, at a small
// part of the cost. Neither path nor namespaces are copied.
class PathWalk {
public:
    PathWalk(Path path, const Namespaces& namespaces);

    // False where only the engine can say what the query means: for names that need not stand in it as they
    // are (quotes, anything but ASCII), prefixes that mean nothing, paths of more steps than MostSteps.
    bool IsPossible() const { return possible_; }

    // The first match in document order, an element or an attribute; null when there is none.
    xmlNodePtr Find(xmlDocPtr document) const;

    // The first match of each path that has three digits behind the name of the step `numbered`. There may be
    // no step to any depth up to that one.
    void FindSeries(xmlDocPtr document, std::size_t numbered, std::vector<xmlNodePtr>& found) const;

    static constexpr std::size_t MostSteps = 8;

private:
    using Steps = unsigned;  // a set of steps, a bit each

    bool Fits(const xmlNode* element, std::size_t step) const;
    xmlNodePtr Search(xmlNodePtr parent, Steps open) const;
    void SearchSeries(xmlNodePtr parent, std::size_t step, std::size_t numbered,
                      std::vector<xmlNodePtr>& found) const;

    Path path_;
    std::array<const std::string*, MostSteps> uris_{};  // of the steps' elements
    bool possible_;
};

}  // namespace Platform
