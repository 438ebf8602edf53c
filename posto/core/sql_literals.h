// Values as literals of a statement. Null is the word Null; true is -1; text stands in single quotes and is not
// escaped; figures have a point whatever the machine's locale; dates are written as the settings say.
//
// Each routine comes twice: giving the literal, and appending it to `out`. A failure keeps its number and gets the step
// " -> , vr5.<routine>, " on its source.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "posto/core/sistema.h"
#include "posto/types/currency.h"
#include "posto/types/date.h"

namespace posto {

// Whole numbers in plain digits; zero is Null where `zero_is_null` says so.
std::string TinyIntToSql(std::int16_t value, bool zero_is_null);
void TinyIntToSql(std::string& out, std::int16_t value, bool zero_is_null);
std::string SmallIntToSql(std::int16_t value, bool zero_is_null);
void SmallIntToSql(std::string& out, std::int16_t value, bool zero_is_null);
std::string IntToSql(std::int32_t value, bool zero_is_null);
void IntToSql(std::string& out, std::int32_t value, bool zero_is_null);

// Figures with exactly `decimals` decimals, halves away from zero: "-0.50"; with none the point stays: "12.". Never
// Null. Raise 5 for a value that is not finite.
std::string FloatToSql(float value, std::uint8_t decimals);
void FloatToSql(std::string& out, float value, std::uint8_t decimals);
std::string SingleToSql(float value, std::uint8_t decimals);
void SingleToSql(std::string& out, float value, std::uint8_t decimals);
std::string RealToSql(float value, std::uint8_t decimals);
void RealToSql(std::string& out, float value, std::uint8_t decimals);
std::string DoubleToSql(double value, std::uint8_t decimals);
void DoubleToSql(std::string& out, double value, std::uint8_t decimals);
std::string MoneyToSql(Currency value, std::uint8_t decimals);
void MoneyToSql(std::string& out, Currency value, std::uint8_t decimals);

// The first `max_length` characters in quotes, blanks kept; the empty text is Null where `empty_is_null` says so.
// Raises 5 for a negative `max_length`.
std::string VarCharToSql(std::string_view value, std::int16_t max_length, bool empty_is_null);
void VarCharToSql(std::string& out, std::string_view value, std::int16_t max_length, bool empty_is_null);

// A date in quotes in the settings' Ds_FormatoData; ComHora with " hh:Nn:Ss" behind it. The zero date is written as a
// date. Raise 5 for a pattern with a letter that has no meaning.
std::string DateSemHoraToSql(Date value, const VOSistema& settings);
void DateSemHoraToSql(std::string& out, Date value, const VOSistema& settings);
std::string DateComHoraToSql(Date value, const VOSistema& settings);
void DateComHoraToSql(std::string& out, Date value, const VOSistema& settings);

// "-1" for true, "0" for false; BooleanToBit is the same as a number.
std::string BitToSql(bool value);
void BitToSql(std::string& out, bool value);
constexpr std::int16_t BooleanToBit(bool value) { return value ? -1 : 0; }

// Every comma becomes a point. As many characters are taken, from the first, as the text has without the blanks at its
// ends: a text with leading blanks loses its last characters. Raises 6 for 32767 of them or more, source
// " -> cdpModulo.SubstituirVirgulaPorPonto, ".
std::string SubstituirVirgulaPorPonto(std::string_view value);

// Appends a whole number in plain digits.
void append_digits(std::string& out, std::int32_t value);

}  // namespace posto
