#pragma once

#include <libxml/globals.h>
#include <libxml/tree.h>
#include <libxml/xmlerror.h>
#include <libxml/xpath.h>

#include <cstddef>
#include <memory>
#include <vector>

#include "Platform/ResultError.h"

namespace Platform {

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

// One parsed document with what hangs on it: its query context, and the nodes taken out of it, which stay
// because somebody may still hold them.
struct Tree {
    explicit Tree(OwnedDocument document) : Document(document.release()) {}
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;
    ~Tree() {
        Context.reset();
        for (xmlNodePtr node : Removed) xmlFreeNode(node);
        xmlFreeDoc(Document);
    }
    // Makes room for keeping so many nodes more.
    void MakeRoom(std::size_t count) {
        if (Removed.capacity() - Removed.size() < count) Removed.reserve(2 * Removed.size() + count);
    }
    // Unlinks a node and keeps it, where there is room.
    void Keep(xmlNodePtr node) noexcept {
        xmlUnlinkNode(node);
        Removed.push_back(node);
    }

    xmlDocPtr Document;
    QueryContext Context{nullptr, xmlXPathFreeContext};
    std::vector<xmlNodePtr> Removed;
};

}  // namespace Platform
