// The cipher component: texts that only the holder of the key can read, and that nobody can change unseen.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace posto {

// Error codes of ActiveCrypt; TraduzirErroActiveCrypt has their texts.
namespace cipher {
inline constexpr std::int16_t kNoError = 0;
inline constexpr std::int16_t kDecryptError = 112;  // another key, or a text that was altered
inline constexpr std::int16_t kEncryptionUnknown = 123;
inline constexpr std::int16_t kSymmetricError = 125;
inline constexpr std::int16_t kUnknownMethod = 126;
inline constexpr std::int16_t kMalformedInput = 127;  // the empty text, or one that encrypt did not make
inline constexpr std::int16_t kBase64Decode = 128;
inline constexpr std::int16_t kKeyTooShort = 130;

inline constexpr std::int32_t kAuthenticated = 6;  // the algorithm code
inline constexpr std::size_t kShortestKey = 16;    // characters
}  // namespace cipher

// Enciphers with AES-256-GCM: a key derived from the given one (HKDF with SHA-256), a random nonce each time, and as a
// result printable text, "p1:" and base64, of 4/3 of the length and some 40 characters more. Deciphering gives the very
// text that was enciphered, or fails. After each operation last_error() is 0 or says why the result is the empty text.
class ActiveCrypt {
 public:
  virtual ~ActiveCrypt() = default;

  // `algorithm`: kAuthenticated is the only one (126 otherwise). `key`: 16 characters at least (130). An empty text
  // cannot be enciphered (127).
  virtual std::string encrypt(std::string_view text, std::int32_t algorithm, std::string_view key);
  // A text without the mark or too short for one is 127, one that is no base64 is 128, an altered one or another key
  // 112.
  virtual std::string decrypt(std::string_view text, std::int32_t algorithm, std::string_view key);

  std::int16_t last_error() const { return last_error_; }

 protected:
  std::string failed(std::int16_t code);
  std::string done(std::string result);

 private:
  std::int16_t last_error_ = cipher::kNoError;
};

}  // namespace posto
