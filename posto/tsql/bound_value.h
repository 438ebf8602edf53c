// Values on their way into a statement: literals of the text and values given beside it, in the form that an engine
// binds.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "posto/tsql/compiled.h"
#include "posto/tsql/date_literal.h"
#include "posto/types/variant.h"

namespace posto::tsql {

// In the form of a parameter's type: bit, integers and money (ten-thousandths) as integers, floats as reals, dates and
// texts as text. A value that is only compared may come as a real where the type has no room for its digits.
struct BoundValue {
  enum class Kind : std::uint8_t { null, integer, real, text };
  Kind kind = Kind::null;
  std::int64_t integer = 0;
  double real = 0;
  std::string_view text{};  // of the literal, of the given value, of `own` or of `date`
  bool lasts = false;       // the text stands in the statement or in a given value, and not in this object
  std::string own{};
  std::array<char, 24> date{};
};

// Both raise 0x80040E07 for a text that is no number or no date, 0x80040E57 for a value outside the type; the message
// names the column that the value is written to.
void bind_literal(const Literal& literal, const Parameter& parameter, const DateOrder& order, BoundValue& out);
void bind_variant(const Variant& value, const Parameter& parameter, const DateOrder& order, BoundValue& out);
void bind_date(Date date, BoundValue& out);
// Raises 0x80040E57 for a whole number that the parameter's column, or its type, has no room for.
void require_room(const Parameter& parameter, std::int64_t value);

// Text as the server reads it where a number belongs; blank text is 0. Raises 0x80040E07, 0x80040E57.
std::int64_t text_to_integer(std::string_view text);
Currency text_to_money(std::string_view text);
double text_to_real(std::string_view text);

}  // namespace posto::tsql
