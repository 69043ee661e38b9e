#include "Host/capabilities/Capabilities.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Host/check/Vocabulary.h"
#include "Host/check/WordLists.h"
#include "Host/jobs/OptionTableSet.h"
#include "Host/tickets/PrintTicket.h"
#include "pages/PageSize.h"

namespace TicketHost {
namespace {

using Platform::XmlElement;
using Elements = std::vector<XmlElement>;

// What the schema asks of a parameter and the vocabulary doesn't tell. A ticket that says how copies are
// collated and not how many there are makes a line without a number, so each is to say it. The device has no
// custom size of its own to begin with; that of A4 is one.
struct ParameterTraits {
    std::string_view Name, Unit, Default, Mandatory;
};
constexpr ParameterTraits parameterTraits[] = {
    {"JobCopiesAllDocuments", "copies", "1", "psk:Unconditional"},
    {"PageMediaSizeMediaSizeWidth", "microns", "210000", "psk:Conditional"},
    {"PageMediaSizeMediaSizeHeight", "microns", "297000", "psk:Conditional"},
};

XmlElement FrameworkElement(std::string_view local) {
    XmlElement element;
    element.Name = {"psf", std::string(local), std::string(FrameworkNamespace)};
    return element;
}

void AddAttribute(XmlElement& element, const char* name, std::string value) {
    element.Attributes.push_back({{"", name, ""}, std::move(value)});
}

XmlElement Named(std::string_view local, std::string name) {
    XmlElement element = FrameworkElement(local);
    AddAttribute(element, "name", std::move(name));
    return element;
}

XmlElement Property(const char* name, const char* type, std::string_view text) {
    XmlElement value = FrameworkElement("Value");
    value.Attributes.push_back({{"xsi", "type", std::string(SchemaInstanceNamespace)}, type});
    value.Text = text;
    XmlElement property = Named("Property", name);
    property.Children.push_back(std::move(value));
    return property;
}

XmlElement Option(std::string word, Elements properties) {
    XmlElement option = Named("Option", std::move(word));
    AddAttribute(option, "constrained", "psk:None");
    option.Children = std::move(properties);
    return option;
}

// What stands in the option that a row's fragment selects.
Elements PropertiesOf(const OptionRecord& row) {
    const XmlElement root = RootOfFragment(ToUtf8(row.TicketFragment));
    if (root.Children.empty() || root.Children.front().Children.empty()) return {};
    return root.Children.front().Children.front().Children;
}

bool HasParameter(const Elements& properties) {
    return std::ranges::any_of(properties, [](const XmlElement& property) {
        return !property.Children.empty() && property.Children.front().Name.Local == "ParameterRef";
    });
}

// Of the sizes that have parameters in place of dimensions some are known whose parameters nothing reads: no
// ticket can ask for one of them.
void AddOption(const OptionRecord& row, Elements& options) {
    Elements properties = PropertiesOf(row);
    if (HasParameter(properties) && !DeviceSpecificModule::IsCustomSize(row.Keyword.View())) return;
    options.push_back(Option(WordOf(row), std::move(properties)));
}

Elements OptionsOf(const ItemRow& feature) {
    Elements options;
    if (!IsOptionTableName(feature.Name)) {
        for (const std::string& word : feature.Allowed.Words()) options.push_back(Option(word, {}));
        return options;
    }
    for (const OptionRecord& row : CopyOptionTable(feature.Name))
        if (!row.Keyword.IsNull()) AddOption(row, options);
    return options;
}

XmlElement FeatureOf(const ItemRow& row) {
    XmlElement feature = Named("Feature", row.FullName());
    feature.Children = OptionsOf(row);
    feature.Children.insert(feature.Children.begin(),
                            Property("psf:SelectionType", "xsd:QName", "psk:PickOne"));
    return feature;
}

XmlElement ParameterOf(const ItemRow& row, const ParameterTraits& traits) {
    XmlElement parameter = Named("ParameterDef", row.FullName());
    parameter.Children = {
        Property("psf:DataType", "xsd:QName", "xsd:integer"),
        Property("psf:UnitType", "xsd:string", traits.Unit),
        Property("psf:DefaultValue", "xsd:integer", traits.Default),
        Property("psf:MinValue", "xsd:integer", std::to_string(row.Allowed.Lowest)),
        Property("psf:MaxValue", "xsd:integer", std::to_string(row.Allowed.Highest)),
        Property("psf:Multiple", "xsd:integer", "1"),
        Property("psf:Mandatory", "xsd:QName", traits.Mandatory),
    };
    return parameter;
}

}  // namespace

XmlElement DescribeDevice() {
    XmlElement root = FrameworkElement("PrintCapabilities");
    for (const auto& [prefix, uri] : {std::pair{"psf", FrameworkNamespace},
                                      {"psk", KeywordsNamespace},
                                      {"ns0000", DevmodeNamespace},
                                      {"xsi", SchemaInstanceNamespace},
                                      {"xsd", SchemaNamespace}})
        root.Namespaces.push_back({prefix, std::string(uri)});
    AddAttribute(root, "version", "1");
    for (const ItemRow& row : ItemRows()) {
        if (row.Kind == ItemKind::Feature && row.Allowed.Words != nullptr)
            root.Children.push_back(FeatureOf(row));
        const auto* traits = std::ranges::find(parameterTraits, row.Name, &ParameterTraits::Name);
        if (traits != std::end(parameterTraits)) root.Children.push_back(ParameterOf(row, *traits));
    }
    return root;
}

}  // namespace TicketHost
