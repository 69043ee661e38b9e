// A host in C++: host FOLDER JOB-TICKET [PAGE-TICKET ...]
//
// Converts a job ticket and its pages' tickets. The folder, which must be there, gets the job header and the
// data lines as they come out of the last conversion, job.pjl and job.data, and the tickets as conversions
// leave them, 001-ticket.xml and so on.

#include <cstdio>
#include <exception>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <devicespecific/DeviceSpecificModule.h>
#include <devicespecific/platform/CodePages.h>
#include <devicespecific/platform/MemoryBags.h>
#include <devicespecific/platform/TicketDocument.h>

using namespace DeviceSpecificModule;
using Platform::WideText;

namespace {

// One option table of the host's own; conversions read these rows, which may be changed.
struct Table {
    explicit Table(std::int32_t getSize(std::uint32_t*), std::int32_t getRows(OptionRecord*)) {
        std::uint32_t count = 0;
        getSize(&count);
        Rows.resize(count);
        getRows(Rows.data());
    }
    std::vector<OptionRecord> Rows;
};

struct DestroySnapshot {
    void operator()(PTConverter* snapshot) const { DestroyPTConverterClassPointer(snapshot); }
};

// All that lives from the first ticket of a job to its last. The module leaves a reference to `Tables` in the
// bag ("DPBMap"), so the tables stay for as long as the bag does.
struct Job {
    Table Sizes{GetSizeOfPageMediaSize, GetPageMediaSize};
    Table Types{GetSizeOfPageMediaType, GetPageMediaType};
    Table Bins{GetSizeOfPageInputBin, GetPageInputBin};
    Table Simplex{GetSizeOfSimplexPageMode, GetSimplexPageMode};
    Table Duplex{GetSizeOfDuplexPageMode, GetDuplexPageMode};
    OptionTables Tables{Sizes.Rows.data(), Types.Rows.data(),   Bins.Rows.data(),
                        nullptr,           Simplex.Rows.data(), Duplex.Rows.data()};
    std::shared_ptr<Platform::MemoryPipelineBag> Bag;
    std::unique_ptr<PTConverter, DestroySnapshot> Snapshot{CreatePTConverterClassPointer()};

    // What the host knows of its printer.
    Job() {
        using PrinterBag = std::shared_ptr<Platform::IPrinterPropertyBag>;
        const PrinterBag driver = std::make_shared<Platform::MemoryPrinterBag>(
            Platform::PrinterProperties{{u"CommandMap_Sample", WideText(u"{}")}});
        const PrinterBag queue = std::make_shared<Platform::MemoryPrinterBag>();
        Bag = std::make_shared<Platform::MemoryPipelineBag>(Platform::PipelineProperties{
            {u"Series", WideText(u"Sample")}, {u"DriverPropertyBag", driver}, {u"QueuePropertyBag", queue}});
    }
    Job(const Job&) = delete;
    Job& operator=(const Job&) = delete;
};

Platform::TicketDocument LoadTicket(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(stream), {});
    if (!stream) throw std::runtime_error(file + ": can't be read");
    Platform::ParseError error;
    Platform::TicketDocument ticket = Platform::LoadTicketDocument(std::string_view(bytes), error);
    if (ticket) return ticket;
    throw std::runtime_error(file + ":" + std::to_string(error.Line) + ":" + std::to_string(error.Column) +
                             ": " + error.Reason);
}

// A text that isn't there makes no file.
void WriteFile(const std::string& file, const WideText& text) {
    if (text.IsNull()) return;
    std::string bytes;
    ConvertFromWide(Platform::CodePage::Utf8, text.View(), bytes);
    std::ofstream stream(file, std::ios::binary);
    if (!(stream << bytes).flush()) throw std::runtime_error(file + ": can't be written");
}

void WriteProperty(const Job& job, std::u16string_view name, const std::string& file) {
    Platform::PropertyValue value;
    job.Bag->GetProperty(name, value);
    if (const auto* text = std::get_if<WideText>(&value)) WriteFile(file, *text);
}

void ConvertJob(const std::string& folder, const std::vector<std::string>& files) {
    Job job;
    for (std::size_t index = 0; index < files.size(); ++index) {
        const Platform::TicketDocument ticket = LoadTicket(files[index]);
        ProcessDrvPT(job.Bag, ticket, index == 0 ? JobLevel : PageLevel, &job.Tables, job.Snapshot.get());
        char name[40];
        std::snprintf(name, sizeof name, "/%03zu-ticket.xml", index + 1);
        WriteFile(folder + name, ticket->xml());
    }
    WriteProperty(job, u"PJL", folder + "/job.pjl");
    WriteProperty(job, u"DATA", folder + "/job.data");
}

}  // namespace

int main(int count, char** arguments) try {
    if (count < 3) {
        std::fprintf(stderr, "usage: host FOLDER JOB-TICKET [PAGE-TICKET ...]\n");
        return 2;
    }
    ConvertJob(arguments[1], {arguments + 2, arguments + count});
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "host: %s\n", error.what());
    return 1;
}
