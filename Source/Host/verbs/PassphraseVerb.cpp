#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "Host/ground/Errors.h"
#include "Host/ground/Files.h"
#include "Host/ground/StandardStreams.h"
#include "Host/ground/Texts.h"
#include "Host/verbs/Verbs.h"
#include "Platform/Terminal.h"
#include "secrets/Aes.h"
#include "secrets/HexText.h"
#include "secrets/Passphrase.h"
#include "secrets/Wipe.h"

namespace TicketHost {
namespace {

using namespace DeviceSpecificModule;

constexpr const char* inputName = "standard input";

// Room for the longest passphrase and a line end, and for at least one byte that makes it too long.
using Input = std::array<char, 64>;
static_assert(std::tuple_size_v<Input> > LongestPassphrase + 2);

std::string_view WithoutLineEnd(std::string_view text) {
    if (!text.ends_with('\n')) return text;
    text.remove_suffix(text.ends_with("\r\n") ? 2 : 1);
    return text;
}

// Reads a passphrase that can be stored. The result is a view of `input`.
std::string_view ReadPassphrase(Input& input) {
    std::error_code error;
    const std::size_t count = Platform::ReadHiddenInput("Passphrase: ", input, error);
    if (error) throw InputError(inputName, error.message());
    const std::string_view passphrase = WithoutLineEnd(std::string_view(input.data(), count));
    if (passphrase.empty()) throw InputError(inputName, "the passphrase is empty");
    // Further bytes would be stored but reach no key, so a passphrase with other ones would do as well.
    if (passphrase.size() > LongestPassphrase)
        throw InputError(inputName,
                         "the passphrase is longer than " + std::to_string(LongestPassphrase) + " bytes");
    // The stored form is filled up with zero bytes, so that one at the end would get lost.
    if (passphrase.find('\0') != passphrase.npos)
        throw InputError(inputName, "the passphrase holds a zero byte");
    return passphrase;
}

void PrintLine(std::string_view line) {
    StandardOutput output;
    output.Stream() << line << '\n';
    output.Send();
}

int PrintStored() {
    Wiped<Input> input;
    PrintLine(WrapPassphrase(ReadPassphrase(input.Value)));
    return 0;
}

// Looks at the stored text, which came from `source`, before it asks for the passphrase.
int CheckStored(const std::string& source, std::string_view text) {
    const std::u16string stored = UnitsOf(text);
    const std::size_t length = BytesFromHexText(stored).size();
    if (length == 0 || length % AesBlockBytes != 0)
        throw InputError(source,
                         "not a stored passphrase, which is 32 hexadecimal digits or a multiple of that");
    Wiped<PassphraseBytes> expected, given;
    UnwrapPassphrase(stored, expected.Value);
    Wiped<Input> input;
    std::ranges::copy(ReadPassphrase(input.Value), given.Value.begin());
    const bool matches = given.Value == expected.Value;
    PrintLine(matches ? "matches" : "does not match");
    return matches ? 0 : 1;
}

// Where the stored text to check stands; neither: there is nothing to check.
struct PassphraseOptions {
    std::optional<std::string> Text, File;
};

int RunPassphrase(const PassphraseOptions& options) {
    if (options.File) return CheckStored(*options.File, WithoutLineEnd(ReadFile(*options.File)));
    if (options.Text) return CheckStored("--check", *options.Text);
    return PrintStored();
}

}  // namespace

void AddPassphraseVerb(CLI::App& app, Action& action) {
    const auto options = std::make_shared<PassphraseOptions>();
    CLI::App* verb =
        app.add_subcommand("passphrase", "Wraps a queue's passphrase for \"encryptionPassphrase\"")
            ->group("Verbs");
    CLI::Option* file = verb->add_option("--check-file", options->File,
                                         "Say whether the stored text in this file stands for the passphrase")
                            ->type_name("FILE");
    verb->add_option("--check", options->Text,
                     "The same for this text, which every user of this machine can read meanwhile")
        ->type_name("TEXT")
        ->excludes(file);
    verb->footer(
        "Reads a passphrase of 1 to 20 bytes: all of the standard input or, from a terminal, one line that\n"
        "isn't shown; a line end behind the passphrase doesn't count. Prints the text to store. With\n"
        "--check-file it says instead whether the two match, and the exit status is 0 if so and 1 if not.\n"
        "\n"
        "  tickethost passphrase >stored.txt\n"
        "  printf %s \"$PASSPHRASE\" | tickethost passphrase --check-file stored.txt");
    verb->callback([&action, options] { action = [options] { return RunPassphrase(*options); }; });
}

}  // namespace TicketHost
