// One character at a time out of UTF-8. For the types' own use.
#pragma once

#include <cstddef>
#include <string>

namespace posto {

// A byte that is no UTF-8 counts as a character of its own, with a code behind all real ones.
inline constexpr char32_t kInvalidByte = 0x110000;

struct Utf8Char {
  char32_t code;
  std::size_t length;  // in bytes
};

// The character of more than one byte, or the invalid byte, at `at`.
Utf8Char decode_long(const char* at, const char* end);

// The character at `at`, which lies in front of `end`.
inline Utf8Char decode_utf8(const char* at, const char* end) {
  const auto byte = static_cast<unsigned char>(*at);
  return byte < 0x80 ? Utf8Char{byte, 1} : decode_long(at, end);
}

void append_utf8(std::string& out, char32_t code);

}  // namespace posto
