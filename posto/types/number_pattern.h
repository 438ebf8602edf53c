// Numbers formatted with the platform's number patterns.
#pragma once

#include <string>
#include <string_view>

#include "posto/types/currency.h"

namespace posto {

// The separators of a machine. SQL text never depends on them.
struct Locale {
  char decimal = ',';
  char grouping = '.';
};
inline constexpr Locale kBrazil{};
inline constexpr Locale kPointLocale{.decimal = '.', .grouping = ','};

// Formats with a pattern of "#" (optional digit), "0" (forced digit), one "." (decimal separator) and "," (grouping,
// where it stands between digit places): "###,###,##0.00", "########0.0#####", "000", "###########0.".
// Rounds half away from zero on the shortest decimal form that reads back as the same value; of a float as the same
// float. A pattern that ends in "." leaves the separator standing ("12,"). A value that rounds to zero has no minus
// sign. Raises 5 for a value that is not finite, and for a pattern with other characters or without places.
std::string format_number(double value, std::string_view pattern, const Locale& locale = kBrazil);
std::string format_number(float value, std::string_view pattern, const Locale& locale = kBrazil);
std::string format_number(Currency value, std::string_view pattern, const Locale& locale = kBrazil);
std::string format_number(std::int64_t value, std::string_view pattern, const Locale& locale = kBrazil);
inline std::string format_number(std::int32_t value, std::string_view pattern, const Locale& locale = kBrazil) {
  return format_number(std::int64_t{value}, pattern, locale);
}

// The same figures without a pattern, for SQL text: no grouping, a point, exactly `decimals` decimals behind it (with
// none the text still ends in the point: "12."). Same rounding. Raises 5 for a value that is not finite and for
// decimals below zero.
void append_fixed(std::string& out, double value, int decimals);
void append_fixed(std::string& out, float value, int decimals);
void append_fixed(std::string& out, Currency value, int decimals);

}  // namespace posto
