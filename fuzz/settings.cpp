// Any bytes are a profile file or an enciphered text: a write changes its own key only, what was written is read, and
// nothing deciphers but what was enciphered.
#include "posto/core/settings.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>
#include <cstdlib>
#include <string>

#include "posto/services/cipher.h"
#include "posto/services/profile_file.h"
#include "posto/types/erro.h"
#include "posto/types/text.h"

namespace {

using namespace posto;

void require(bool promise) {
  if (!promise) std::abort();
}

void require_others(const ProfileText& before, const ProfileText& after, const Setting& written) {
  for (const Setting& other : all_settings()) {
    const bool same = equal_names(other.section, written.section) && equal_names(other.key, written.key);
    if (!same) require(before.read(other.section, other.key) == after.read(other.section, other.key));
  }
}

void check_file(const std::string& bytes, const std::string& value, std::size_t choice) {
  const ProfileText before(bytes);
  require(before.bytes() == bytes);
  const Setting& setting = all_settings()[choice % all_settings().size()];
  ProfileText after(bytes);
  try {
    after.write(setting.section, setting.key, value);
  } catch (const Erro& refused) {
    require(refused.number() == erro::kInvalidCall);
    require(after.bytes() == bytes);
    return;
  }
  const ProfileText read_again(after.bytes());
  require_others(before, read_again, setting);
  ProfileText empty;
  empty.write(setting.section, setting.key, value);
  require(read_again.read(setting.section, setting.key) == empty.read(setting.section, setting.key));
  after.write(setting.section, setting.key, value);
  require(after.bytes() == read_again.bytes());
}

// A text either reads as the setting's type, and then in the same way when it is stored anew, or is refused.
void check_value(const std::string& text, std::size_t choice) {
  const Setting& setting = all_settings()[choice % all_settings().size()];
  try {
    const Variant value = setting_value(setting, text);
    const Variant again = setting_value(setting, setting_text(value));
    require(setting_text(again) == setting_text(value));
  } catch (const Erro& refused) {
    require(refused.number() == erro::kTypeMismatch || refused.number() == erro::kOverflow);
  }
}

void check_cipher(const std::string& text, const std::string& key, std::size_t at, char other) {
  ActiveCrypt crypt;
  require(crypt.decrypt(text, cipher::kAuthenticated, key).empty() && crypt.last_error() != cipher::kNoError);
  std::string secret = crypt.encrypt(text, cipher::kAuthenticated, key);
  if (crypt.last_error() != cipher::kNoError) return require(text.empty() || key.size() < cipher::kShortestKey);
  require(crypt.decrypt(secret, cipher::kAuthenticated, key) == text);
  char& altered = secret[at % secret.size()];
  if (altered == other) return;
  altered = other;
  require(crypt.decrypt(secret, cipher::kAuthenticated, key).empty() && crypt.last_error() != cipher::kNoError);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const auto choice = input.ConsumeIntegral<std::uint8_t>();
  const auto other = static_cast<char>(input.ConsumeIntegral<std::uint8_t>());
  const std::string value = input.ConsumeRandomLengthString();
  const std::string file = input.ConsumeRemainingBytesAsString();
  check_file(file, value, choice);
  check_value(value, choice);
  check_cipher(value, file, choice, other);
  return 0;
}
