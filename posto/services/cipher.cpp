#include "posto/services/cipher.h"

#include <openssl/core_names.h>
#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/kdf.h>
#include <openssl/params.h>
#include <openssl/rand.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

namespace posto {
namespace {

constexpr std::string_view kMark = "p1:";
constexpr std::string_view kPurpose = "posto settings";
constexpr std::size_t kNonceSize = 12;
constexpr std::size_t kTagSize = 16;
constexpr std::size_t kLongestText = 1 << 24;

using Bytes = std::vector<unsigned char>;
using Context = std::unique_ptr<EVP_CIPHER_CTX, decltype(&EVP_CIPHER_CTX_free)>;

const unsigned char* bytes_of(std::string_view text) { return reinterpret_cast<const unsigned char*>(text.data()); }
int size_of(std::size_t size) { return static_cast<int>(size); }

// The key of the cipher; wiped when it goes out of scope. Not good when the library refused.
class DerivedKey {
 public:
  explicit DerivedKey(std::string_view given) {
    const std::unique_ptr<EVP_KDF, decltype(&EVP_KDF_free)> kdf(EVP_KDF_fetch(nullptr, "HKDF", nullptr), EVP_KDF_free);
    const std::unique_ptr<EVP_KDF_CTX, decltype(&EVP_KDF_CTX_free)> context(EVP_KDF_CTX_new(kdf.get()),
                                                                            EVP_KDF_CTX_free);
    std::string digest = "SHA256", key(given), purpose(kPurpose);
    const OSSL_PARAM parameters[] = {
        OSSL_PARAM_construct_utf8_string(OSSL_KDF_PARAM_DIGEST, digest.data(), 0),
        OSSL_PARAM_construct_octet_string(OSSL_KDF_PARAM_KEY, key.data(), key.size()),
        OSSL_PARAM_construct_octet_string(OSSL_KDF_PARAM_INFO, purpose.data(), purpose.size()),
        OSSL_PARAM_construct_end(),
    };
    good_ = context != nullptr && EVP_KDF_derive(context.get(), key_, sizeof key_, parameters) == 1;
    OPENSSL_cleanse(key.data(), key.size());
  }
  ~DerivedKey() { OPENSSL_cleanse(key_, sizeof key_); }
  DerivedKey(const DerivedKey&) = delete;
  DerivedKey& operator=(const DerivedKey&) = delete;
  bool good() const { return good_; }
  const unsigned char* data() const { return key_; }

 private:
  unsigned char key_[32];
  bool good_;
};

std::string base64(const Bytes& bytes) {
  std::string text((bytes.size() + 2) / 3 * 4 + 1, '\0');
  const int size = EVP_EncodeBlock(reinterpret_cast<unsigned char*>(text.data()), bytes.data(), size_of(bytes.size()));
  text.resize(static_cast<std::size_t>(size));
  return text;
}

// Only the one form in which base64() writes the bytes.
std::optional<Bytes> from_base64(std::string_view text) {
  Bytes bytes(text.size() / 4 * 3, 0);
  if (text.size() % 4 != 0 || EVP_DecodeBlock(bytes.data(), bytes_of(text), size_of(text.size())) < 0) {
    return std::nullopt;
  }
  const std::size_t padding = text.ends_with("==") ? 2 : text.ends_with('=') ? 1 : 0;
  bytes.resize(bytes.size() - padding);
  if (base64(bytes) != text) return std::nullopt;
  return bytes;
}

// Nonce, enciphered text and tag in one; the mark is authenticated with them.
std::optional<Bytes> sealed(std::string_view text, const DerivedKey& key) {
  Bytes out(kNonceSize + text.size() + kTagSize, 0);
  unsigned char* const body = out.data() + kNonceSize;
  const Context context(EVP_CIPHER_CTX_new(), EVP_CIPHER_CTX_free);
  int size = 0;
  const bool good = context != nullptr && RAND_bytes(out.data(), kNonceSize) == 1 &&
                    EVP_EncryptInit_ex(context.get(), EVP_aes_256_gcm(), nullptr, key.data(), out.data()) == 1 &&
                    EVP_EncryptUpdate(context.get(), nullptr, &size, bytes_of(kMark), size_of(kMark.size())) == 1 &&
                    EVP_EncryptUpdate(context.get(), body, &size, bytes_of(text), size_of(text.size())) == 1 &&
                    EVP_EncryptFinal_ex(context.get(), body + size, &size) == 1 &&
                    EVP_CIPHER_CTX_ctrl(context.get(), EVP_CTRL_AEAD_GET_TAG, kTagSize, body + text.size()) == 1;
  if (!good) return std::nullopt;
  return out;
}

// The text; nothing when the key is another one or a bit was changed.
std::optional<std::string> opened(Bytes bytes, const DerivedKey& key) {
  const std::size_t length = bytes.size() - kNonceSize - kTagSize;
  unsigned char* const body = bytes.data() + kNonceSize;
  std::string text(length, '\0');
  auto* const out = reinterpret_cast<unsigned char*>(text.data());
  const Context context(EVP_CIPHER_CTX_new(), EVP_CIPHER_CTX_free);
  int size = 0;
  const bool good = context != nullptr &&
                    EVP_DecryptInit_ex(context.get(), EVP_aes_256_gcm(), nullptr, key.data(), bytes.data()) == 1 &&
                    EVP_DecryptUpdate(context.get(), nullptr, &size, bytes_of(kMark), size_of(kMark.size())) == 1 &&
                    EVP_DecryptUpdate(context.get(), out, &size, body, size_of(length)) == 1 &&
                    EVP_CIPHER_CTX_ctrl(context.get(), EVP_CTRL_AEAD_SET_TAG, kTagSize, body + length) == 1 &&
                    EVP_DecryptFinal_ex(context.get(), out + size, &size) == 1;
  if (good) return text;
  OPENSSL_cleanse(text.data(), text.size());
  return std::nullopt;
}

// What is wrong with the arguments of both operations.
std::int16_t refusal(std::string_view text, std::int32_t algorithm, std::string_view key) {
  if (algorithm != cipher::kAuthenticated) return cipher::kUnknownMethod;
  if (key.size() < cipher::kShortestKey) return cipher::kKeyTooShort;
  return text.empty() || text.size() > kLongestText ? cipher::kMalformedInput : cipher::kNoError;
}

}  // namespace

std::string ActiveCrypt::failed(std::int16_t code) {
  last_error_ = code;
  return {};
}

std::string ActiveCrypt::done(std::string result) {
  last_error_ = cipher::kNoError;
  return result;
}

std::string ActiveCrypt::encrypt(std::string_view text, std::int32_t algorithm, std::string_view key) {
  if (const std::int16_t code = refusal(text, algorithm, key); code != cipher::kNoError) return failed(code);
  const DerivedKey derived(key);
  if (!derived.good()) return failed(cipher::kEncryptionUnknown);
  const auto bytes = sealed(text, derived);
  return bytes ? done(std::string(kMark) + base64(*bytes)) : failed(cipher::kSymmetricError);
}

std::string ActiveCrypt::decrypt(std::string_view text, std::int32_t algorithm, std::string_view key) {
  if (const std::int16_t code = refusal(text, algorithm, key); code != cipher::kNoError) return failed(code);
  if (!text.starts_with(kMark)) return failed(cipher::kMalformedInput);
  auto bytes = from_base64(text.substr(kMark.size()));
  if (!bytes) return failed(cipher::kBase64Decode);
  if (bytes->size() <= kNonceSize + kTagSize) return failed(cipher::kMalformedInput);
  const DerivedKey derived(key);
  if (!derived.good()) return failed(cipher::kEncryptionUnknown);
  auto clear = opened(std::move(*bytes), derived);
  return clear ? done(std::move(*clear)) : failed(cipher::kDecryptError);
}

}  // namespace posto
