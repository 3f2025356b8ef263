// AES-256 in ECB mode with PKCS7 padding (FIPS 197, RFC 5652 6.3) and base64 (RFC 4648), for data
// and for texts. It keeps honest people out of a cache file and does no more: ECB shows equal blocks
// and nothing authenticates the text. Pure; any thread.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/Data.h"

namespace dayward {

/// The cipher text: the input and 1 to 16 bytes of padding. The key's UTF-8 bytes are padded with
/// zero bytes to 32; of a longer key, which callers should not use, the first 32 bytes count.
std::optional<Data> AES256EncryptWithKey(const Data& data, std::string_view key);
/// Nothing where the data is no whole number of blocks or its padding is wrong, as under most wrong keys.
std::optional<Data> AES256DecryptWithKey(const Data& data, std::string_view key);

/// A text's UTF-8 bytes enciphered, as base64.
std::optional<std::string> AES256EncryptWithKey(std::string_view text, std::string_view key);
/// The reverse. Nothing also where the text is no base64 or the result no UTF-8.
std::optional<std::string> AES256DecryptWithKey(std::string_view text, std::string_view key);

/// White space is skipped, padding is required; nothing for any other character or a broken group.
std::optional<Data> dataWithBase64EncodedString(std::string_view text);
/// In one line.
std::string base64Encoding(const Data& data);
/// With a line feed after each `lineLength` characters that more characters follow; 0 for one line.
std::string base64EncodingWithLineLength(const Data& data, std::size_t lineLength);

/// Every data begins and ends with no bytes.
bool hasPrefixBytes(const Data& data, std::span<const std::uint8_t> prefix);
bool hasSuffixBytes(const Data& data, std::span<const std::uint8_t> suffix);

}  // namespace dayward
