#pragma once

#include <cstdint>

// Enciphers a job secret and deciphers it again: AES-256 in cipher block chaining mode, in place, under a key
// and an initialisation vector that are derived from a key seed of 20 bytes.
//
// The seed is the caller's when `primaryId` is 0; `secondaryId` is not looked at then. With any other
// `primaryId` the built-in key record of the two identifiers gives the seed, and the bytes at `seed` are not
// read. The key is the SHA-256 digest of the seed's first 10 bytes, the vector the first 16 bytes of the
// digest of its last 10. So the same seed and secret always give the same ciphertext.
//
// No call fails. If `buffer`, `seed` or `outLength` is null, a call does nothing and leaves `outLength` as it
// was; that holds for `seed` also when the identifiers choose a record. Lengths are in bytes and at most
// 2^31 - 17. Nothing is allocated, and all key material is wiped before the return. Calls may run in
// parallel.

namespace DeviceSpecificModule {

// Replaces the `length` bytes of plain text in `buffer` by ciphertext and stores its length in `outLength`.
//
// With `noPadding` 0 the text is filled up to whole blocks of 16 bytes by 1 to 16 bytes, each of them one
// less than their number: a text of whole blocks gets sixteen bytes of 15, one that lacks a byte gets one 0.
// `buffer` must have room for `length` + 16 bytes.
// With any other `noPadding` nothing is added, and the bytes behind the last whole block stay plain text.
void EncryptJobSecret(std::uint8_t* buffer, std::uint32_t length, std::uint8_t noPadding,
                      const std::uint8_t* seed, std::int32_t* outLength, std::int32_t primaryId,
                      std::int32_t secondaryId);

// Replaces the `length` bytes of ciphertext in `buffer` by plain text, sets the padding behind it to zero and
// stores the length without padding in `outLength`. Bytes behind the last whole block are not deciphered.
//
// The last byte is taken for the padding's value whatever it is, since nothing tells a wrong key or damaged
// ciphertext from a right one. With such a byte the padding may cover the whole buffer, never more than that,
// and `outLength` becomes negative, down to `length` - 256: check it before use.
// A `length` of 0 gives an `outLength` of 0.
void DecryptJobSecret(std::uint8_t* buffer, std::uint32_t length, const std::uint8_t* seed,
                      std::int32_t* outLength, std::int32_t primaryId, std::int32_t secondaryId);

}  // namespace DeviceSpecificModule
