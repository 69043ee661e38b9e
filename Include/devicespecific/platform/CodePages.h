#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "devicespecific/platform/Export.h"
#include "devicespecific/platform/WideText.h"

/// @file
/// Texts to bytes and back. A thread's code page is the thread's own; everything else may be called on any
/// thread at the same time. All conversions throw ResultError (ResultOutOfMemory) without memory.

namespace DeviceSpecificModule::Platform {

/// How bytes are to be read as text, and texts written as bytes.
enum class CodePage {
    Utf8,    ///< whatever the locale
    Thread,  ///< what SetThreadCodePage set, else the codeset of the thread's locale; UTF-8 for the "C"
             ///< locale
    System,  ///< the codeset of the locale that the process's environment names, by the same rule
};

/// Sets the code page of the calling thread: any name that the platform's converters know, or an empty name
/// to go back to the locale's. Unknown names are taken and make conversions through CodePage::Thread fail.
DEVICESPECIFIC_API void SetThreadCodePage(std::string_view name);
/// What was set last for the calling thread; empty where that is the locale's.
DEVICESPECIFIC_API std::string GetThreadCodePage();

/// Converts all bytes, zero bytes included. Each byte that is no text of the code page becomes U+FFFD. Gives
/// false, and leaves `text` as it was, only for an unknown code page.
DEVICESPECIFIC_API bool ConvertToWide(CodePage page, std::string_view bytes, WideText& text);

/// The way back. Each character that the code page doesn't have, and each lone surrogate, becomes U+FFFD
/// where the code page has that, as UTF-8 does, else "?". Gives false, and leaves `bytes` as it was, only for
/// an unknown code page.
DEVICESPECIFIC_API bool ConvertFromWide(CodePage page, std::u16string_view units, std::string& bytes);

/// The same for a secret. `take` gets its bytes in order, those of one character at a time, and nothing else
/// keeps them: what held them here is wiped. The platform's own converter can't be wiped, but never has more
/// than one character, so that at most the last one stays behind in its memory.
DEVICESPECIFIC_API bool ConvertSecretFromWide(CodePage page, std::u16string_view units,
                                              const std::function<void(std::string_view)>& take);

}  // namespace DeviceSpecificModule::Platform
