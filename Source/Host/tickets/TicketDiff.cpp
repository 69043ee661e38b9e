#include "Host/tickets/TicketDiff.h"

#include <algorithm>
#include <dtl/dtl.hpp>
#include <iterator>
#include <span>

#include "Host/ground/Texts.h"

namespace TicketHost {
namespace {

using Lines = std::vector<std::string>;

constexpr std::size_t contextLines = 2;
constexpr std::size_t mostAlignment = 8;  // lines that a change may move down to begin with its element
constexpr std::size_t longestContextLine = 120;  // characters
constexpr std::size_t longestChangedLine = 400;  // characters; tickets carry values of many thousands
constexpr std::size_t mostChanges = 500;         // lines that went or came; nobody reads more
// Lines of both tickets, without those that they share at their beginnings and ends. For more of them no diff
// is made, since its cost grows faster than their number.
constexpr std::size_t mostLines = 20000;

std::size_t EndOfTag(std::string_view xml, std::size_t at) {
    char quote = '\0';
    for (; at < xml.size(); ++at) {
        const char c = xml[at];
        if (quote != '\0') {
            if (c == quote) quote = '\0';
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '>') {
            return at + 1;
        }
    }
    return xml.size();
}

// Where the tag, comment or text that begins at the front ends.
std::size_t EndOfToken(std::string_view xml) {
    if (xml.front() != '<') return std::min(xml.find('<'), xml.size());
    struct Form {
        std::string_view Begin, End;
    };
    for (const Form form : {Form{"<!--", "-->"}, Form{"<![CDATA[", "]]>"}, Form{"<?", "?>"}}) {
        if (!xml.starts_with(form.Begin)) continue;
        const std::size_t end = xml.find(form.End, form.Begin.size());
        return end == xml.npos ? xml.size() : end + form.End.size();
    }
    return EndOfTag(xml, 0);
}

enum class Token { OpeningTag, ClosingTag, Text, Other };

Token KindOf(std::string_view token) {
    if (!token.starts_with('<') || token.starts_with("<![CDATA[")) return Token::Text;
    if (token.starts_with("</")) return Token::ClosingTag;
    return token.starts_with("<!") || token.starts_with("<?") || token.ends_with("/>") ? Token::Other
                                                                                       : Token::OpeningTag;
}

class Layout {
public:
    void Add(std::string_view token) {
        const Token kind = KindOf(token);
        if (kind == Token::Text && token.find_first_not_of(" \t\r\n") == token.npos) return;
        if (kind == Token::ClosingTag && depth_ > 0) --depth_;
        const bool joins = lineIsOpen_ && (kind == Token::Text || kind == Token::ClosingTag);
        if (!joins) lines_.emplace_back(2 * depth_, ' ');
        lines_.back() += Visible(token);
        lineIsOpen_ = kind == Token::OpeningTag || (kind == Token::Text && joins);
        if (kind == Token::OpeningTag) ++depth_;
    }

    Lines Take() { return std::move(lines_); }

private:
    Lines lines_;
    std::size_t depth_ = 0;
    bool lineIsOpen_ = false;  // the last line is an opening tag, perhaps with texts behind it
};

struct Edit {
    char Mark;  // '-', '+' or ' '
    std::string Line;
};

// How many lines, counted with their repetitions, stand in the first but not in the second.
std::size_t CountMissing(std::span<const std::string> first, std::span<const std::string> second) {
    std::vector<std::string_view> left(first.begin(), first.end()), right(second.begin(), second.end()),
        missing;
    std::sort(left.begin(), left.end());
    std::sort(right.begin(), right.end());
    std::set_difference(left.begin(), left.end(), right.begin(), right.end(), std::back_inserter(missing));
    return missing.size();
}

std::string DescribeAmount(const Lines& goes, const Lines& comes) {
    const auto count = [](std::size_t number) { return std::to_string(number); };
    return "too much to show: " + count(goes.size()) + " lines became " + count(comes.size()) + "; " +
           count(CountMissing(goes, comes)) + " went and " + count(CountMissing(comes, goes)) + " are new";
}

void AppendEdits(const Lines& before, const Lines& after, std::vector<Edit>& edits) {
    dtl::Diff<std::string, Lines> diff(before, after);
    diff.compose();
    for (const auto& [line, info] : diff.getSes().getSequence())
        edits.push_back({info.type == dtl::SES_COMMON ? ' ' : info.type == dtl::SES_ADD ? '+' : '-', line});
}

std::ptrdiff_t Distance(std::size_t count) { return static_cast<std::ptrdiff_t>(count); }

template <typename Iterator>
std::size_t CountSharedLines(Iterator left, Iterator leftEnd, Iterator right, Iterator rightEnd) {
    return static_cast<std::size_t>(std::mismatch(left, leftEnd, right, rightEnd).first - left);
}

bool IsClosingTag(std::string_view line) {
    return line.substr(std::min(line.find_first_not_of(' '), line.size())).starts_with("</");
}

// Where two elements in a row end in the same lines and the second came or went, the diff may begin with the
// end of the first. Moves such a run down, so that it begins with the line that opens the second.
void AlignWithElements(std::vector<Edit>& edits) {
    for (std::size_t begin = 0, end = 0; begin < edits.size(); begin = end) {
        const char mark = edits[begin].Mark;
        for (end = begin; end < edits.size() && edits[end].Mark == mark;) ++end;
        if (mark == ' ') continue;
        for (; end < edits.size() && edits[end].Mark == ' ' && edits[end].Line == edits[begin].Line;
             ++begin, ++end) {
            if (!IsClosingTag(edits[begin].Line)) break;
            edits[begin].Mark = ' ';
            edits[end].Mark = mark;
        }
    }
}

Lines Format(const std::vector<Edit>& edits, bool cutInFront) {
    std::vector<bool> shown(edits.size());
    for (std::size_t at = 0; at < edits.size(); ++at) {
        if (edits[at].Mark == ' ') continue;
        const std::size_t first = at < contextLines ? 0 : at - contextLines;
        const std::size_t last = std::min(at + contextLines, edits.size() - 1);
        for (std::size_t near = first; near <= last; ++near) shown[near] = true;
    }
    Lines lines;
    bool gap = cutInFront;
    for (std::size_t at = 0; at < edits.size(); ++at) {
        if (shown[at]) {
            if (gap) lines.emplace_back("...");
            const std::size_t longest = edits[at].Mark == ' ' ? longestContextLine : longestChangedLine;
            lines.push_back(std::string{edits[at].Mark, ' '} + Shortened(edits[at].Line, longest));
        }
        gap = !shown[at];
    }
    return lines;
}

}  // namespace

std::vector<std::string> LayOutXml(std::string_view xml) {
    Layout layout;
    while (!xml.empty()) {
        const std::size_t end = EndOfToken(xml);
        layout.Add(xml.substr(0, end));
        xml.remove_prefix(end);
    }
    return layout.Take();
}

std::vector<std::string> DescribeTicketChange(std::string_view before, std::string_view after) {
    if (before == after) return {};
    const Lines left = LayOutXml(before), right = LayOutXml(after);
    if (left == right) return {"only white space changed"};
    const std::size_t front = CountSharedLines(left.begin(), left.end(), right.begin(), right.end());
    const std::size_t back = CountSharedLines(left.rbegin(), left.rend() - Distance(front), right.rbegin(),
                                              right.rend() - Distance(front));
    const Lines goes(left.begin() + Distance(front), left.end() - Distance(back));
    const Lines comes(right.begin() + Distance(front), right.end() - Distance(back));
    if (goes.size() + comes.size() > mostLines) return {DescribeAmount(goes, comes)};
    std::vector<Edit> edits;
    for (std::size_t at = front - std::min(front, contextLines); at < front; ++at)
        edits.push_back({' ', left[at]});
    AppendEdits(goes, comes, edits);
    const std::size_t end = left.size() - back + std::min(back, contextLines + mostAlignment);
    for (std::size_t at = left.size() - back; at < end; ++at) edits.push_back({' ', left[at]});
    const auto isChange = [](const Edit& edit) { return edit.Mark != ' '; };
    if (std::count_if(edits.begin(), edits.end(), isChange) > Distance(mostChanges))
        return {DescribeAmount(goes, comes)};
    AlignWithElements(edits);
    return Format(edits, front > contextLines);
}

}  // namespace TicketHost
