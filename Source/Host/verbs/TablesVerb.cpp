#include <algorithm>
#include <memory>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Host/ground/Errors.h"
#include "Host/ground/Json.h"
#include "Host/ground/StandardStreams.h"
#include "Host/ground/Texts.h"
#include "Host/jobs/OptionTableSet.h"
#include "Host/verbs/ChoiceOptions.h"
#include "Host/verbs/Verbs.h"

namespace TicketHost {
namespace {

using Platform::WideText;

enum class Show { Text, Presence };

struct Column {
    const char* Heading;
    WideText OptionRecord::*Field;
    Show Form;
};

constexpr Column columns[] = {
    {"Keyword", &OptionRecord::Keyword, Show::Text},
    {"Prefix", &OptionRecord::NamespacePrefix, Show::Text},
    {"Pair", &OptionRecord::PairedKeyword, Show::Text},
    {"Device name", &OptionRecord::DeviceName, Show::Text},
    {"Ticket", &OptionRecord::TicketFragment, Show::Presence},
    {"PJL", &OptionRecord::JobCommand, Show::Presence},
    {"4in1 PJL", &OptionRecord::FourInOneJobCommand, Show::Presence},
    {"PostScript", &OptionRecord::PostScriptCommand, Show::Presence},
    {"Extra", &OptionRecord::ExtraText, Show::Presence},
    {"Data line", &OptionRecord::DataCommand, Show::Text},
};

struct JsonField {
    const char* Name;
    WideText OptionRecord::*Field;
};

constexpr JsonField jsonFields[] = {
    {"Keyword", &OptionRecord::Keyword},
    {"PairedKeyword", &OptionRecord::PairedKeyword},
    {"TicketFragment", &OptionRecord::TicketFragment},
    {"JobCommand", &OptionRecord::JobCommand},
    {"FourInOneJobCommand", &OptionRecord::FourInOneJobCommand},
    {"NamespacePrefix", &OptionRecord::NamespacePrefix},
    {"PostScriptCommand", &OptionRecord::PostScriptCommand},
    {"DataCommand", &OptionRecord::DataCommand},
    {"ExtraText", &OptionRecord::ExtraText},
    {"DeviceName", &OptionRecord::DeviceName},
};

// The table's rows without the one that ends it.
std::vector<OptionRecord> RowsOf(const std::string& name) {
    std::vector<OptionRecord> rows = CopyOptionTable(name);
    rows.erase(std::find_if(rows.begin(), rows.end(), [](const auto& row) { return row.Keyword.IsNull(); }),
               rows.end());
    return rows;
}

// The tables say that a text has no content by leaving it empty or by "0".
bool HasContent(const WideText& text) { return !text.IsEmpty() && text != u"0"; }

// "-" is an empty text, "x" the content of one that isn't shown.
std::string CellOf(const OptionRecord& row, const Column& column) {
    const WideText& text = row.*column.Field;
    if (text.IsEmpty()) return "-";
    return column.Form == Show::Text || !HasContent(text) ? Visible(ToUtf8(text)) : "x";
}

// A column's cells, its heading on top, filled up to one width.
std::vector<std::string> CellsOf(const std::vector<OptionRecord>& rows, const Column& column) {
    std::vector<std::string> cells = {column.Heading};
    for (const OptionRecord& row : rows) cells.push_back(CellOf(row, column));
    std::size_t width = 0;
    for (const std::string& cell : cells) width = std::max(width, CountCharacters(cell));
    for (std::string& cell : cells) cell.append(width - CountCharacters(cell), ' ');
    return cells;
}

// The columns of which some row has content.
std::vector<std::vector<std::string>> ColumnsOf(const std::vector<OptionRecord>& rows) {
    std::vector<std::vector<std::string>> shown;
    for (const Column& column : columns) {
        const auto hasContent = [&](const OptionRecord& row) { return HasContent(row.*column.Field); };
        if (std::ranges::any_of(rows, hasContent)) shown.push_back(CellsOf(rows, column));
    }
    return shown;
}

// The cells of one row, in as many lines as they need. All rows break at the same columns, since the cells of
// a column have one width.
std::vector<std::string> LinesOf(const std::vector<std::vector<std::string>>& shown, std::size_t row,
                                 std::size_t width) {
    std::vector<std::string> lines(1);
    std::size_t used = 0;
    for (const std::vector<std::string>& cells : shown) {
        used += 2 + CountCharacters(cells[row]);
        if (used > width && !lines.back().empty()) {
            lines.emplace_back("    ");
            used = 6 + CountCharacters(cells[row]);
        }
        lines.back() += "  " + cells[row];
    }
    return lines;
}

// For a person: how many rows there are, and of each what identifies it, which of its other texts have
// content and its data line, in lines that fit the terminal.
void ListTable(std::ostream& out, const std::string& name) {
    const std::vector<OptionRecord> rows = RowsOf(name);
    out << name << ": " << rows.size() << (rows.size() == 1 ? " row\n" : " rows\n");
    const std::vector<std::vector<std::string>> shown = ColumnsOf(rows);
    for (std::size_t row = 0; row <= rows.size(); ++row)
        for (const std::string& line : LinesOf(shown, row, OutputWidth()))
            out << line.substr(0, line.find_last_not_of(' ') + 1) << "\n";
}

void ListTablesAsText(std::ostream& out, std::span<const std::string> names) {
    const char* separator = "";
    for (const std::string& name : names) {
        out << separator;
        ListTable(out, name);
        separator = "\n";
    }
}

// One object: under each table's name its rows, with all their fields.
void ListTablesAsJson(std::ostream& out, std::span<const std::string> names) {
    JsonWriter json(out);
    const char* tableSeparator = "\n";
    out << "{";
    for (const std::string& name : names) {
        out << tableSeparator << "  \"" << name << "\": [";
        const char* rowSeparator = "\n";
        for (const OptionRecord& row : RowsOf(name)) {
            out << rowSeparator << "    {\n      \"Id\": " << row.Id;
            for (const auto& [field, member] : jsonFields) {
                out << ",\n      \"" << field << "\": ";
                json.Write(row.*member);
            }
            out << "\n    }";
            rowSeparator = ",\n";
        }
        out << "\n  ]";
        tableSeparator = ",\n";
    }
    out << "\n}\n";
}

struct TablesOptions {
    std::string Name;
    std::string Format = "text";
};

int ListTables(const TablesOptions& options) {
    std::vector<std::string> names(OptionTableNames.begin(), OptionTableNames.end());
    if (!options.Name.empty()) {
        if (!IsOptionTableName(options.Name))
            throw InputError("unknown table " + DescribeUnknownTable(options.Name, options.Name));
        names.assign(1, options.Name);
    }
    StandardOutput output;
    if (options.Format == "json")
        ListTablesAsJson(output.Stream(), names);
    else
        ListTablesAsText(output.Stream(), names);
    output.Send();
    return 0;
}

}  // namespace

void AddTablesVerb(CLI::App& app, Action& action) {
    const auto options = std::make_shared<TablesOptions>();
    CLI::App* verb = app.add_subcommand("tables", "Lists the device's option tables")->group("Verbs");
    verb->add_option("NAME", options->Name, "One table alone: " + ListOptionTableNames());
    AddChoice(*verb, "--format", "FORMAT", options->Format, {"text", "json"},
              "text, for a person (default), or json, with every field");
    verb->callback([&action, options] { action = [options] { return ListTables(*options); }; });
}

}  // namespace TicketHost
