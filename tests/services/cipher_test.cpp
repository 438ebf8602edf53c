#include "posto/services/cipher.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace posto {
namespace {

constexpr std::string_view kKey = "sixteen letters!";

std::string enciphered(std::string_view text) {
  ActiveCrypt crypt;
  std::string result = crypt.encrypt(text, cipher::kAuthenticated, kKey);
  EXPECT_EQ(crypt.last_error(), cipher::kNoError);
  return result;
}

// The error that deciphering ends in; the result is empty then.
std::int16_t error_of(std::string_view text, std::string_view key = kKey, std::int32_t algorithm = 6) {
  ActiveCrypt crypt;
  const std::string clear = crypt.decrypt(text, algorithm, key);
  EXPECT_EQ(clear.empty(), crypt.last_error() != cipher::kNoError);
  return crypt.last_error();
}

RC_GTEST_PROP(ActiveCrypt, GivesBackAnyText, ()) {
  const auto text = *rc::gen::nonEmpty<std::string>();
  ActiveCrypt crypt;
  const std::string secret = crypt.encrypt(text, cipher::kAuthenticated, kKey);
  RC_ASSERT(secret.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/=:") ==
            std::string::npos);
  RC_ASSERT(crypt.decrypt(secret, cipher::kAuthenticated, kKey) == text);
  RC_ASSERT(crypt.encrypt(text, cipher::kAuthenticated, kKey) != secret);
}

// The form is one for good: settings that stand on workstations must stay readable. HKDF and AES-256-GCM of another
// library give the same.
TEST(ActiveCrypt, ReadsWhatIsStored) {
  ActiveCrypt crypt;
  EXPECT_EQ(crypt.decrypt("p1:56BDLOctswL+ISapnAQ6bVmicFCeX9a3spuy3nCf+QyZc3Cdjh1Y6PEbGa5XERqyrg==",
                          cipher::kAuthenticated, kKey),
            "Café & Combustíveis");
}

TEST(ActiveCrypt, AnAlteredTextFails) {
  const std::string good = enciphered("0123456789");  // 38 bytes, so that the last character has bits to spare
  for (std::size_t i = 0; i < good.size(); ++i) {
    for (const char other : {'A', 'B', '7', '=', ' ', '\xE7'}) {
      if (good[i] == other) continue;
      std::string altered = good;
      altered[i] = other;
      const std::int16_t error = error_of(altered);
      const bool spare_bits = i + 2 == good.size();  // what is left may be a text of its own, by chance
      if (i < 3) {
        EXPECT_EQ(error, cipher::kMalformedInput);
      } else if (spare_bits) {
        EXPECT_TRUE(error == cipher::kDecryptError || error == cipher::kBase64Decode) << i << other;
      } else if (other == '=' || other == ' ' || other == '\xE7') {
        EXPECT_EQ(error, cipher::kBase64Decode) << i << other;
      } else {
        EXPECT_EQ(error, cipher::kDecryptError) << i << other;
      }
    }
  }
}

TEST(ActiveCrypt, ATruncatedOrForeignTextFails) {
  const std::string good = enciphered("0123456789");
  for (std::size_t size = 0; size < good.size(); ++size) {
    const std::int16_t error = error_of(good.substr(0, size));
    // A whole number of base64 groups can be read; it then is too short, or its end is no longer the tag.
    const std::int16_t expected = size <= 2                 ? cipher::kMalformedInput
                                  : (size - 3) % 4 != 0     ? cipher::kBase64Decode
                                  : (size - 3) / 4 * 3 > 28 ? cipher::kDecryptError
                                                            : cipher::kMalformedInput;
    EXPECT_EQ(error, expected) << size;
  }
  EXPECT_EQ(error_of(good + good), cipher::kBase64Decode);
  EXPECT_EQ(error_of(good, "another 16 chars"), cipher::kDecryptError);
  EXPECT_EQ(error_of("veja arquivo source"), cipher::kMalformedInput);
}

TEST(ActiveCrypt, RefusesWrongUse) {
  const std::string good = enciphered("x");
  ActiveCrypt crypt;
  for (const std::int32_t algorithm : {0, 5, 7}) {
    EXPECT_EQ(error_of(good, kKey, algorithm), cipher::kUnknownMethod);
    EXPECT_EQ(crypt.encrypt("x", algorithm, kKey), "");
    EXPECT_EQ(crypt.last_error(), cipher::kUnknownMethod);
  }
  EXPECT_EQ(error_of(good, "fifteen letters"), cipher::kKeyTooShort);
  crypt.encrypt("", cipher::kAuthenticated, kKey);
  EXPECT_EQ(crypt.last_error(), cipher::kMalformedInput);
  crypt.encrypt("x", cipher::kAuthenticated, kKey);
  EXPECT_EQ(crypt.last_error(), cipher::kNoError) << "an error stays until the next operation only";
}

}  // namespace
}  // namespace posto
