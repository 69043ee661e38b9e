#include <memory>
#include <string>
#include <vector>

#include "Host/Errors.h"
#include "Host/OptionTableSet.h"
#include "Host/StandardOutput.h"
#include "Host/TableListing.h"
#include "Host/Verbs.h"

namespace TicketHost {
namespace {

struct TablesOptions {
    std::string Name;
    std::string Format = "text";
};

int ListTables(const TablesOptions& options) {
    std::vector<std::string> names(OptionTableNames.begin(), OptionTableNames.end());
    if (!options.Name.empty()) {
        if (!IsOptionTableName(options.Name))
            throw InputError("unknown table " + options.Name + "; the tables are " + ListOptionTableNames());
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
    verb->add_option("--format", options->Format, "text, for a person (default), or json, with every field")
        ->check(CLI::IsMember({"text", "json"}))
        ->type_name("FORMAT");
    verb->callback([&action, options] { action = [options] { return ListTables(*options); }; });
}

}  // namespace TicketHost
