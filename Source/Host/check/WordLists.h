#pragma once

#include <optional>
#include <string_view>

#include "Host/check/Vocabulary.h"
#include "Host/ground/Texts.h"
#include "devicespecific/OptionRecord.h"

namespace TicketHost {

inline void AddWord(WordList& words, std::u16string_view word) { words.push_back(ToUtf8(word)); }
// A row without a keyword stands for all words that no other row has.
inline void AddWord(WordList& words, const auto& row) {
    if (std::optional<std::u16string_view> keyword = row.Keyword) AddWord(words, *keyword);
}

// The keywords of the module's built-in tables, and of lists of mere words, one behind the other.
template <const auto&... tables>
const WordList& WordsOf() {
    static const WordList all = [] {
        WordList words;
        const auto add = [&words](const auto& table) {
            for (const auto& row : table) AddWord(words, row);
        };
        (add(tables), ...);
        return words;
    }();
    return all;
}

// How a ticket writes the option of a row of an exported table, prefix included.
std::string WordOf(const DeviceSpecificModule::OptionRecord& row);

// The options of one of the tables that the module exports, with their prefixes.
const WordList& MediaSizeWords();
const WordList& MediaTypeWords();
const WordList& InputBinWords();

}  // namespace TicketHost
