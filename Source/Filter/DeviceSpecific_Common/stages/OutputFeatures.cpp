#include "stages/FeatureEngine.h"
#include "stages/Stages.h"
#include "tables/OutputKeywords.h"

namespace DeviceSpecificModule {
namespace {

struct TicketRow {
    std::u16string_view Feature;
    KeywordCommandTable Table;
};

constexpr TicketRow rows[] = {
    {u"PageOutputBin", PageOutputBinCommandTable},
    {u"PageOutputColor", PageOutputColorCommandTable},
    {u"JobDuplexAllDocumentsContiguously", JobDuplexAllDocumentsContiguouslyCommandTable},
    {u"PageOrientation", PageOrientationCommandTable},
    {u"DocumentBinding", DocumentBindingCommandTable},
    {u"JobNUpAllDocumentsContiguously", JobNUpAllDocumentsContiguouslyCommandTable},
};

}  // namespace

void WriteOutputFeatures(PTConverter& converter, const PipelineBag&, const TicketDocument& ticket) {
    for (const TicketRow& row : rows)
        ApplyTicketCommand(converter, ticket, row.Feature, row.Table, CommandTarget::Pjl);
}

}  // namespace DeviceSpecificModule
