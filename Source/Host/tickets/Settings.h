#pragma once

#include <json/value.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Host/tickets/PrintTicket.h"

namespace TicketHost {

// A ticket carries the user's settings as JSON, { "features": { NAME: text }, "paraminits": { NAME: text or
// number } }, cut into numbered parameters of the vendor's namespace: a series for each scope, in the order
// in which they are merged, a later one's member in place of an earlier one's. Only the job ticket's are
// read.
struct SettingsSeries {
    std::string_view Scope;  // for a person
    std::string_view Count;  // the local name of the parameter that says how many pieces there are
    std::string_view Piece;  // of each piece, without its three digits
};
inline constexpr std::array<SettingsSeries, 3> AllSettingsSeries = {
    {{"job", "JobXRJobCustomCount", "JobXRJobCustomProperties"},
     {"document", "DocXRDocCustomCount", "DocumentXRDocumentCustomProperties"},
     {"page", "PageXRPageCustomCount", "PageXRPageCustomProperties"}}};

// The two objects of a series' JSON that are read, in the order in which a name is looked for.
inline constexpr std::array<const char*, 2> SettingsGroups = {"features", "paraminits"};

// A piece that stands in the ticket.
struct SettingsPiece {
    std::size_t Index = 0;
    std::string Text;
    std::string Path;  // finds its psf:ParameterInit, as TicketItem::Path
    int Line = 0;
};

// JSON as the module reads it: comments allowed, and what was read ahead of a fault counts.
struct SettingsJson {
    Json::Value Values;         // the members up to the first fault, as they are read
    bool IsWellFormed = false;  // or empty
    std::size_t FaultAt = 0;    // where it isn't: the byte of the text,
    std::string FaultCause;     // and why
};
SettingsJson ReadSettingsJson(const std::string& text);

// A series that stands in a ticket.
struct TicketSettings : SettingsJson {
    const SettingsSeries* Series = nullptr;
    std::string CountText;              // as it stands
    std::int64_t Count = 0;             // as it is read: the digits in front; 0 where there are none
    std::string CountPath;              // finds its psf:ParameterInit
    int Line = 0;                       // of the count
    std::vector<SettingsPiece> Pieces;  // by index, those too that the count leaves out
    std::string Text;                   // of those that are counted, joined: the JSON
};

inline bool IsCounted(const TicketSettings& settings, const SettingsPiece& piece) {
    return static_cast<std::int64_t>(piece.Index) < settings.Count;
}

// The series of a ticket whose counts stand there, in their order.
std::vector<TicketSettings> ReadSettings(const Platform::XmlElement& root);

// A byte of the joined text: its piece, and where in that it stands.
struct PiecePlace {
    const SettingsPiece& Piece;
    std::size_t At;
};

// The text, which must not be empty, ends in its last piece.
PiecePlace PlaceInPieces(const TicketSettings& settings, std::size_t byte);

// The series as JSON text, as it can stand in one piece.
std::string WriteSettings(const Json::Value& values);

}  // namespace TicketHost
