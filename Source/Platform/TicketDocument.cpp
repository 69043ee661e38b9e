#include "Platform/TicketDocument.h"

namespace Platform {

// Here rather than in the header, so that the types have one home that all their users share.
IXMLDOMNode::~IXMLDOMNode() = default;
IXMLDOMDocument2::~IXMLDOMDocument2() = default;

}  // namespace Platform
