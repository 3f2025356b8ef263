#include "Submodules/CorpLibrary2/Foundation/AESCrypt.h"

#include <gtest/gtest.h>

#include "Submodules/CorpLibrary2/Foundation/MD5Addition.h"
#include "Submodules/CorpLibrary2/Foundation/UTF8.h"

namespace dayward {
namespace {

using namespace std::string_literals;

Data bytesFromHex(const std::string& hex) {
    Data bytes;
    for (std::size_t i = 0; i < hex.size(); i += 2) {
        bytes.push_back(static_cast<std::uint8_t>(std::stoi(hex.substr(i, 2), nullptr, 16)));
    }
    return bytes;
}

TEST(AESCrypt, AgreesWithThePublishedVector) {
    // NIST SP 800-38A F.1.5, ECB-AES256, whose key happens to hold no zero byte.
    const std::string key = textOf(bytesFromHex("603deb1015ca71be2b73aef0857d77811f352c073b6108d72d9810a30914dff4"));
    const Data plain = bytesFromHex("6bc1bee22e409f96e93d7e117393172aae2d8a571e03ac9c9eb76fac45af8e51");
    const auto cipher = AES256EncryptWithKey(plain, key);
    ASSERT_TRUE(cipher);
    ASSERT_EQ(cipher->size(), 48u) << "whole blocks get a block of padding";
    EXPECT_EQ(Data(cipher->begin(), cipher->begin() + 32),
              bytesFromHex("f3eed1bdb5d2a03c064b5a7e3db181f8591ccb10d410ed26dc5ba74a31362870"));
    EXPECT_EQ(AES256DecryptWithKey(*cipher, key), plain);
}

TEST(AESCrypt, AShortKeyIsPaddedWithZeros) {
    const Data text = dataOf("text");
    EXPECT_EQ(AES256EncryptWithKey(text, "12345"), AES256EncryptWithKey(text, "12345" + std::string(27, '\0')));
    EXPECT_EQ(AES256EncryptWithKey(text, std::string(32, 'k')), AES256EncryptWithKey(text, std::string(40, 'k')));
    EXPECT_NE(AES256EncryptWithKey(text, "12345"), AES256EncryptWithKey(text, "12346"));
}

TEST(AESCrypt, RefusesWhatIsNoCipherText) {
    const auto cipher = AES256EncryptWithKey(dataOf("sixteen and more bytes"), "key");
    ASSERT_TRUE(cipher);
    EXPECT_EQ(AES256DecryptWithKey(*cipher, "other key"), std::nullopt);
    for (const std::size_t length : {0u, 1u, 15u, 16u, 17u, 31u}) {
        EXPECT_EQ(AES256DecryptWithKey(Data(cipher->begin(), cipher->begin() + length), "key"), std::nullopt) << length;
    }
}

TEST(AESCrypt, TextsAreUTF8AndBase64) {
    const auto cipher = AES256EncryptWithKey("Привет, ☂"s, "ключ");
    ASSERT_TRUE(cipher);
    EXPECT_EQ(cipher->find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/="),
              std::string::npos);
    EXPECT_EQ(AES256DecryptWithKey(std::string_view(*cipher), "ключ"), "Привет, ☂");
    EXPECT_EQ(AES256DecryptWithKey("no base64!"s, "ключ"), std::nullopt);
    const auto noText = AES256EncryptWithKey(Data{0xC0, 0xAF}, "ключ");
    EXPECT_EQ(AES256DecryptWithKey(base64Encoding(*noText), "ключ"), std::nullopt);
}

TEST(Base64, AgreesWithThePublishedVectors) {
    const std::pair<const char*, const char*> vectors[] = {{"", ""},
                                                           {"f", "Zg=="},
                                                           {"fo", "Zm8="},
                                                           {"foo", "Zm9v"},
                                                           {"foob", "Zm9vYg=="},
                                                           {"fooba", "Zm9vYmE="},
                                                           {"foobar", "Zm9vYmFy"}};
    for (const auto& [plain, encoded] : vectors) {
        EXPECT_EQ(base64Encoding(dataOf(plain)), encoded);
        EXPECT_EQ(dataWithBase64EncodedString(encoded), dataOf(plain));
    }
    EXPECT_EQ(base64Encoding({0xFB, 0xEF, 0xFF}), "++//");
    EXPECT_EQ(dataWithBase64EncodedString("++//"), (Data{0xFB, 0xEF, 0xFF}));
}

TEST(Base64, BreaksLines) {
    const Data data = dataOf("foobar!");  // Zm9vYmFyIQ==
    EXPECT_EQ(base64EncodingWithLineLength(data, 4), "Zm9v\nYmFy\nIQ==");
    EXPECT_EQ(base64EncodingWithLineLength(data, 5), "Zm9vY\nmFyIQ\n==");
    EXPECT_EQ(dataWithBase64EncodedString("Zm9vY\r\n mFyIQ\t\n=="), data);
}

TEST(Base64, RefusesBrokenText) {
    for (const char* text :
         {"Z", "Zg", "Zg=", "Z===", "====", "=", "Zg==Zg==", "Zg=a", "Zm8=,", "Zm9v-_", "Zm9vé", "Zg==="}) {
        EXPECT_EQ(dataWithBase64EncodedString(text), std::nullopt) << text;
    }
}

TEST(MD5, AgreesWithThePublishedVectors) {
    EXPECT_EQ(stringFromMD5("abc"), "900150983cd24fb0d6963f7d28e17f72");
    EXPECT_EQ(stringFromMD5("message digest"), "f96b697d7cb7938d525a2f31aaf161d0");
    EXPECT_EQ(stringFromMD5(""), std::nullopt);
}

TEST(UTF8, TellsTextFromOtherBytes) {
    for (const std::string& text : {""s, "a\0b"s, "é"s, "ࠀ"s, "\uFFFF"s, "😀"s, "\U0010FFFF"s})
        EXPECT_TRUE(isUTF8(text));
    for (const char* bytes : {"\x80", "\xC3", "\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF0\x80\x80\xAF",
                              "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xE2\x82", "a\xFF", "\xE2\x28\xA1"}) {
        EXPECT_FALSE(isUTF8(bytes));
    }
}

}  // namespace
}  // namespace dayward
