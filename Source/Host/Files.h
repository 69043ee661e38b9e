#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "Host/JobRunner.h"

namespace TicketHost {

// The bytes of a file. Throws InputError for a folder, a file that can't be read and one of more than 1 GiB.
std::string ReadFile(const std::filesystem::path& file);

// Puts a file with these bytes in place of what is there, in one step: they are written under another name in
// the same folder first. Throws OutputError; the file is then as it was and the other one gone.
void ReplaceFile(const std::filesystem::path& file, std::string_view bytes);

// Writes a job's results as they are into a folder, which it makes:
//
//   001-ticket.xml ...   each call's ticket after the call, numbered from 1
//   job.pjl, job.data    "PJL" and "DATA" as the last call left them, in UTF-8; absent when the property is
//   properties.json      all properties as the last call left them
//
// Files of these names are replaced, each in one step. The last three of an earlier job are removed before
// the first call, so that none of them is taken for this job's when it fails. Throws OutputError.
class FileOutput final : public ResultSink {
public:
    explicit FileOutput(std::filesystem::path folder) : folder_(std::move(folder)) {}

    void Begin(const Job& job, const PipelineProperties& initial) override;
    void Take(const CallResult& result) override;
    void End(const PipelineProperties& final) override;

private:
    std::filesystem::path folder_;
    std::size_t digits_ = 3;
};

}  // namespace TicketHost
