#include "posto/core/sql_literals.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "posto/core/error_vocabulary.h"
#include "posto/types/number_pattern.h"
#include "posto/types/text.h"

namespace posto {
namespace {

constexpr std::string_view kNull = "Null";

template <class Append>
std::string text_of(Append append) {
  std::string out;
  append(out);
  return out;
}

template <class Append>
void literal(std::string_view routine, Append append) {
  guarded(", vr5", routine, append);
}

template <class Value>
void figure(std::string_view routine, std::string& out, Value value, std::uint8_t decimals) {
  literal(routine, [&] { append_fixed(out, value, decimals); });
}

}  // namespace

void append_digits(std::string& out, std::int32_t value) {
  char digits[std::numeric_limits<std::int32_t>::digits10 + 2];
  out.append(digits, std::to_chars(std::begin(digits), std::end(digits), value).ptr);
}

void IntToSql(std::string& out, std::int32_t value, bool zero_is_null) {
  if (value == 0 && zero_is_null) {
    out += kNull;
  } else {
    append_digits(out, value);
  }
}

void TinyIntToSql(std::string& out, std::int16_t value, bool zero_is_null) { IntToSql(out, value, zero_is_null); }
void SmallIntToSql(std::string& out, std::int16_t value, bool zero_is_null) { IntToSql(out, value, zero_is_null); }

void FloatToSql(std::string& out, float value, std::uint8_t decimals) { figure("FloatToSql", out, value, decimals); }
void SingleToSql(std::string& out, float value, std::uint8_t decimals) { figure("SingleToSql", out, value, decimals); }
void RealToSql(std::string& out, float value, std::uint8_t decimals) { figure("RealToSql", out, value, decimals); }
void DoubleToSql(std::string& out, double value, std::uint8_t decimals) { figure("DoubleToSql", out, value, decimals); }
void MoneyToSql(std::string& out, Currency value, std::uint8_t decimals) { figure("MoneyToSql", out, value, decimals); }

void VarCharToSql(std::string& out, std::string_view value, std::int16_t max_length, bool empty_is_null) {
  literal("VarCharToSql", [&] {
    if (value.empty() && empty_is_null) {
      out += kNull;
      return;
    }
    if (max_length < 0) throw platform_erro(erro::kInvalidCall);
    out += '\'';
    out += first_chars(value, static_cast<std::size_t>(max_length));
    out += '\'';
  });
}

void DateSemHoraToSql(std::string& out, Date value, const VOSistema& settings) {
  literal("DateSemHoraToSql", [&] {
    const std::string day = format_date(value, settings.Ds_FormatoData);
    out.append("'").append(day).append("'");
  });
}

void DateComHoraToSql(std::string& out, Date value, const VOSistema& settings) {
  literal("DateComHoraToSql", [&] {
    const std::string day = format_date(value, settings.Ds_FormatoData);
    out.append("'").append(day).append(format_date(value, " hh:Nn:Ss")).append("'");
  });
}

void BitToSql(std::string& out, bool value) { out += value ? "-1" : "0"; }

std::string TinyIntToSql(std::int16_t value, bool zero_is_null) { return IntToSql(value, zero_is_null); }
std::string SmallIntToSql(std::int16_t value, bool zero_is_null) { return IntToSql(value, zero_is_null); }
std::string IntToSql(std::int32_t value, bool zero_is_null) {
  return text_of([&](std::string& out) { IntToSql(out, value, zero_is_null); });
}
std::string FloatToSql(float value, std::uint8_t decimals) {
  return text_of([&](std::string& out) { FloatToSql(out, value, decimals); });
}
std::string SingleToSql(float value, std::uint8_t decimals) {
  return text_of([&](std::string& out) { SingleToSql(out, value, decimals); });
}
std::string RealToSql(float value, std::uint8_t decimals) {
  return text_of([&](std::string& out) { RealToSql(out, value, decimals); });
}
std::string DoubleToSql(double value, std::uint8_t decimals) {
  return text_of([&](std::string& out) { DoubleToSql(out, value, decimals); });
}
std::string MoneyToSql(Currency value, std::uint8_t decimals) {
  return text_of([&](std::string& out) { MoneyToSql(out, value, decimals); });
}
std::string VarCharToSql(std::string_view value, std::int16_t max_length, bool empty_is_null) {
  return text_of([&](std::string& out) { VarCharToSql(out, value, max_length, empty_is_null); });
}
std::string DateSemHoraToSql(Date value, const VOSistema& settings) {
  return text_of([&](std::string& out) { DateSemHoraToSql(out, value, settings); });
}
std::string DateComHoraToSql(Date value, const VOSistema& settings) {
  return text_of([&](std::string& out) { DateComHoraToSql(out, value, settings); });
}
std::string BitToSql(bool value) {
  return text_of([&](std::string& out) { BitToSql(out, value); });
}

std::string SubstituirVirgulaPorPonto(std::string_view value) {
  return guarded("cdpModulo", "SubstituirVirgulaPorPonto", [&] {
    const std::size_t count = char_count(trim(value));
    // The 16-bit counter that walks the text has to pass its last character.
    if (count >= std::numeric_limits<std::int16_t>::max()) throw platform_erro(erro::kOverflow);
    std::string text(first_chars(value, count));
    std::ranges::replace(text, ',', '.');
    return text;
  });
}

}  // namespace posto
