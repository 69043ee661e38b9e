#pragma once

#include <libxml/globals.h>
#include <libxml/tree.h>
#include <libxml/xmlerror.h>
#include <libxml/xpath.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "devicespecific/platform/ResultError.h"

namespace DeviceSpecificModule::Platform {

inline std::string_view View(const xmlChar* text) {
    return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

inline const xmlChar* XmlChars(const std::string& text) {
    return reinterpret_cast<const xmlChar*>(text.c_str());
}

// A document's text in UTF-8, by the options of xmlsave.h. Throws ResultError or std::bad_alloc without
// memory.
std::string Save(xmlDoc& document, int options);

// Looks out for the library's running out of memory for as long as it lives, also where the library's own
// results don't tell, and keeps the library from printing. Whatever handlers the thread had come back at the
// end.
class MemoryWatch {
public:
    MemoryWatch() {
        xmlSetStructuredErrorFunc(this, OnError);
        xmlSetGenericErrorFunc(nullptr, OnMessage);  // some messages go this way alone
    }
    ~MemoryWatch() {
        xmlSetStructuredErrorFunc(errorContext_, errorHandler_);
        xmlSetGenericErrorFunc(messageContext_, messageHandler_);
    }
    MemoryWatch(const MemoryWatch&) = delete;
    MemoryWatch& operator=(const MemoryWatch&) = delete;

    void ThrowIfExhausted() const {
        if (exhausted_) ThrowResult(ResultOutOfMemory);
    }

private:
    static void OnError(void* self, xmlErrorPtr error) {
        constexpr int queryMemory =
            static_cast<int>(XML_XPATH_EXPRESSION_OK) + static_cast<int>(XPATH_MEMORY_ERROR);
        if (error->code == XML_ERR_NO_MEMORY || error->code == queryMemory)
            static_cast<MemoryWatch*>(self)->exhausted_ = true;
    }
    static void OnMessage(void*, const char*, ...) {}

    xmlStructuredErrorFunc errorHandler_ = xmlStructuredError;
    void* errorContext_ = xmlStructuredErrorContext;
    xmlGenericErrorFunc messageHandler_ = xmlGenericError;
    void* messageContext_ = xmlGenericErrorContext;
    bool exhausted_ = false;
};

using OwnedDocument = std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)>;
using QueryContext = std::unique_ptr<xmlXPathContext, decltype(&xmlXPathFreeContext)>;

// One parsed document with what hangs on it: its query context, made when a query first needs it, and the
// nodes taken out of it, which stay because somebody may still hold them.
struct Tree {
    explicit Tree(OwnedDocument document) : Document(document.release()) {}
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;
    ~Tree();
    void FreeRemoved() noexcept {
        for (xmlNodePtr node : Removed) xmlFreeNode(node);
        Removed.clear();
    }
    // Makes room for keeping so many nodes more. Throws ResultError.
    void MakeRoom(std::size_t count) {
        if (Removed.capacity() - Removed.size() >= count) return;
        WithOneMemoryError([&] { Removed.reserve(2 * Removed.size() + count); });
    }
    // Unlinks a node and keeps it, where there is room.
    void Keep(xmlNodePtr node) noexcept {
        if (node->prev != nullptr && node->next != nullptr && node->prev->type == node->next->type) {
            TextsMeet |= node->prev->type == XML_TEXT_NODE;
            SectionsMeet |= node->prev->type == XML_CDATA_SECTION_NODE;
        }
        xmlUnlinkNode(node);
        Removed.push_back(node);
    }

    xmlDocPtr Document;
    QueryContext Context{nullptr, xmlXPathFreeContext};
    bool SharesDictionary =
        false;  // with the document that its nodes move to, perhaps on another thread soon
    std::vector<xmlNodePtr> Removed;

    // What tells whether the document's text would load as the same tree.
    std::size_t Bytes = 0;      // that it was made of, later additions counted
    bool TextsMeet = false;     // a removal may have left texts side by side, which load as one,
    bool SectionsMeet = false;  // or CDATA sections
};

}  // namespace DeviceSpecificModule::Platform
