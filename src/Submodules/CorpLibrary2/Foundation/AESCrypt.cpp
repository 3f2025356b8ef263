#include "Submodules/CorpLibrary2/Foundation/AESCrypt.h"

#include <openssl/evp.h>

#include <algorithm>
#include <array>
#include <limits>
#include <memory>

#include "Submodules/CorpLibrary2/Foundation/UTF8.h"

namespace dayward {

namespace {

constexpr std::size_t kBlockSize = 16;
using Key = std::array<std::uint8_t, 32>;

enum class Direction { decrypt = 0, encrypt = 1 };

Key paddedKey(std::string_view key) {
    Key padded{};
    std::copy_n(key.begin(), std::min(key.size(), padded.size()), padded.begin());
    return padded;
}

std::optional<Data> crypt(Direction direction, const Data& input, std::string_view key) {
    if (input.size() > std::numeric_limits<int>::max() - kBlockSize) return std::nullopt;
    const std::unique_ptr<EVP_CIPHER_CTX, decltype(&EVP_CIPHER_CTX_free)> context(EVP_CIPHER_CTX_new(),
                                                                                  &EVP_CIPHER_CTX_free);
    if (!context || EVP_CipherInit_ex(context.get(), EVP_aes_256_ecb(), nullptr, paddedKey(key).data(), nullptr,
                                      static_cast<int>(direction)) != 1) {
        return std::nullopt;
    }
    Data output(input.size() + kBlockSize);
    int length = 0;
    int lastLength = 0;
    if (EVP_CipherUpdate(context.get(), output.data(), &length, input.data(), static_cast<int>(input.size())) != 1 ||
        EVP_CipherFinal_ex(context.get(), output.data() + length, &lastLength) != 1) {
        return std::nullopt;
    }
    output.resize(static_cast<std::size_t>(length) + static_cast<std::size_t>(lastLength));
    return output;
}

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr std::array<std::int8_t, 256> kSextets = [] {
    std::array<std::int8_t, 256> sextets{};
    sextets.fill(-1);
    for (std::size_t i = 0; i < kAlphabet.size(); ++i) {
        sextets[static_cast<unsigned char>(kAlphabet[i])] = static_cast<std::int8_t>(i);
    }
    return sextets;
}();

bool isWhiteSpace(char character) { return std::string_view(" \t\r\n").contains(character); }

}  // namespace

std::optional<Data> AES256EncryptWithKey(const Data& data, std::string_view key) {
    return crypt(Direction::encrypt, data, key);
}

std::optional<Data> AES256DecryptWithKey(const Data& data, std::string_view key) {
    return crypt(Direction::decrypt, data, key);
}

std::optional<std::string> AES256EncryptWithKey(std::string_view text, std::string_view key) {
    const auto encrypted = AES256EncryptWithKey(dataOf(text), key);
    return encrypted ? std::optional(base64Encoding(*encrypted)) : std::nullopt;
}

std::optional<std::string> AES256DecryptWithKey(std::string_view text, std::string_view key) {
    const auto encrypted = dataWithBase64EncodedString(text);
    if (!encrypted) return std::nullopt;
    const auto decrypted = AES256DecryptWithKey(*encrypted, key);
    if (!decrypted) return std::nullopt;
    std::string result = textOf(*decrypted);
    return isUTF8(result) ? std::optional(std::move(result)) : std::nullopt;
}

std::optional<Data> dataWithBase64EncodedString(std::string_view text) {
    Data result;
    result.reserve(text.size() / 4 * 3);
    std::uint32_t group = 0;
    int characters = 0;
    int padding = 0;
    for (const char character : text) {
        if (isWhiteSpace(character)) continue;
        const int sextet = kSextets[static_cast<unsigned char>(character)];
        if (character == '=' && (characters % 4 == 2 || characters % 4 == 3) && padding < 2) {
            ++padding;
        } else if (sextet < 0 || padding > 0) {
            return std::nullopt;
        }
        group = group << 6 | static_cast<std::uint32_t>(std::max(sextet, 0));
        if (++characters % 4 != 0) continue;
        for (int i = 0; i < 3 - padding; ++i) result.push_back(static_cast<std::uint8_t>(group >> (16 - 8 * i)));
        group = 0;
    }
    return characters % 4 == 0 ? std::optional(std::move(result)) : std::nullopt;
}

std::string base64Encoding(const Data& data) { return base64EncodingWithLineLength(data, 0); }

std::string base64EncodingWithLineLength(const Data& data, std::size_t lineLength) {
    const std::size_t length = (data.size() + 2) / 3 * 4;
    std::string result;
    result.reserve(length + (lineLength > 0 ? length / lineLength : 0));
    for (std::size_t i = 0; i < length; ++i) {
        if (lineLength > 0 && i > 0 && i % lineLength == 0) result.push_back('\n');
        const std::size_t first = i / 4 * 3;
        const auto byte = [&](std::size_t offset) -> std::uint32_t {
            return first + offset < data.size() ? data[first + offset] : 0;
        };
        const bool isPadding = first + i % 4 > data.size();
        const std::uint32_t group = byte(0) << 16 | byte(1) << 8 | byte(2);
        result.push_back(isPadding ? '=' : kAlphabet[group >> (18 - 6 * (i % 4)) & 0x3F]);
    }
    return result;
}

bool hasPrefixBytes(const Data& data, std::span<const std::uint8_t> prefix) {
    return data.size() >= prefix.size() && std::equal(prefix.begin(), prefix.end(), data.begin());
}

bool hasSuffixBytes(const Data& data, std::span<const std::uint8_t> suffix) {
    return data.size() >= suffix.size() && std::equal(suffix.rbegin(), suffix.rend(), data.rbegin());
}

}  // namespace dayward
