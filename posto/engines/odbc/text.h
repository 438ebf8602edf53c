// Text on its way to a driver and back: drivers take and give UTF-16, whatever the server keeps.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace posto::odbc {

using WideText = std::basic_string<char16_t>;

// Raises 0x80040E07 for text that is not UTF-8 or holds the character 0, which no database keeps.
void append_utf16(WideText& out, std::string_view utf8);
WideText to_utf16(std::string_view utf8);
void append_utf8(std::string& out, std::span<const SQLWCHAR> utf16);
std::string to_utf8(std::span<const SQLWCHAR> utf16);

// As the functions of ODBC want a text that they only read.
inline SQLWCHAR* sql_text(const WideText& text) {
  return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(text.data()));
}

}  // namespace posto::odbc
