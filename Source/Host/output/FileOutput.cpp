#include "Host/output/FileOutput.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <random>
#include <sstream>
#include <system_error>

#include "Host/ground/Errors.h"
#include "Host/ground/Files.h"
#include "Host/ground/Json.h"
#include "Host/ground/StandardStreams.h"
#include "Host/ground/Texts.h"
#include "Host/jobs/Package.h"
#include "Platform/Files.h"

namespace TicketHost {
namespace {

namespace fs = std::filesystem;

std::error_code LastError() { return {errno, std::generic_category()}; }

[[noreturn]] void FailToWrite(const fs::path& file, const std::error_code& cause) {
    throw OutputError(file.string() + ": " + cause.message());
}

constexpr const char* pjlFile = "job.pjl";
constexpr const char* dataFile = "job.data";
constexpr const char* propertiesFile = "properties.json";
constexpr const char* packageFile = "converted.xps";
constexpr const char* openPackageFile = "converted.oxps";
constexpr std::string_view ticketEnd = "-ticket.xml";

// Whether the results of some job have a file of this name.
bool IsNameOfResult(std::string_view name) {
    for (const std::string_view fixed : {pjlFile, dataFile, propertiesFile, packageFile, openPackageFile})
        if (name == fixed) return true;
    const std::size_t digits = std::min(name.find_first_not_of("0123456789"), name.size());
    return digits >= 3 && name.substr(digits) == ticketEnd;
}

// The names of all results in the folder, whichever job they are of.
std::set<std::string> FindResults(const fs::path& folder) {
    std::set<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error))
        if (const std::string name = entry->path().filename().string(); IsNameOfResult(name))
            names.insert(name);
    if (error) FailToWrite(folder, error);
    return names;
}

void RefuseFolder(const fs::path& file) {
    std::error_code ignored;
    if (fs::symlink_status(file, ignored).type() == fs::file_type::directory)
        FailToWrite(file, std::make_error_code(std::errc::is_a_directory));
}

// Makes a folder that nobody else uses.
fs::path MakeFolderIn(const fs::path& parent) {
    for (std::error_code error;;) {
        fs::path folder = parent / (".unfinished-" + std::to_string(std::random_device()()));
        if (fs::create_directory(folder, error)) return folder;
        if (error) FailToWrite(parent, error);
    }
}

}  // namespace

FileOutput::~FileOutput() {
    std::error_code ignored;
    if (!unfinished_.empty()) fs::remove_all(unfinished_, ignored);
}

void FileOutput::Begin(const Job& job, const PipelineProperties&) {
    digits_ = std::max(digits_, std::to_string(job.Calls.size()).size());
    std::error_code error;
    fs::create_directories(folder_, error);
    if (error) FailToWrite(folder_, error);
    for (const std::string& name : FindResults(folder_)) RefuseFolder(folder_ / name);
    unfinished_ = MakeFolderIn(folder_);
    if (!job.Source) return;
    package_.emplace(job);
    packageName_ = IsOpenXps(*job.Source) ? openPackageFile : packageFile;
}

void FileOutput::Write(const std::string& name, std::string_view bytes) {
    FileHandle stream(Platform::OpenFile(unfinished_ / name, "wbx"));
    const bool written = stream && std::fwrite(bytes.data(), 1, bytes.size(), stream.get()) == bytes.size() &&
                         std::fclose(stream.release()) == 0;
    if (!written) FailToWrite(folder_ / name, LastError());
    written_.insert(name);
}

void FileOutput::WriteText(const std::string& name, const Platform::WideText& text) {
    if (!text.IsNull()) Write(name, ToUtf8(text));
}

void FileOutput::Take(const CallResult& result) {
    std::string number = std::to_string(result.Number);
    number.insert(0, digits_ - number.size(), '0');
    const std::string name = number.append(ticketEnd);
    WriteText(name, result.TicketAfter);
    if (package_) package_->Take(result, unfinished_ / name);
}

void FileOutput::End(const PipelineProperties& final) {
    WriteText(pjlFile, FindText(final, u"PJL"));
    WriteText(dataFile, FindText(final, u"DATA"));
    std::ostringstream properties;
    WriteProperties(properties, final, 0);
    properties << "\n";
    Write(propertiesFile, properties.str());
    if (package_) WritePackage();
    Publish();
}

void FileOutput::WritePackage() {
    const std::string name = (folder_ / packageName_).string();
    package_->Write(unfinished_ / packageName_, name);
    written_.insert(packageName_);
    const std::vector<std::string> kept = package_->KeptTickets();
    if (kept.empty()) return;
    const std::string first =
        kept.size() == 1 ? kept[0] : kept[0] + " and " + std::to_string(kept.size() - 1) + " more";
    WriteErrorLine(name + ": stays as it was, since its calls did not all make the same of it: " + first);
}

void FileOutput::Publish() {
    std::error_code error;
    for (const std::string& name : written_) {
        fs::rename(unfinished_ / name, folder_ / name, error);
        if (error) FailToWrite(folder_ / name, error);
    }
    for (const std::string& name : FindResults(folder_)) {
        if (written_.contains(name)) continue;
        RefuseFolder(folder_ / name);
        fs::remove(folder_ / name, error);
        if (error) FailToWrite(folder_ / name, error);
    }
}

}  // namespace TicketHost
