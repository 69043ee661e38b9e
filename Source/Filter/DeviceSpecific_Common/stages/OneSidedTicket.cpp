#include "conversion/PipelineProperties.h"
#include "conversion/TextOperations.h"
#include "stages/Stages.h"
#include "ticket/TicketEditing.h"
#include "ticket/TicketQueries.h"

namespace DeviceSpecificModule {

// The filters behind this one lay out each page on a side of its own; the job's real duplex option goes to
// the page level by way of the pipeline.
void ForceOneSidedTicket(PTConverter& converter, const PipelineBag& bag, const TicketDocument& ticket) {
    bag->DeleteProperty(u"DPBMap");
    bag->AddProperty(u"DPBMap", Platform::BareReference{converter.Tables});

    SetPipelineText(bag, u"JobDuplexAllDocumentsContiguously",
                    GetFeatureOptionName(ticket, u"JobDuplexAllDocumentsContiguously"));
    RemoveTicketNode(ticket, PathToFeature(u"psk:JobDuplexAllDocumentsContiguously"));
    InsertTicketFragments(ticket, WideText(u"<psf:Feature name=\"psk:JobDuplexAllDocumentsContiguously\">"
                                           u"<psf:Option name=\"psk:OneSided\"></psf:Option></psf:Feature>"));
}

}  // namespace DeviceSpecificModule
