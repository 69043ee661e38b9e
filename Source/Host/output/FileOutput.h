#pragma once

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "Host/jobs/JobRunner.h"
#include "Host/output/PackageOutput.h"

namespace TicketHost {

// Writes a job's results as they are into a folder, which it makes:
//
//   001-ticket.xml ...   each call's ticket after the call, numbered from 1
//   job.pjl, job.data    "PJL" and "DATA" as the last call left them, in UTF-8; absent when the property is
//   properties.json      all properties as the last call left them
//   converted.xps        a job that is a package, with the tickets after the calls in place of its own
//                        (PackageOutput.h); converted.oxps for OpenXPS
//
// A line on the standard error says so when tickets of the package stay as they were.
//
// Of an earlier job all these stay as they are until End, calls that throw included; a run that doesn't come
// that far leaves them alone. Until then the new ones stand in a folder ".unfinished-NUMBER" in there. End
// moves them to their places, each in one step, and then removes what else of these names is there, with any
// number of digits from three on. A link of such a name is replaced or removed, not followed; a folder is
// refused before the first call. Nothing else in the folder is touched. Throws OutputError, which names the
// file by its final name.
class FileOutput final : public ResultSink {
public:
    explicit FileOutput(std::filesystem::path folder) : folder_(std::move(folder)) {}
    FileOutput(const FileOutput&) = delete;
    FileOutput& operator=(const FileOutput&) = delete;
    ~FileOutput() override;

    void Begin(const Job& job, const PipelineProperties& initial) override;
    void Take(const CallResult& result) override;
    void End(const PipelineProperties& final) override;

private:
    void Write(const std::string& name, std::string_view bytes);
    void WriteText(const std::string& name, const Platform::WideText& text);
    void WritePackage();
    void Publish();

    std::filesystem::path folder_;
    std::filesystem::path unfinished_;  // empty while there is none
    std::set<std::string> written_;     // the names of the files in there
    std::size_t digits_ = 3;
    std::optional<PackageOutput> package_;  // of a job that is one
    std::string packageName_;
};

}  // namespace TicketHost
