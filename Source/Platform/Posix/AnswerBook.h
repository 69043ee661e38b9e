#pragma once

#include <map>
#include <mutex>

#include "Platform/KeptAnswers.h"

namespace DeviceSpecificModule::Platform {

// The answers to one kind of question, while they are kept.
template <typename Question, typename Answer>
class AnswerBook {
public:
    template <typename Ask>
    Answer Get(const Question& question, const Ask& ask) {
        const std::uint64_t time = KeptAnswers::CurrentTime();
        if (time == 0) return ask();
        const std::lock_guard lock(guard_);
        if (time != time_) answers_.clear();
        time_ = time;
        const auto known = answers_.find(question);
        return known != answers_.end() ? known->second : answers_.emplace(question, ask()).first->second;
    }

private:
    std::mutex guard_;
    std::uint64_t time_ = 0;
    std::map<Question, Answer> answers_;
};

}  // namespace DeviceSpecificModule::Platform
