#include "Host/FileOutput.h"

#include <algorithm>
#include <sstream>
#include <system_error>

#include "Host/Errors.h"
#include "Host/Files.h"
#include "Host/JsonOutput.h"
#include "Host/PropertyTexts.h"
#include "Host/Texts.h"

namespace TicketHost {
namespace {

constexpr const char* pjlFile = "job.pjl";
constexpr const char* dataFile = "job.data";
constexpr const char* propertiesFile = "properties.json";

void WriteText(const std::filesystem::path& file, const Platform::WideText& text) {
    if (!text.IsNull()) ReplaceFile(file, ToUtf8(text));
}

}  // namespace

void FileOutput::Begin(const Job& job, const PipelineProperties&) {
    digits_ = std::max(digits_, std::to_string(job.Calls.size()).size());
    std::error_code error;
    std::filesystem::create_directories(folder_, error);
    if (error) throw OutputError(folder_.string() + ": " + error.message());
    for (const char* name : {pjlFile, dataFile, propertiesFile}) {
        std::filesystem::remove(folder_ / name, error);
        if (error) throw OutputError((folder_ / name).string() + ": " + error.message());
    }
}

void FileOutput::Take(const CallResult& result) {
    std::string number = std::to_string(result.Number);
    number.insert(0, digits_ - number.size(), '0');
    WriteText(folder_ / (number + "-ticket.xml"), result.TicketAfter);
}

void FileOutput::End(const PipelineProperties& final) {
    WriteText(folder_ / pjlFile, FindText(final, u"PJL"));
    WriteText(folder_ / dataFile, FindText(final, u"DATA"));
    std::ostringstream properties;
    WriteProperties(properties, final, 0);
    properties << "\n";
    ReplaceFile(folder_ / propertiesFile, properties.str());
}

}  // namespace TicketHost
