#include <exception>
#include <span>

#include "Host/ground/Errors.h"
#include "Host/ground/Platform.h"
#include "Host/ground/StandardStreams.h"
#include "Host/verbs/CommandLine.h"
#include "Host/verbs/Verbs.h"
#include "Platform/Process.h"

using namespace TicketHost;

namespace {

constexpr int inputStatus = 2;

constexpr AddVerb verbs[] = {AddConvertVerb,      AddExplainVerb, AddDiffVerb,      AddCheckVerb,
                             AddCapabilitiesVerb, AddTablesVerb,  AddPassphraseVerb};

}  // namespace

int main(int argumentCount, char** arguments) {
    Platform::PrepareStandardOutput();
    try {
        return ReadCommandLine(verbs, {arguments, static_cast<std::size_t>(argumentCount)})();
    } catch (const NobodyReads&) {
        return inputStatus;
    } catch (const std::exception& error) {
        WriteErrorLine(error.what());
        return inputStatus;
    }
}
