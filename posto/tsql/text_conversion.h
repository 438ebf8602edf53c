// Values as the text that CONVERT and CAST make of them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "posto/types/currency.h"
#include "posto/types/date.h"

namespace posto::tsql {

// The text type that is asked for: at most `width` characters (0: any number), filled up with blanks when `padded`.
struct TextTarget {
  std::size_t width = 0;
  bool padded = false;
  int style = -1;  // of dates and money; -1 is the default
};

// An integer that does not fit becomes "*". Raises 0x80040E57 for a number with decimals that does not fit, 0x80040E14
// for a style that does not exist; a text or date that does not fit is cut.
std::string integer_to_text(std::int64_t value, const TextTarget& target);
std::string money_to_text(Currency value, const TextTarget& target);
std::string real_to_text(double value, const TextTarget& target);
std::string date_to_text(Date value, const TextTarget& target);
std::string text_to_text(std::string_view value, const TextTarget& target);

// SUBSTRING: `count` characters from the 1-based `start`; a start before the text counts, as on the server. Raises
// 0x80040E14 for a negative count.
std::string_view substring(std::string_view text, std::int64_t start, std::int64_t count);

}  // namespace posto::tsql
