#include "Host/check/Vocabulary.h"

#include <algorithm>

#include "Host/check/WordLists.h"
#include "tables/JobKeywords.h"
#include "tables/OutputKeywords.h"

namespace TicketHost {
namespace {

using namespace DeviceSpecificModule;

constexpr std::string_view staysBesideSize = "it stays in the ticket beside the size that is put in";
constexpr std::string_view staysBesideSides =
    "it stays in the ticket beside the one-sided mode that is put in";
constexpr std::string_view staysThere = "it is not taken out of the ticket";
constexpr std::string_view staysMany = "it is not set to 1 where the device is to print one copy";
constexpr std::string_view isNotFound = "it is not found";

constexpr Values dimension = {Form::Number, nullptr, 100, 9'999'999};

constexpr ItemRow itemRows[] = {
    {ItemKind::Feature,
     "psk",
     "PageResolution",
     AtJob,
     NoLevel,
     "",
     {Form::Words, WordsOf<PageResolutionCommandTable>}},
    {ItemKind::Feature,
     "psk",
     "DocumentCollate",
     AtJob,
     NoLevel,
     "",
     {Form::Words, WordsOf<DocumentCollateCommandTable>}},
    {ItemKind::Feature,
     "psk",
     "PageOutputBin",
     AtJob,
     NoLevel,
     "",
     {Form::Words, WordsOf<PageOutputBinCommandTable>}},
    {ItemKind::Feature,
     "psk",
     "PageOutputColor",
     AtJob,
     NoLevel,
     "",
     {Form::Words, WordsOf<PageOutputColorCommandTable>}},
    {ItemKind::Feature,
     "psk",
     "JobDuplexAllDocumentsContiguously",
     AtJob,
     AtJob,
     staysBesideSides,
     {Form::Words, WordsOf<JobDuplexAllDocumentsContiguouslyCommandTable>}},
    {ItemKind::Feature,
     "psk",
     "PageOrientation",
     AtJob | AtPage,
     NoLevel,
     "",
     {Form::Words, WordsOf<PageOrientationCommandTable>}},
    {ItemKind::Feature,
     "psk",
     "DocumentBinding",
     AtJob,
     NoLevel,
     "",
     {Form::Words, WordsOf<DocumentBindingCommandTable>}},
    {ItemKind::Feature,
     "psk",
     "JobNUpAllDocumentsContiguously",
     AtJob,
     NoLevel,
     "",
     {Form::Words, WordsOf<JobNUpAllDocumentsContiguouslyCommandTable>}},
    {ItemKind::Feature, "psk", "JobStapleAllDocuments", AtJob, NoLevel, ""},
    {ItemKind::Feature, "psk", "PageOutputQuality", AtJob, AtJob | AtPage, staysThere},
    {ItemKind::Feature,
     "psk",
     "PageMediaSize",
     AtAll,
     AtDocument,
     staysBesideSize,
     {Form::MediaSize, MediaSizeWords}},
    {ItemKind::Feature, "psk", "PageMediaType", AtJob | AtPage, NoLevel, "", {Form::Words, MediaTypeWords}},
    {ItemKind::Feature, "psk", "PageInputBin", AtJob | AtPage, NoLevel, "", {Form::Words, InputBinWords}},
    {ItemKind::Parameter,
     "psk",
     "JobCopiesAllDocuments",
     AtJob,
     AtJob,
     staysMany,
     {Form::Number, nullptr, 1, 65'535}},
    {ItemKind::Parameter, "psk", "PageMediaSizeMediaSizeWidth", AtAll, NoLevel, "", dimension},
    {ItemKind::Parameter, "psk", "PageMediaSizeMediaSizeHeight", AtAll, NoLevel, "", dimension},
    {ItemKind::Parameter, "ns0000", "PageDevmodeSnapshot", NoLevel, AtAll, staysThere},
    {ItemKind::Parameter, "ns0000", "JobXRJobCustomCount", NoLevel, AtJob, isNotFound},
    {ItemKind::Parameter, "ns0000", "DocXRDocCustomCount", NoLevel, AtJob, isNotFound},
    {ItemKind::Parameter, "ns0000", "PageXRPageCustomCount", NoLevel, AtJob, isNotFound},
};

constexpr Values tenths = {Form::Number, nullptr, 1, 99'999};

constexpr PropertyRow propertyRows[] = {
    {"PAPER_SIZE", {Form::MediaSize, MediaSizeWords}},
    {"CUSTOM_PAPER_SIZE_WIDTH", tenths},
    {"CUSTOM_PAPER_SIZE_HEIGHT", tenths},
    {"PageOrientation", {Form::Words, WordsOf<PageOrientationCommandTable>}},
    {"JobDuplexAllDocumentsContiguously",
     {Form::Words, WordsOf<JobDuplexAllDocumentsContiguouslyCommandTable>}},
    {"encryptionPassphrase_Flag", {Form::Number, nullptr, 0, 1}},
};

}  // namespace

std::span<const ItemRow> ItemRows() { return itemRows; }

std::span<const PropertyRow> PropertyRows() { return propertyRows; }

const SettingRow* FindSetting(std::string_view name) {
    const auto rows = SettingRows();
    const auto row = std::ranges::find(rows, name, &SettingRow::Name);
    return row == rows.end() ? nullptr : &*row;
}

}  // namespace TicketHost
