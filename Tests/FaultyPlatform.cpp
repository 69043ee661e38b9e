#include "FaultyPlatform.h"

#include <dlfcn.h>

#include <stdexcept>
#include <utility>

#include "Cases.h"
#include "FailingMemory.h"
#include "Platform/Clock.h"
#include "Platform/PrintQueue.h"
#include "devicespecific/platform/Identities.h"
#include "devicespecific/platform/ResultError.h"

namespace DeviceSpecificModule {
namespace {

using Platform::TicketDocument;
using Platform::TicketNode;

constinit thread_local PlatformFault* current = nullptr;

// What a call gives: that of `work`, or `nothing` where it is the one to fail.
template <typename Result, typename Work>
Result Call(PlatformFault& fault, std::string_view name, std::u16string_view of, Result nothing, Work work) {
    if (!fault.Comes(name, of)) return work();
    if (fault.IsDespite()) work();
    return nothing;
}

class PrinterBag final : public Platform::IPrinterPropertyBag {
public:
    PrinterBag(std::shared_ptr<IPrinterPropertyBag> bag, PlatformFault& fault)
        : bag_(std::move(bag)), fault_(fault) {}
    bool GetString(std::u16string_view name, WideText& value) const override {
        return Call(fault_, "GetString", name, false, [&] { return bag_->GetString(name, value); });
    }
    bool GetInt32(std::u16string_view name, std::int32_t& value) const override {
        return Call(fault_, "GetInt32", name, false, [&] { return bag_->GetInt32(name, value); });
    }

private:
    std::shared_ptr<IPrinterPropertyBag> bag_;
    PlatformFault& fault_;
};

// Its allocations are the host's and don't fail.
class PipelineBag final : public Platform::IPrintPipelinePropertyBag {
public:
    PipelineBag(Platform::PipelineBag bag, PlatformFault& fault) : bag_(std::move(bag)), fault_(fault) {}
    bool GetProperty(std::u16string_view name, Platform::PropertyValue& value) const override {
        return Call(fault_, "GetProperty", name, false, [&] {
            const FaultsHeld held;
            const bool found = bag_->GetProperty(name, value);
            auto* bag = std::get_if<std::shared_ptr<Platform::IPrinterPropertyBag>>(&value);
            if (bag != nullptr && *bag) *bag = std::make_shared<PrinterBag>(std::move(*bag), fault_);
            return found;
        });
    }
    bool AddProperty(std::u16string_view name, const Platform::PropertyValue& value) override {
        return Call(fault_, "AddProperty", name, false, [&] {
            const FaultsHeld held;
            return bag_->AddProperty(name, value);
        });
    }
    bool DeleteProperty(std::u16string_view name) override {
        return Call(fault_, "DeleteProperty", name, false, [&] { return bag_->DeleteProperty(name); });
    }

private:
    Platform::PipelineBag bag_;
    PlatformFault& fault_;
};

class Node final : public Platform::IXMLDOMNode {
public:
    Node(TicketNode node, PlatformFault& fault) : node_(std::move(node)), fault_(fault) {}
    WideText text() const override {
        return Call(fault_, "text", u"", WideText(), [&] { return node_->text(); });
    }
    bool setText(const WideText& text) override {
        return Call(fault_, "setText", text.View(), false, [&] { return node_->setText(text); });
    }
    TicketNode parentNode() const override;
    bool removeChild(const TicketNode& child) override {
        return Call(fault_, "removeChild", u"", false,
                    [&] { return node_->removeChild(dynamic_cast<const Node&>(*child).node_); });
    }
    std::size_t childNodesLength() const override {
        return Call(fault_, "childNodesLength", u"", std::size_t{0},
                    [&] { return node_->childNodesLength(); });
    }

private:
    TicketNode node_;
    PlatformFault& fault_;
};

void WrapNode(TicketNode& node, PlatformFault& fault) {
    if (node) node = std::make_shared<Node>(std::move(node), fault);
}

TicketNode Node::parentNode() const {
    return Call(fault_, "parentNode", u"", TicketNode(), [&] {
        TicketNode parent = node_->parentNode();
        WrapNode(parent, fault_);
        return parent;
    });
}

// With the general forms of what a document may do in a cheaper way.
class GeneralDocument : public Platform::IXMLDOMDocument2 {
public:
    GeneralDocument(TicketDocument document, PlatformFault& fault)
        : document_(std::move(document)), fault_(fault) {}
    bool setProperty(std::u16string_view name, std::u16string_view value) override {
        return Call(fault_, "setProperty", name, false, [&] { return document_->setProperty(name, value); });
    }
    bool selectSingleNode(std::u16string_view query, TicketNode& node) override {
        return Select("selectSingleNode", query, node,
                      [&] { return document_->selectSingleNode(query, node); });
    }
    WideText xml() const override {
        return Call(fault_, "xml", u"", WideText(), [&] { return document_->xml(); });
    }
    bool loadXML(const WideText& text, Platform::ParseError* error) override {
        return Call(fault_, "loadXML", u"", false, [&] { return document_->loadXML(text, error); });
    }

protected:
    template <typename Work>
    bool Select(std::string_view call, std::u16string_view query, TicketNode& node, Work work) {
        node = nullptr;
        return Call(fault_, call, query, false, [&] {
            const bool result = work();
            WrapNode(node, fault_);
            return result;
        });
    }

    TicketDocument document_;
    PlatformFault& fault_;
};

class Document final : public GeneralDocument {
public:
    using GeneralDocument::GeneralDocument;
    bool selectPath(Platform::Path path, TicketNode& node) override {
        return Select("selectPath", QueryOf(path).View(), node,
                      [&] { return document_->selectPath(path, node); });
    }
    bool selectSeries(Platform::Path path, std::size_t numbered,
                      Platform::ArrayView<TicketNode> nodes) override {
        return Call(fault_, "selectSeries", QueryOf(path).View(), false, [&] {
            const bool result = document_->selectSeries(path, numbered, nodes);
            for (TicketNode& node : nodes) WrapNode(node, fault_);
            return result;
        });
    }
    bool appendToRoot(std::u16string_view root, const WideText& fragments) override {
        return Call(fault_, "appendToRoot", root, false,
                    [&] { return document_->appendToRoot(root, fragments); });
    }
};

}  // namespace

PlatformFault::PlatformFault(PlatformFailure failure, long number) : failure_(failure), left_(number) {
    current = this;
}

PlatformFault::~PlatformFault() { current = nullptr; }

Platform::PipelineBag PlatformFault::Wrap(Platform::PipelineBag bag) {
    return std::make_shared<PipelineBag>(std::move(bag), *this);
}

TicketDocument PlatformFault::Wrap(TicketDocument document, bool usesGeneralForms) {
    if (usesGeneralForms) return std::make_shared<GeneralDocument>(std::move(document), *this);
    return std::make_shared<Document>(std::move(document), *this);
}

bool PlatformFault::Comes(std::string_view call, std::u16string_view name) {
    if (left_ < 0 || left_-- > 0) return false;
    failed_ = std::string(call) + " " + Narrow(WideText(name));
    if (failure_ == PlatformFailure::ResultError) Platform::ThrowResult(InjectedResult);
    if (failure_ == PlatformFailure::StandardError) throw std::runtime_error(InjectedReason);
    return true;
}

namespace {

// The platform's own function, in place of which this program's stands, by its name for the linker.
template <typename Function>
Function Own(const char* name) {
    void* const found = dlsym(RTLD_NEXT, name);
    if (found == nullptr) throw std::runtime_error(std::string("the platform has no ") + name);
    return reinterpret_cast<Function>(found);
}

template <typename Result, typename Work>
Result CallFunction(const char* name, Result nothing, Work work) {
    return current == nullptr ? work() : Call(*current, name, u"", nothing, work);
}

}  // namespace
}  // namespace DeviceSpecificModule

// These stand in front of the platform library's for the whole test program and, but for a fault, call them.
namespace DeviceSpecificModule::Platform {

using DeviceSpecificModule::CallFunction;
using DeviceSpecificModule::Own;

bool GetFirstDocumentName(const WideText& queue, WideText& name) {
    static const auto own = Own<decltype(&GetFirstDocumentName)>(
        "_ZN20DeviceSpecificModule8Platform20GetFirstDocumentNameERKNS0_8WideTextERS1_");
    return CallFunction("GetFirstDocumentName", false, [&] { return own(queue, name); });
}

WideText GetNameOfUser(TokenHandle token) {
    static const auto own =
        Own<decltype(&GetNameOfUser)>("_ZN20DeviceSpecificModule8Platform13GetNameOfUserENS0_11TokenHandleE");
    return CallFunction("GetNameOfUser", WideText(u""), [&] { return own(token); });
}

WideText GetNameOfComputer() {
    static const auto own =
        Own<decltype(&GetNameOfComputer)>("_ZN20DeviceSpecificModule8Platform17GetNameOfComputerEv");
    return CallFunction("GetNameOfComputer", WideText(u""), [&] { return own(); });
}

std::int64_t GetSystemSeconds() {
    static const auto own =
        Own<decltype(&GetSystemSeconds)>("_ZN20DeviceSpecificModule8Platform16GetSystemSecondsEv");
    return CallFunction("GetSystemSeconds", std::int64_t{0}, [&] { return own(); });
}

bool ToLocalTime(std::int64_t seconds, LocalTime& time) {
    static const auto own =
        Own<decltype(&ToLocalTime)>("_ZN20DeviceSpecificModule8Platform11ToLocalTimeElRNS0_9LocalTimeE");
    return CallFunction("ToLocalTime", false, [&] { return own(seconds, time); });
}

}  // namespace DeviceSpecificModule::Platform
