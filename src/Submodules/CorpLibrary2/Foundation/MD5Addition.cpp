#include "Submodules/CorpLibrary2/Foundation/MD5Addition.h"

#include <openssl/evp.h>

#include <array>

namespace dayward {

std::optional<std::string> stringFromMD5(std::string_view text) {
    if (text.empty()) return std::nullopt;
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    unsigned int length = 0;
    if (EVP_Digest(text.data(), text.size(), digest.data(), &length, EVP_md5(), nullptr) != 1) return std::nullopt;
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string result;
    for (unsigned int i = 0; i < length; ++i) {
        result.push_back(kDigits[digest[i] >> 4]);
        result.push_back(kDigits[digest[i] & 0x0F]);
    }
    return result;
}

}  // namespace dayward
