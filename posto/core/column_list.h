// Hand-written INSERT and UPDATE lists as data: for each column the literal that its value becomes, for insert and for
// update side by side. One writer walks the list.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "posto/core/composers.h"
#include "posto/core/sistema.h"
#include "posto/schema/value_object.h"

namespace posto {

// A literal routine (core/sql_literals.h) with its arguments.
struct LiteralForm {
  enum class Routine : std::uint8_t {
    none,
    tiny_int,
    small_int,
    integer,
    float32,
    real,
    float64,
    money,
    var_char,
    day,
    moment,
    bit,
    quoted
  };
  Routine routine = Routine::none;
  std::int16_t argument = 0;     // decimals, or the width of a text
  bool null_when_empty = false;  // zero or the empty text
};

constexpr bool kNullWhenEmpty = true;

constexpr LiteralForm tiny_int(bool null_when_zero = false) {
  return {LiteralForm::Routine::tiny_int, 0, null_when_zero};
}
constexpr LiteralForm small_int(bool null_when_zero = false) {
  return {LiteralForm::Routine::small_int, 0, null_when_zero};
}
constexpr LiteralForm integer(bool null_when_zero = false) {
  return {LiteralForm::Routine::integer, 0, null_when_zero};
}
// The value is narrowed to 32 bits first, whatever its column holds.
constexpr LiteralForm float32(std::int16_t decimals) { return {LiteralForm::Routine::float32, decimals}; }
constexpr LiteralForm real(std::int16_t decimals) { return {LiteralForm::Routine::real, decimals}; }
constexpr LiteralForm float64(std::int16_t decimals) { return {LiteralForm::Routine::float64, decimals}; }
constexpr LiteralForm money(std::int16_t decimals) { return {LiteralForm::Routine::money, decimals}; }
constexpr LiteralForm var_char(std::int16_t width, bool null_when_empty = false) {
  return {LiteralForm::Routine::var_char, width, null_when_empty};
}
constexpr LiteralForm day() { return {LiteralForm::Routine::day}; }
constexpr LiteralForm moment() { return {LiteralForm::Routine::moment}; }
constexpr LiteralForm bit() { return {LiteralForm::Routine::bit}; }
constexpr LiteralForm quoted() { return {LiteralForm::Routine::quoted}; }  // the text as it is, uncut, in quotes

struct ListColumn {
  std::string_view column;
  LiteralForm insert;
  LiteralForm update{};  // the same as insert when none is given
};

// The statements of one table over the value objects of one type. Made once and kept: names are resolved when it is
// made.
class ColumnList {
 public:
  ColumnList(std::string_view table, std::span<const ListColumn> columns, const VoLayout& layout);

  // "INSERT INTO T (a,b) Values (1,2)".
  std::string insert_statement(const ValueObject& vo, const VOSistema& settings) const;
  // "UPDATE T SET   a = 1 ,b = 2 WHERE k = 3 And l = 4", a column a line; the keys are columns of the list.
  std::string update_statement(const ValueObject& vo, const VOSistema& settings, Names keys) const;

 private:
  std::string_view table_;
  std::span<const ListColumn> columns_;
  std::vector<const Property*> properties_;
  std::string insert_head_;
};

// Appends the literal of a property.
void append_literal(std::string& out, const LiteralForm& form, const ValueObject& vo, const Property& property,
                    const VOSistema& settings);

}  // namespace posto
