#include <gtest/gtest.h>
#include <json/writer.h>

#include "Support.h"
#include "secrets/SecretPreparation.h"
#include "stages/CopySecurity.h"

namespace DeviceSpecificModule {
namespace {

constexpr CopySecurityFormats formats = {
    .String = u"S(%s)",
    .Number = u"N(%s,%s)",
    .Fields = u"F(%s)",
    .DateTime = u"D(%s,%s)",
    .Style = u"Y(%s,%s,%s,%s,%s,%s,%s)",
    .Password = u"P(%s)",
};

// Settings and the commands that they give.
const char* const casesFile = "secrets/copy-security.json";

// The settings that set everything but the password, and what they give up to the style and from there on.
struct FullSet {
    const Json::Value Case = ReadCases(casesFile)[0];
    const Json::Value Settings = Case[0];
    const std::string Text = Case[1].asString(), Head = Text.substr(0, Text.find('Y')),
                      Style = Text.substr(Head.size());
};

// A converter with copy security on, unless the settings say otherwise.
PTConverter MakeConverter(const Json::Value& settings) {
    auto properties = std::make_shared<Json::Value>();
    (*properties)["features"] = settings;
    if (!settings.isMember("CopySecurity")) (*properties)["features"]["CopySecurity"] = "On";
    PTConverter converter;
    converter.Pipeline = std::make_shared<Platform::MemoryPipelineBag>();
    converter.CustomProperties = properties;
    converter.PjlText = WideText(u"");
    return converter;
}

std::string Commands(const Json::Value& settings) {
    PTConverter converter = MakeConverter(settings);
    AppendCopySecurity(converter, formats);
    return Narrow(converter.PjlText);
}

TEST(CopySecurity, FillsItsFormats) {
    for (const Json::Value& row : ReadCases(casesFile))
        EXPECT_EQ(Commands(row[0]), row[1].asString()) << row[0];
}

// The words of the items that are on, in order; the others and the two slots too many say OFF.
TEST(CopySecurity, ListsTheFieldsOfEveryCombination) {
    const char* const items[][2] = {
        {"CopyProtectString", "FIXED"},
        {"CopyProtectDateTime", "DATE"},
        {"CopyProtectDateTimeTimeCheck", "TIME"},
        {"CopyProtectSerialNumber", "SERIALNUMBER"},
        {"CopyProtectDistributionNumber", "NUMBERING"},
        {"CopyProtectJobNumber", "JOBID"},
    };
    const FullSet full;
    Json::Value settings = full.Settings;
    for (unsigned mask = 0; mask < 64; ++mask) {
        std::string words, off = ",OFF,OFF";
        for (unsigned item = 0; item < 6; ++item) {
            const bool on = (mask >> item & 1) != 0;
            settings[items[item][0]] = on ? "On" : "Off";
            (on ? words : off) += std::string(",") + (on ? items[item][1] : "OFF");
        }
        const std::string list = (mask == 0 ? "" : words.substr(1)) + off;
        EXPECT_EQ(Commands(settings), std::string(mask & 1 ? "S(6)" : "") + (mask & 16 ? "N(FIXED,17)" : "") +
                                          "F(" + list + ")D(" + (mask & 2 ? "Date4," : "OFF,") +
                                          (mask & 4 ? "Time2)" : "OFF)") + full.Style)
            << mask;
    }
}

// Each setting in turn is one that can't be read: what was appended by then shows when it is read.
TEST(CopySecurity, ReadsAndAppendsInOrder) {
    const FullSet full;
    const std::pair<const char*, std::string> cases[] = {
        {"CopySecurity", ""},
        {"CopyProtectStringType", ""},
        {"CopyProtectDateTime", "S(6)"},
        {"CopyProtectDistributionNumberStartNumber", "S(6)"},
        {"CopyProtectJobNumber", "S(6)N(FIXED,17)"},
        {"CopyProtectTextAngle", full.Head},
        {"CopySecurityOption", full.Text},
        {"PWDCopyKey", full.Text},
    };
    for (const auto& [key, expected] : cases) {
        Json::Value settings = full.Settings;
        settings["CopySecurityOption"] = "PasswordCopy";
        settings[key] = Json::arrayValue;
        PTConverter converter = MakeConverter(settings);
        EXPECT_THROW(AppendCopySecurity(converter, formats), Json::Exception) << key;
        EXPECT_EQ(Narrow(converter.PjlText), expected) << key;
    }
}

TEST(CopySecurity, ProtectsThePassword) {
    const FullSet full;
    Json::Value settings = full.Settings;
    settings["CopySecurityOption"] = "PasswordCopy";
    for (const char* password : {"", "secret"}) {
        if (*password != '\0') settings["PWDCopyKey"] = password;
        PTConverter converter = MakeConverter(settings);
        EXPECT_THROW(AppendCopySecurity(converter, formats), std::out_of_range);  // no "EncryptionID"
        EXPECT_EQ(Narrow(converter.PjlText), full.Text);
        converter.Pipeline->AddProperty(u"EncryptionID", WideText(u"[1,2]"));
        AppendCopySecurity(converter, formats);
        const std::string digits = Narrow(ProtectJobSecret(converter, Wide(password)));
        EXPECT_EQ(Narrow(converter.PjlText), full.Text + full.Text + "P(" + digits + ")");
    }
}

}  // namespace
}  // namespace DeviceSpecificModule
