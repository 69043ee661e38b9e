#pragma once

#include <initializer_list>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace TicketHost {

// Literals that go into a page as they are. They are checked while they are compiled, and nothing else can
// become one, so that no text from outside ever does.

// The name of an element.
class HtmlName {
public:
    consteval HtmlName(const char* name) : name_(name) {
        if (!IsName(name_)) throw "not a name";
    }
    std::string_view View() const { return name_; }

    static constexpr bool IsName(std::string_view name) {
        constexpr std::string_view allowed =
            "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-";
        return !name.empty() && name.find_first_not_of(allowed) == name.npos;
    }

private:
    std::string_view name_;
};

// The name of an attribute whose value is only ever shown or measured: none that loads, links or runs.
class HtmlAttributeName {
public:
    consteval HtmlAttributeName(const char* name) : name_(name) {
        constexpr std::string_view refused[] = {"href", "src", "style", "srcset", "action", "data", "srcdoc"};
        if (!HtmlName::IsName(name_) || name_.starts_with("on")) throw "not a name, or one that runs";
        for (const std::string_view each : refused)
            if (name_ == each) throw "a name that loads, links or styles";
    }
    std::string_view View() const { return name_; }

private:
    std::string_view name_;
};

// A style sheet.
class HtmlStyle {
public:
    consteval HtmlStyle(const char* css) : css_(css) {
        if (css_.find_first_of("<&") != css_.npos) throw "could end the element that holds it";
    }
    std::string_view View() const { return css_; }

private:
    std::string_view css_;
};

// A place in the page: a name and, where there are several of a kind, a number.
struct HtmlPlace {
    HtmlName Name;
    std::size_t Number = 0;

    std::string Id() const;
};

struct HtmlAttribute {
    HtmlAttributeName Name;
    std::string Value;
};

// Writes a page that is both HTML and well-formed XML. All texts are UTF-8 and escaped here, in elements as
// in attributes; what acts on a display stands as its name (Visible in ground/Texts.h). Markup comes only
// from literals. Links lead only to places of the page itself.
class HtmlWriter {
public:
    using Attributes = std::initializer_list<HtmlAttribute>;

    // An element that is open while this lives.
    class Scope {
    public:
        Scope(HtmlWriter& writer, HtmlName name) : writer_(writer), name_(name) {}
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
        ~Scope();

    private:
        HtmlWriter& writer_;
        HtmlName name_;
    };

    explicit HtmlWriter(std::ostream& out) : out_(out) {}

    // What stands ahead of the root element.
    void WriteDocumentType();

    [[nodiscard]] Scope In(HtmlName element, Attributes attributes = {});
    [[nodiscard]] Scope InLink(HtmlPlace target, Attributes attributes = {});
    void Put(HtmlName element, std::string_view text) { Put(element, {}, text); }
    void Put(HtmlName element, Attributes attributes, std::string_view text);
    // One without content: a void element of HTML, or one of SVG.
    void PutEmpty(HtmlName element, Attributes attributes = {});
    void PutLink(HtmlPlace target, std::string_view text);
    void PutStyle(HtmlStyle css);
    void Text(std::string_view text);

private:
    void Begin(HtmlName element, Attributes attributes);
    void Escape(std::string_view text);

    std::ostream& out_;
};

}  // namespace TicketHost
