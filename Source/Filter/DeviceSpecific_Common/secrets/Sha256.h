#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace DeviceSpecificModule {

using Sha256Bytes = std::array<std::uint8_t, 32>;

// Writes the SHA-256 digest (FIPS 180-4) of `length` bytes at `data`, which may be null when `length` is 0.
// Always succeeds and allocates nothing. The data may be secret: whatever the computation held of it is wiped
// before the return. A digest that is itself a secret belongs in a Wiped<Sha256Bytes>.
void Sha256Digest(const std::uint8_t* data, std::size_t length, Sha256Bytes& digestOut);

}  // namespace DeviceSpecificModule
