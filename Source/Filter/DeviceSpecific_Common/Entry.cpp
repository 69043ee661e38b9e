#include <utility>

#include "JobPipeline.h"
#include "devicespecific/DeviceSpecificModule.h"

namespace DeviceSpecificModule {

PTConverter* CreatePTConverterClassPointer() { return new PTConverter; }

void DestroyPTConverterClassPointer(PTConverter* snapshot) { delete snapshot; }

std::int32_t ProcessDrvPT(PipelineBag pipelineBag, TicketDocument ticket, std::int32_t level,
                          const OptionTables* optionTables, PTConverter* snapshot) {
    ConvertTicket(std::move(pipelineBag), std::move(ticket), level, optionTables, snapshot);
    return 1;
}

}  // namespace DeviceSpecificModule
