#include "posto/types/text.h"

#include <algorithm>
#include <array>

#include "posto/types/utf8.h"

namespace posto {
namespace {

constexpr auto kLower = [](char c) { return ascii_lower(c); };
char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; }

// How many bytes the first `count` characters take.
std::size_t bytes_of_chars(std::string_view text, std::size_t count) {
  if (text.size() <= count) return text.size();
  const char* at = text.data();
  const char* const end = at + text.size();
  for (; count > 0 && at < end; --count) at += decode_utf8(at, end).length;
  return static_cast<std::size_t>(at - text.data());
}

// Windows-1252 from 0x80 to 0x9F; the other bytes are the code points of the same number.
constexpr std::array<char16_t, 32> kWindows1252 = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                   0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool is_same_in_1252(char32_t code) { return code < 0x80 || (code >= 0xA0 && code <= 0xFF); }

}  // namespace

Utf8Char decode_long(const char* at, const char* end) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(at[i]); };
  const Utf8Char invalid{kInvalidByte + byte(0), 1};
  const std::size_t length = byte(0) >= 0xF0 ? 4 : byte(0) >= 0xE0 ? 3 : 2;
  if (byte(0) < 0xC2 || byte(0) > 0xF4 || static_cast<std::size_t>(end - at) < length) return invalid;
  char32_t code = byte(0) & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return invalid;
    code = code << 6 | (byte(i) & 0x3Fu);
  }
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  if (code < kSmallest[length] || surrogate || code > 0x10FFFF) return invalid;
  return {code, length};
}

void append_utf8(std::string& out, char32_t code) {
  const auto put = [&](char32_t byte) { out += static_cast<char>(byte); };
  const auto put_rest = [&](int shift) { put(0x80 | (code >> shift & 0x3F)); };
  if (code < 0x80) {
    put(code);
  } else if (code < 0x800) {
    put(0xC0 | code >> 6);
    put_rest(0);
  } else if (code < 0x10000) {
    put(0xE0 | code >> 12);
    put_rest(6);
    put_rest(0);
  } else {
    put(0xF0 | code >> 18);
    put_rest(12);
    put_rest(6);
    put_rest(0);
  }
}

bool is_valid_utf8(std::string_view text) {
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at < end) {
    const Utf8Char next = decode_utf8(at, end);
    if (next.code >= kInvalidByte) return false;
    at += next.length;
  }
  return true;
}

std::size_t char_count(std::string_view text) {
  std::size_t count = 0;
  const char* at = text.data();
  const char* const end = at + text.size();
  for (; at < end; ++count) at += decode_utf8(at, end).length;
  return count;
}

std::string_view first_chars(std::string_view text, std::size_t count) {
  return text.substr(0, bytes_of_chars(text, count));
}

std::string_view mid_chars(std::string_view text, std::size_t start, std::size_t count) {
  if (start == 0) return {};
  text.remove_prefix(bytes_of_chars(text, start - 1));
  return first_chars(text, count);
}

std::string_view trim(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return trim_end(text);
}

std::string_view trim_end(std::string_view text) {
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

bool equal_names(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::ranges::equal(a, b, {}, kLower, kLower);
}

std::string ascii_lower(std::string_view text) {
  std::string out(text);
  std::ranges::transform(out, out.begin(), kLower);
  return out;
}

std::string ascii_upper(std::string_view text) {
  std::string out(text);
  std::ranges::transform(out, out.begin(), upper);
  return out;
}

Encoded to_windows_1252(std::string_view utf8) {
  Encoded encoded;
  encoded.bytes.reserve(utf8.size());
  const char* at = utf8.data();
  const char* const end = at + utf8.size();
  while (at < end) {
    const auto [code, length] = decode_utf8(at, end);
    at += length;
    if (is_same_in_1252(code)) {
      encoded.bytes += static_cast<char>(code);
    } else if (const auto found = std::ranges::find(kWindows1252, code); found != kWindows1252.end()) {
      encoded.bytes += static_cast<char>(0x80 + (found - kWindows1252.begin()));
    } else {
      encoded.bytes += '?';
      ++encoded.replaced;
    }
  }
  return encoded;
}

std::string from_windows_1252(std::string_view bytes) {
  std::string out;
  out.reserve(bytes.size() + bytes.size() / 8);
  for (char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    append_utf8(out, is_same_in_1252(byte) ? byte : kWindows1252[byte - 0x80u]);
  }
  return out;
}

}  // namespace posto
