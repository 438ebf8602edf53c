#include "posto/core/error_vocabulary.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <optional>

namespace posto {
namespace {

std::optional<Erro> saved_error;

struct CipherText {
  std::int16_t code;
  const char* text;
};

constexpr CipherText kCipherTexts[] = {
    {101, "Invalid key size."},
    {102, "Error generating RSA key."},
    {103, "Unknown error while generating pair."},
    {104, "BIO error."},
    {105, "Public encrypt error."},
    {106, "Can not open file."},
    {107, "Unknown error while loading key."},
    {108, "Unknown error while saving key."},
    {109, "Error writing to file."},
    {110, "Error creating file."},
    {111, "Error writing private key."},
    {112, "Decrypt error."},
    {113, "Error reading file."},
    {114, "Error getting file size."},
    {115, "Error reading key from file."},
    {116, "Unknown error while decrypting text."},
    {117, "Bad private key."},
    {118, "Bad public key."},
    {119, "Bad key."},
    {120, "Unknown error generating public key."},
    {121, "Error generating public key."},
    {123, "Unknown error while encryption."},
    {124, "Error reading key from string."},
    {125, "Symmetric encryption error."},
    {126, "Unknown method."},
    {127, "Malformed input"},
    {128, "Base64 decode error"},
    {129, "Base64 encode error"},
    {130, "Key is too short"},
    {131, "Sign creation error"},
    {132, "Sign verify error"},
};

}  // namespace

std::string_view MensagemDeErro(std::int32_t number) {
  switch (number) {
#define ERRO(name, bits, message) \
  case erro::name:                \
    return message;
#include "posto/core/error_vocabulary.def"
#undef ERRO
    default:
      return {};
  }
}

std::string routine_step(std::string_view module, std::string_view routine) {
  return fmt::format(" -> {}.{}, ", module, routine);
}

Erro table_erro(std::int32_t number, std::string_view class_name, std::string_view operation, std::string_view behind) {
  return {number, routine_step(class_name, operation), std::string(MensagemDeErro(number)).append(behind)};
}

void SalvarErro(const Erro& failure, std::string_view extra) {
  if (extra.empty()) {
    saved_error = failure;
    return;
  }
  std::string description = failure.description();
  description.append(" ").append(extra);
  saved_error = failure.provider()
                    ? Erro(failure.number(), failure.source(), std::move(description), *failure.provider())
                    : Erro(failure.number(), failure.source(), std::move(description));
}

void LevantarErroSalvo(std::string_view source_tail) {
  throw saved_error.value_or(platform_erro(erro::kInvalidCall)).with_step(source_tail);
}

void TraduzirErroActiveCrypt(std::string_view routine, std::int16_t code) {
  const auto* known = std::ranges::find(kCipherTexts, code, &CipherText::code);
  if (known != std::end(kCipherTexts)) throw Erro(erro::kMissingKey, std::string(routine), known->text);
}

}  // namespace posto
