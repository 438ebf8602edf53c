#include "posto/engines/odbc/text.h"

#include "posto/types/erro.h"
#include "posto/types/utf8.h"

namespace posto::odbc {
namespace {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

constexpr char32_t kBeyondOneUnit = 0x10000;
constexpr char32_t kHigh = 0xD800, kLow = 0xDC00, kBehindPairs = 0xE000;

bool is_high(char32_t unit) { return unit >= kHigh && unit < kLow; }
bool is_low(char32_t unit) { return unit >= kLow && unit < kBehindPairs; }

}  // namespace

void append_utf16(WideText& out, std::string_view utf8) {
  const char* const end = utf8.data() + utf8.size();
  for (const char* at = utf8.data(); at != end;) {
    const auto [code, length] = decode_utf8(at, end);
    at += length;
    if (code == 0 || code >= kInvalidByte) {
      throw Erro(erro::kConversion, "ODBC", "Texto com caracteres que o banco não guarda");
    }
    if (code < kBeyondOneUnit) {
      out += static_cast<char16_t>(code);
    } else {
      out += static_cast<char16_t>(kHigh + ((code - kBeyondOneUnit) >> 10));
      out += static_cast<char16_t>(kLow + ((code - kBeyondOneUnit) & 0x3FF));
    }
  }
}

WideText to_utf16(std::string_view utf8) {
  WideText wide;
  wide.reserve(utf8.size());
  append_utf16(wide, utf8);
  return wide;
}

void append_utf8(std::string& out, std::span<const SQLWCHAR> utf16) {
  for (std::size_t i = 0; i < utf16.size(); ++i) {
    const char32_t unit = utf16[i];
    if (unit < 0x80) {
      out += static_cast<char>(unit);
    } else if (is_high(unit) && i + 1 < utf16.size() && is_low(utf16[i + 1])) {
      posto::append_utf8(out, kBeyondOneUnit + ((unit - kHigh) << 10) + (utf16[++i] - kLow));
    } else {
      posto::append_utf8(out, unit);
    }
  }
}

std::string to_utf8(std::span<const SQLWCHAR> utf16) {
  std::string utf8;
  append_utf8(utf8, utf16);
  return utf8;
}

}  // namespace posto::odbc
