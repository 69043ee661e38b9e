#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "CInterface/Boundary.h"
#include "devicespecific/OptionRecord.h"

namespace DeviceSpecificModule::CInterface {

// A job's copies of the device's option tables. At first all are in use.
class Tables {
public:
    Tables();
    Tables(const Tables&) = delete;
    Tables& operator=(const Tables&) = delete;

    // Throws Refusal for a name that no table has.
    void Use(std::span<const char* const> names);
    void UseNone() noexcept { isUsed_ = false; }
    // For the module; null without tables. The record stays where it is for as long as this lives.
    const OptionTables* Record() const noexcept { return isUsed_ ? &record_ : nullptr; }

    // A text of a row; null behind the last row. Throws Refusal for a table or a field that isn't there.
    WideText* FindField(const char* table, std::size_t row, std::int32_t field);

private:
    std::array<std::vector<OptionRecord>, 5> rows_;  // each with the row that ends the table
    OptionTables record_;
    bool isUsed_ = true;
};

}  // namespace DeviceSpecificModule::CInterface
