#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "Host/report/HtmlWriter.h"
#include "Host/report/ItemDeeds.h"

namespace TicketHost {

// Writes what an explanation adds to a report: the lines with what caused them, and what each item did. Of
// items with an effect and of those without only so many are told; what caused a line is named by it in any
// case.
class ExplanationWriter {
public:
    static constexpr std::size_t MostItems = 2000;

    // Both must live as long as the writer.
    ExplanationWriter(HtmlWriter& html, const Explanation& explanation);

    // The explained lines of a call of these kinds, each kind under a heading of its own. A line says in
    // short what caused it; in full it does when it is pointed at, when a link in it has the focus, and on
    // paper. Says so where the call wasn't explained.
    void WriteLines(std::size_t call, std::initializer_list<LineKind> kinds);

    // The section of the header: the lines of "PJL" of each call that has some.
    void WriteHeader();

    // The sections of the items: what each did, and those without effect.
    void WriteItems();

private:
    void PutLine(const std::string& line);
    void PutItem(std::size_t item);
    void PutInstead(const std::optional<std::string>& instead);
    void WriteKind(const ExplainedCall& call, LineKind kind);
    void WriteLine(const ExplainedLine& line);
    void WriteCauses(const ExplainedLine& line);
    void WriteCause(const Cause& cause);
    std::string ShortCause(const ExplainedLine& line) const;
    void WriteItemsWithEffect();
    void WriteItem(std::size_t item);
    void WriteDeed(const ItemDeed& deed);
    void WriteItemsWithout();

    HtmlWriter& html_;
    const Explanation& explanation_;
    std::vector<std::vector<ItemDeed>> deeds_;  // by item
    std::vector<bool> told_;                    // by item
    std::size_t leftOut_ = 0;                   // items with effect
};

}  // namespace TicketHost
