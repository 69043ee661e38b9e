#include "Host/report/HtmlWriter.h"

#include <algorithm>

#include "Host/ground/Texts.h"

namespace TicketHost {
namespace {

// Stand at the beginning of a line, for whoever reads the page's source or compares two of them.
constexpr std::string_view beginLine[] = {
    "article", "body",  "caption", "details", "div", "dl",      "dt",     "figcaption", "figure",
    "footer",  "h1",    "h2",      "h3",      "h4",  "head",    "header", "html",       "li",
    "main",    "meta",  "nav",     "ol",      "p",   "section", "style",  "summary",    "svg",
    "table",   "tbody", "thead",   "title",   "tr",  "ul"};

// Two that are no control characters, and that XML has no form for.
constexpr std::string_view noCharacters[] = {"\xEF\xBF\xBE", "\xEF\xBF\xBF"};

std::string_view EscapeOf(char character) {
    switch (character) {
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '&':
            return "&amp;";
        case '"':
            return "&quot;";
        case '\'':
            return "&#39;";
        default:
            return {};
    }
}

}  // namespace

std::string HtmlPlace::Id() const {
    std::string id(Name.View());
    if (Number > 0) id += "-" + std::to_string(Number);
    return id;
}

HtmlWriter::Scope::~Scope() { writer_.out_ << "</" << name_.View() << '>'; }

void HtmlWriter::WriteDocumentType() { out_ << "<!DOCTYPE html>"; }

HtmlWriter::Scope HtmlWriter::In(HtmlName element, Attributes attributes) {
    Begin(element, attributes);
    out_ << '>';
    return {*this, element};
}

HtmlWriter::Scope HtmlWriter::InLink(HtmlPlace target, Attributes attributes) {
    Begin("a", attributes);
    out_ << " href=\"#" << target.Id() << "\">";
    return {*this, "a"};
}

void HtmlWriter::Put(HtmlName element, Attributes attributes, std::string_view text) {
    const Scope scope = In(element, attributes);
    Text(text);
}

void HtmlWriter::PutEmpty(HtmlName element, Attributes attributes) {
    Begin(element, attributes);
    out_ << "/>";
}

void HtmlWriter::PutLink(HtmlPlace target, std::string_view text) {
    const Scope link = InLink(target);
    Text(text);
}

void HtmlWriter::PutStyle(HtmlStyle css) {
    const Scope style = In("style");
    out_ << css.View();
}

void HtmlWriter::Text(std::string_view text) { Escape(Visible(text)); }

void HtmlWriter::Begin(HtmlName element, Attributes attributes) {
    if (std::ranges::find(beginLine, element.View()) != std::end(beginLine)) out_ << '\n';
    out_ << '<' << element.View();
    for (const HtmlAttribute& attribute : attributes) {
        out_ << ' ' << attribute.Name.View() << "=\"";
        Escape(Visible(attribute.Value));
        out_ << '"';
    }
}

void HtmlWriter::Escape(std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::string_view escape = EscapeOf(text[at]);
        const auto begins = [&](std::string_view each) { return text.substr(at).starts_with(each); };
        if (std::ranges::any_of(noCharacters, begins)) {
            out_ << (text[at + 2] == '\xBE' ? "&lt;U+FFFE&gt;" : "&lt;U+FFFF&gt;");
            at += 2;
        } else if (escape.empty()) {
            out_ << text[at];
        } else {
            out_ << escape;
        }
    }
}

}  // namespace TicketHost
