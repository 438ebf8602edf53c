// Any bytes are text: the text routines neither crash nor hang on them and keep their promises.
#include "posto/types/text.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <compare>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

void require(bool promise) {
  if (!promise) std::abort();
}

auto order(const std::string& a, const std::string& b) { return posto::compare_text(a, b) <=> 0; }

void check_order(const std::string& a, const std::string& b, const std::string& c) {
  require(order(a, a) == 0);
  require(order(a, b) == (0 <=> order(b, a)));
  if (order(a, b) <= 0 && order(b, c) <= 0) require(order(a, c) <= 0);
  if (order(a, b) == 0) require(posto::hash_text(a) == posto::hash_text(b));
}

void check_like(const std::string& text, const std::string& pattern) {
  require(posto::like_text(text, "%"));
  require(posto::like_text(text, pattern) == posto::like_text(posto::ascii_upper(text), pattern));
}

void check_cuts(const std::string& text, std::size_t count) {
  const auto head = posto::first_chars(text, count);
  require(posto::char_count(head) == std::min(count, posto::char_count(text)));
  require(std::string(head).append(posto::mid_chars(text, count + 1, text.size())) == text);
  const auto trimmed = posto::trim(text);
  require(!trimmed.starts_with(' ') && !trimmed.ends_with(' '));
}

void check_code_page(const std::string& bytes) {
  const std::string text = posto::from_windows_1252(bytes);
  require(posto::is_valid_utf8(text));
  const posto::Encoded back = posto::to_windows_1252(text);
  require(back.bytes == bytes && back.replaced == 0);

  const posto::Encoded encoded = posto::to_windows_1252(bytes);
  require(encoded.bytes.size() == posto::char_count(bytes));
  if (encoded.replaced == 0 && posto::is_valid_utf8(bytes)) require(posto::from_windows_1252(encoded.bytes) == bytes);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const auto count = input.ConsumeIntegral<std::uint8_t>();
  const std::string a = input.ConsumeRandomLengthString();
  const std::string b = input.ConsumeRandomLengthString();
  const std::string c = input.ConsumeRemainingBytesAsString();
  check_order(a, b, c);
  check_like(a, b);
  check_cuts(a, count);
  check_code_page(a);
  return 0;
}
