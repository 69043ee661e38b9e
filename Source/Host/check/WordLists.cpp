#include "Host/check/WordLists.h"

#include "Host/jobs/OptionTableSet.h"

namespace TicketHost {
namespace {

WordList WordsOfTable(std::string_view table) {
    WordList words;
    for (const OptionRecord& row : CopyOptionTable(table)) {
        if (row.Keyword.IsNull()) break;
        words.push_back(WordOf(row));
    }
    return words;
}

}  // namespace

std::string WordOf(const OptionRecord& row) {
    const bool hasPrefix = row.Keyword.View().find(u':') != std::u16string_view::npos;
    return (hasPrefix ? "" : ToUtf8(row.NamespacePrefix) + ":") + ToUtf8(row.Keyword);
}

const WordList& MediaSizeWords() {
    static const WordList words = WordsOfTable("PageMediaSize");
    return words;
}

const WordList& MediaTypeWords() {
    static const WordList words = WordsOfTable("PageMediaType");
    return words;
}

const WordList& InputBinWords() {
    static const WordList words = WordsOfTable("PageInputBin");
    return words;
}

}  // namespace TicketHost
