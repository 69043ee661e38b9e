#include "PjlContract.h"

#include "Contract.h"
#include "JobRun.h"
#include "conversion/JsonState.h"
#include "conversion/TextOperations.h"
#include "tables/JobKeywords.h"

namespace Fuzz {
namespace {

using namespace DeviceSpecificModule;

// What is left of a header while its pieces are taken off its front.
class Rest {
public:
    explicit Rest(std::u16string_view text) : whole_(text), rest_(text) {}

    bool TakeIfThere(std::u16string_view piece) {
        if (!rest_.starts_with(piece)) return false;
        rest_.remove_prefix(piece.size());
        return true;
    }
    void Take(std::u16string_view piece) { Demand(TakeIfThere(piece), "PJL holds what each job sends"); }
    // Takes what fills a place up to the line's end.
    void TakeValue() {
        const std::size_t end = rest_.find(u"\r\n");
        Demand(end != rest_.npos, "the lines of PJL end");
        rest_.remove_prefix(end);
    }
    void TakeOneOf(KeywordCommandTable table) {
        for (const KeywordCommand& row : table)
            if (!row.Command.empty() && TakeIfThere(row.Command)) return;
    }
    void End() const { Demand(rest_.empty(), "PJL holds nothing that no stage appended"); }

private:
    void Demand(bool holds, const char* contract) const {
        constexpr std::u16string_view here =
            u"\n---- from here on RequirePjl in Fuzz/PjlContract.cpp awaits something else:\n";
        if (!holds) Require(false, contract, WideText::Join({whole_, here, rest_}).View());
    }

    std::u16string_view whole_;
    std::u16string_view rest_;
};

WideText Filled(std::u16string_view format, std::initializer_list<std::u16string_view> values) {
    WideText text(format);
    for (const std::u16string_view value : values) FillFirstPlaceholder(text, value);
    return text;
}

void TakeHold(Rest& rest, const SharedJson& settings) {
    const WideText hold = LookupCustomProperty(settings, u"Hold");
    if (hold.IsEmpty()) return;
    if (hold == u"On") {
        const WideText key = LookupCustomProperty(settings, u"HoldKey");  // throws where the job did
        rest.Take(Filled(HoldCommandTable[1].Command, {key.View()}).View());
    }
    if (hold == u"Off") rest.Take(HoldCommandTable[0].Command);
    rest.Take(Filled(JobNameCommandTable[0].Command, {u"", u""}).View());
}

void TakeLog(Rest& rest) {
    rest.Take(u"@PJL PRINTLOG ITEM = 1,PRINTER\r\n@PJL PRINTLOG ITEM = 2,");
    rest.TakeValue();
    rest.Take(u"\r\n@PJL PRINTLOG ITEM = 3,\r\n@PJL PRINTLOG ITEM = 4,");
    rest.TakeValue();
    rest.Take(u"\r\n@PJL SET JOBTIME = \"");
    rest.TakeValue();
    rest.Take(u"\r\n@PJL SET MEDIATYPECHECK = ON\r\n@PJL SET STRINGCODESET = UTF8\r\n");
}

void TakeRow(Rest& rest, const OptionRecord* table, const JobRun& job) {
    const WideText width = job.Property(u"CUSTOM_PAPER_SIZE_WIDTH");
    const WideText height = job.Property(u"CUSTOM_PAPER_SIZE_HEIGHT");
    for (const OptionRecord* row = table; row != nullptr && !row->Keyword.IsNull(); ++row)
        for (const WideText* command : {&row->JobCommand, &row->FourInOneJobCommand})
            if (!command->IsEmpty() &&
                rest.TakeIfThere(Filled(command->View(), {width.View(), height.View()}).View()))
                return;
}

}  // namespace

void RequirePjl(std::u16string_view pjl, const JobRun& job) {
    const SharedJson& settings = job.Snapshot.CustomProperties;
    Rest rest(pjl);
    rest.Take(u"\x1B%-12345X@PJL\r\n");
    rest.Take(Filled(LoginUserCommandTable[0].Command, {u"", u""}).View());
    rest.TakeOneOf(PageResolutionCommandTable);
    rest.TakeOneOf(ROptCommandTable);
    TakeHold(rest, settings);
    for (const KeywordCommandTable table :
         {KeywordCommandTable(TonerSaveCommandTable), KeywordCommandTable(EcoSettingCommandTable),
          KeywordCommandTable(ImprovePrintOutCommandTable)})
        rest.TakeOneOf(table);
    TakeLog(rest);
    if (job.Tables != nullptr)
        for (const OptionRecord* table :
             {job.Tables->PageMediaSizes, job.Tables->PageMediaTypes, job.Tables->PageInputBins,
              job.Tables->SimplexPageModes, job.Tables->DuplexPageModes})
            TakeRow(rest, table, job);
    rest.End();
}

}  // namespace Fuzz
