#include "Tickets.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "ticket/TicketNamespaces.h"

namespace Benchmarks {
namespace {

constexpr std::string_view openRoot =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<psf:PrintTicket version=\"1\" "
    "xmlns:psf=\"" FRAMEWORK_NAMESPACE "\" xmlns:psk=\"" KEYWORDS_NAMESPACE
    "\" xmlns:ns0000=\"" DEVMODE_NAMESPACE
    "\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
    "xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\">";

// What page calls ask for, then what job calls do.
constexpr std::array<std::string_view, 13> askedFeatures = {
    R"(<psf:Feature name="psk:PageMediaType"><psf:Option name="psk:Plain"/></psf:Feature>)",
    R"(<psf:Feature name="psk:PageInputBin"><psf:Option name="psk:AutoSelect"/></psf:Feature>)",
    R"(<psf:Feature name="psk:PageMediaSize"><psf:Option name="psk:ISOA4"><psf:ScoredProperty name="psk:MediaSizeWidth">)"
    R"(<psf:Value xsi:type="xsd:integer">210000</psf:Value></psf:ScoredProperty></psf:Option></psf:Feature>)",
    R"(<psf:Feature name="psk:PageOutputQuality"><psf:Option name="psk:Normal"/></psf:Feature>)",
    R"(<psf:Feature name="psk:PageOrientation"><psf:Option name="psk:Portrait"/></psf:Feature>)",
    R"(<psf:Feature name="psk:PageResolution"><psf:Option name="ns0000:DPI600"/></psf:Feature>)",
    R"(<psf:Feature name="psk:DocumentCollate"><psf:Option name="psk:Uncollated"/></psf:Feature>)",
    R"(<psf:Feature name="psk:JobDuplexAllDocumentsContiguously"><psf:Option name="psk:OneSided"/></psf:Feature>)",
    R"(<psf:Feature name="psk:PageOutputBin"><psf:Option name="ns0000:Bin1"/></psf:Feature>)",
    R"(<psf:Feature name="psk:PageOutputColor"><psf:Option name="psk:Grayscale"/></psf:Feature>)",
    R"(<psf:Feature name="psk:DocumentBinding"><psf:Option name="psk:BindLeft"/></psf:Feature>)",
    R"(<psf:Feature name="psk:JobNUpAllDocumentsContiguously"><psf:Option name="ns0000:_2"/></psf:Feature>)",
    R"(<psf:Feature name="psk:JobStapleAllDocuments"><psf:Option name="psk:StapleTopLeft"/></psf:Feature>)",
};

std::string ThreeDigits(int number) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%03d", number);
    return digits;
}

std::string Replaced(std::string text, std::string_view part, std::string_view by) {
    const std::size_t place = text.find(part);
    if (place == text.npos) throw std::runtime_error("no " + std::string(part) + " in a sample");
    return text.replace(place, part.size(), by);
}

std::string OtherFeature(int number) {
    return "\n  <psf:Feature name=\"ns0000:PageFinishingSetting" + ThreeDigits(number) +
           "\">\n    <psf:Option name=\"ns0000:RequestedChoice" + ThreeDigits(number % 7) +
           "\" constrained=\"psk:None\">\n      <psf:ScoredProperty "
           "name=\"ns0000:RequestedStrengthOfSetting\">\n"
           "        <psf:Value xsi:type=\"xsd:integer\">" +
           std::to_string(1000 * number) +
           "</psf:Value>\n      </psf:ScoredProperty>\n    </psf:Option>\n  </psf:Feature>";
}

std::string Parameter(std::string_view name, std::string_view value) {
    std::string parameter = "<psf:ParameterInit name=\"ns0000:";
    return parameter.append(name)
        .append("\"><psf:Value>")
        .append(value)
        .append("</psf:Value></psf:ParameterInit>");
}

std::string Exception(int page) {
    return R"({\"PageNumber\": \")" + std::to_string(page) +
           R"(\", \"PrintType\": \"SameAsBody\", \"TabPaper\": \"DoNotUse\", \"TextOnTab\": \"\", )"
           R"(\"PaperTray\": \"Tray2\", \"Staple\": \"SameAsBody\"})";
}

}  // namespace

std::string Ticket(int features, std::string_view parameters) {
    const int asked = std::min(features, static_cast<int>(askedFeatures.size()));
    std::string ticket(openRoot);
    for (int number = 0; number < features; ++number) {
        // The next asked one stands wherever this grows.
        const int place = number * asked / features;
        const bool isAsked = number == 0 || place != (number - 1) * asked / features;
        ticket += isAsked ? "\n  " + std::string(askedFeatures[place]) : OtherFeature(number);
    }
    ticket.append(parameters).append(Parameter("PageDevmodeSnapshot", "AAEC"));
    return ticket.append("\n</psf:PrintTicket>\n");
}

std::string Settings(std::string_view outputSize) {
    std::ifstream file(SAMPLES_DIR "/tickets/all-settings.xml");
    const std::string sample{std::istreambuf_iterator<char>(file), {}};
    const std::size_t begin = sample.find("<psf:ParameterInit name=\"ns0000:JobXRJobCustomCount\"");
    const std::size_t end = sample.find("<psf:ParameterInit name=\"ns0000:PageDevmodeSnapshot\"");
    if (begin == sample.npos || end == sample.npos) throw std::runtime_error("no settings in the sample");
    std::string others;  // the sample has 126 settings
    for (int number = 0; number < 34; ++number) others += "\"Other" + ThreeDigits(number) + "\": \"Off\", ";
    std::string settings =
        Replaced(sample.substr(begin, end - begin), "{\"features\": {", "{\"features\": {" + others);
    return Replaced(std::move(settings), "UsePaperSize", outputSize);
}

std::string Exceptions(int count, std::size_t pieceLength) {
    std::string json = R"({"features": {"PerPageSetting": "On", "PerPagePageDetails": "[)";
    for (int page = 1; page <= count; ++page) json.append(page == 1 ? "" : ",").append(Exception(page));
    json += R"(]", "OutPSize": "ISOA5"}})";
    std::string pieces;
    int index = 0;
    for (std::size_t start = 0; start < json.size(); start += pieceLength)
        pieces +=
            Parameter("JobXRJobCustomProperties" + ThreeDigits(index++), json.substr(start, pieceLength));
    return Parameter("JobXRJobCustomCount", std::to_string(index)) + pieces;
}

}  // namespace Benchmarks
