#include "stages/TicketCopies.h"

#include "ticket/TicketQueries.h"

namespace DeviceSpecificModule {

void ForceOneCopy(const TicketDocument& ticket) {
    const auto [root, parameter] = PathToParameter(u"psk:JobCopiesAllDocuments");
    const PathStep path[] = {root, parameter, {.Element = u"psf:Value"}};
    const TicketNode node = FindTicketNode(ticket, path);
    if (node) node->setText(WideText(u"1"));
}

}  // namespace DeviceSpecificModule
