#include "posto/engines/sqlite/functions.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>

#include "posto/tsql/bound_value.h"
#include "posto/tsql/sqlite_ddl.h"
#include "posto/tsql/text_conversion.h"
#include "posto/types/decimal.h"
#include "posto/types/rounding.h"
#include "posto/types/text.h"

namespace posto::sqlite {
namespace {

using Values = sqlite3_value**;
__extension__ typedef __int128 Wide;  // for products of two 64-bit integers

std::string_view text_of(sqlite3_value* v) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(v));
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(v))};
}

void give(sqlite3_context* c, std::int64_t value) { sqlite3_result_int64(c, value); }
void give(sqlite3_context* c, bool value) { sqlite3_result_int(c, value); }
void give(sqlite3_context* c, double value) { sqlite3_result_double(c, value); }
void give(sqlite3_context* c, std::string_view value) {
  sqlite3_result_text64(c, value.data(), value.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}
void give(sqlite3_context* c, const std::string& value) { give(c, std::string_view(value)); }

[[noreturn]] void overflow(const std::string& what = {}) {
  throw Erro(erro::kDataOverflow, "tsql", "Estouro aritmético" + (what.empty() ? what : ": " + what));
}
[[noreturn]] void divided_by_zero() { throw Erro(erro::kSyntax, "tsql", "Divisão por zero"); }

// Makes a function of SQLite out of one of ours: null in, null out; a failure goes to the session.
template <auto function>
void adapt(sqlite3_context* c, int count, Values v) {
  auto& session = *static_cast<Session*>(sqlite3_user_data(c));
  for (int i = 0; i < count; ++i) {
    if (sqlite3_value_type(v[i]) == SQLITE_NULL) return sqlite3_result_null(c);
  }
  try {
    give(c, function(v, session));
  } catch (const Erro& e) {
    session.function_failure = e;
    sqlite3_result_error(c, e.description().c_str(), -1);
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(c);
  }
}

std::int64_t integer(sqlite3_value* v) {
  if (sqlite3_value_type(v) == SQLITE_FLOAT) overflow();  // a sum of integers that outgrew 64 bits
  return sqlite3_value_int64(v);
}

std::int64_t narrow(Wide value) {
  if (value > std::numeric_limits<std::int64_t>::max() || value < std::numeric_limits<std::int64_t>::min()) overflow();
  return static_cast<std::int64_t>(value);
}

std::int64_t divide_int(Values v, Session&) {
  std::int64_t by = integer(v[1]);
  if (by == 0) divided_by_zero();
  return narrow(static_cast<Wide>(integer(v[0])) / by);
}

double divide_real(Values v, Session&) {
  double by = sqlite3_value_double(v[1]);
  if (by == 0) divided_by_zero();
  double result = sqlite3_value_double(v[0]) / by;
  if (!std::isfinite(result)) overflow();
  return result;
}

// Cut at the fourth decimal.
std::int64_t divide_money(Values v, Session&) {
  std::int64_t by = integer(v[1]);
  if (by == 0) divided_by_zero();
  return narrow(static_cast<Wide>(integer(v[0])) * Currency::kScale / by);
}

std::int64_t multiply_money(Values v, Session&) {
  Wide product = static_cast<Wide>(integer(v[0])) * integer(v[1]);
  Wide half = product < 0 ? -Currency::kScale / 2 : Currency::kScale / 2;
  return narrow((product + half) / Currency::kScale);
}

double multiply_decimal(Values v, Session&) {
  return decimal_product(sqlite3_value_double(v[0]), sqlite3_value_double(v[1]));
}

// The decimals of Round, brought to where more of them change nothing.
int decimals_of(sqlite3_value* v) { return std::clamp(sqlite3_value_int(v), -15, 15); }

// Nothing has no sign.
double round_real(Values v, Session&) { return round_half_away(sqlite3_value_double(v[0]), decimals_of(v[1])) + 0.0; }

double round_decimals(Values v, Session&) { return round_decimal(sqlite3_value_double(v[0]), decimals_of(v[1])) + 0.0; }

std::int64_t round_money(Values v, Session&) {
  return round_half_away(Currency::of_scaled(integer(v[0])), decimals_of(v[1])).scaled();
}

std::int64_t round_int(Values v, Session&) {
  int decimals = decimals_of(v[1]);
  if (decimals >= 0) return integer(v[0]);
  Wide unit = 1;
  for (int i = decimals; i < 0; ++i) unit *= 10;
  Wide half = integer(v[0]) < 0 ? -unit / 2 : unit / 2;
  return narrow((integer(v[0]) + half) / unit * unit);
}

// posto_fit(value, type): an integer that CAST makes smaller.
std::int64_t fit(Values v, Session&) {
  std::int64_t value = integer(v[0]), low = 0, high = 255;
  if (static_cast<SqlType>(sqlite3_value_int(v[1])) == SqlType::int16) {
    low = std::numeric_limits<std::int16_t>::min();
    high = std::numeric_limits<std::int16_t>::max();
  } else if (static_cast<SqlType>(sqlite3_value_int(v[1])) == SqlType::int32) {
    low = std::numeric_limits<std::int32_t>::min();
    high = std::numeric_limits<std::int32_t>::max();
  }
  if (value < low || value > high) overflow("o valor " + std::to_string(value) + " não cabe no tipo pedido");
  return value;
}

double real32(Values v, Session&) {
  auto value = static_cast<float>(sqlite3_value_double(v[0]));
  if (!std::isfinite(value)) overflow();
  return value;
}

std::int64_t money_int(Values v, Session&) {
  return round_half_away(Currency::of_scaled(integer(v[0])), 0).scaled() / Currency::kScale;
}

std::int64_t real_int(Values v, Session&) {
  double value = std::trunc(sqlite3_value_double(v[0]));
  if (!(std::abs(value) < 2147483648.0) && value != -2147483648.0) overflow();
  return static_cast<std::int64_t>(value);
}

std::int64_t real_money(Values v, Session&) {
  double scaled = sqlite3_value_double(v[0]) * static_cast<double>(Currency::kScale);
  if (!(std::abs(scaled) < 9.2e18)) overflow();
  return std::llround(scaled);
}

bool text_bit(Values v, Session&) { return tsql::text_to_integer(text_of(v[0])) != 0; }
std::int64_t text_int(Values v, Session&) { return tsql::text_to_integer(text_of(v[0])); }
std::int64_t text_money(Values v, Session&) { return tsql::text_to_money(text_of(v[0])).scaled(); }
double text_real(Values v, Session&) { return tsql::text_to_real(text_of(v[0])); }
double text_real32(Values v, Session&) { return static_cast<float>(tsql::text_to_real(text_of(v[0]))); }

std::string text_date(Values v, Session& session) {
  auto date = tsql::read_date(text_of(v[0]), session.date_order);
  if (!date) throw Erro(erro::kConversion, "tsql", "O texto '" + tsql::shortened(text_of(v[0])) + "' não é uma data");
  return date->iso();
}

// Days since 1900-01-01.
std::string int_date(Values v, Session&) {
  std::int64_t days = integer(v[0]);
  if (days < -53690 || days > 2958463) overflow();
  return Date::of_day(1900, 1, 1).plus_days(days).iso();
}

// posto_text(value, type, width, padded, style)
std::string any_text(Values v, Session&) {
  tsql::TextTarget target{.width = static_cast<std::size_t>(sqlite3_value_int(v[2])),
                          .padded = sqlite3_value_int(v[3]) != 0,
                          .style = sqlite3_value_int(v[4])};
  switch (static_cast<SqlType>(sqlite3_value_int(v[1]))) {
    case SqlType::money:
      return tsql::money_to_text(Currency::of_scaled(integer(v[0])), target);
    case SqlType::float32:
    case SqlType::float64:
      return tsql::real_to_text(sqlite3_value_double(v[0]), target);
    case SqlType::text:
      return tsql::text_to_text(text_of(v[0]), target);
    case SqlType::date: {
      auto date = Date::parse_iso(text_of(v[0]));
      return tsql::date_to_text(date.value_or(Date()), target);
    }
    default:
      return tsql::integer_to_text(integer(v[0]), target);
  }
}

std::string_view part_of_text(Values v, Session&) {
  return tsql::substring(text_of(v[0]), integer(v[1]), integer(v[2]));
}

// What begins as a pattern does lies between these; our collation puts the last character of all behind any other.
std::string like_from(Values v, Session&) {
  const std::string_view pattern = text_of(v[0]);
  return std::string(pattern.substr(0, pattern.find_first_of("%_[")));
}
std::string like_to(Values v, Session& session) { return like_from(v, session) + "\U0010FFFF"; }

bool like(Values v, Session&) { return like_text(text_of(v[0]), text_of(v[1])); }

// posto_single(value): the one value of a subquery; a second row is a failure.
struct Single {
  sqlite3_value* value;
  bool seen;
};

void single_step(sqlite3_context* c, int, Values v) {
  auto* single = static_cast<Single*>(sqlite3_aggregate_context(c, sizeof(Single)));
  if (single == nullptr) return sqlite3_result_error_nomem(c);
  if (single->seen) {
    Erro failure(erro::kSyntax, "tsql", "A subconsulta deu mais de um valor");
    static_cast<Session*>(sqlite3_user_data(c))->function_failure = failure;
    return sqlite3_result_error(c, failure.description().c_str(), -1);
  }
  single->seen = true;
  single->value = sqlite3_value_dup(v[0]);
}

void single_final(sqlite3_context* c) {
  auto* single = static_cast<Single*>(sqlite3_aggregate_context(c, 0));
  if (single == nullptr || single->value == nullptr) return sqlite3_result_null(c);
  sqlite3_result_value(c, single->value);
  sqlite3_value_free(single->value);
}

int collate(void*, int size_a, const void* a, int size_b, const void* b) {
  return compare_text({static_cast<const char*>(a), static_cast<std::size_t>(size_a)},
                      {static_cast<const char*>(b), static_cast<std::size_t>(size_b)});
}

struct NamedFunction {
  const char* name;
  int arguments;
  void (*function)(sqlite3_context*, int, Values);
  bool deterministic = true;
};

constexpr NamedFunction kFunctions[] = {
    {"posto_divide_int", 2, adapt<divide_int>},
    {"posto_part_of_money", 2, adapt<divide_int>},
    {"posto_divide_real", 2, adapt<divide_real>},
    {"posto_divide_money", 2, adapt<divide_money>},
    {"posto_multiply_money", 2, adapt<multiply_money>},
    {"posto_multiply_decimal", 2, adapt<multiply_decimal>},
    {"posto_round_decimal", 2, adapt<round_decimals>},
    {"posto_round_real", 2, adapt<round_real>},
    {"posto_round_money", 2, adapt<round_money>},
    {"posto_round_int", 2, adapt<round_int>},
    {"posto_fit", 2, adapt<fit>},
    {"posto_real32", 1, adapt<real32>},
    {"posto_money_int", 1, adapt<money_int>},
    {"posto_real_int", 1, adapt<real_int>},
    {"posto_real_money", 1, adapt<real_money>},
    {"posto_text_bit", 1, adapt<text_bit>},
    {"posto_text_int", 1, adapt<text_int>},
    {"posto_text_money", 1, adapt<text_money>},
    {"posto_text_real", 1, adapt<text_real>},
    {"posto_text_real32", 1, adapt<text_real32>},
    {"posto_text_date", 1, adapt<text_date>, false},  // depends on the session's date order
    {"posto_int_date", 1, adapt<int_date>},
    {"posto_text", 5, adapt<any_text>},
    {"posto_substring", 3, adapt<part_of_text>},
    {"posto_like_from", 1, adapt<like_from>},
    {"posto_like_to", 1, adapt<like_to>},
    {"posto_like", 2, adapt<like>},
};

}  // namespace

void register_functions(sqlite3* database, Session& session) {
  for (const NamedFunction& f : kFunctions) {
    int flags = SQLITE_UTF8 | SQLITE_INNOCUOUS | (f.deterministic ? SQLITE_DETERMINISTIC : 0);
    sqlite3_create_function_v2(database, f.name, f.arguments, flags, &session, f.function, nullptr, nullptr, nullptr);
  }
  sqlite3_create_function_v2(database, "posto_single", 1, SQLITE_UTF8 | SQLITE_INNOCUOUS, &session, nullptr,
                             single_step, single_final, nullptr);
  sqlite3_create_collation_v2(database, std::string(tsql::kSqliteCollation).c_str(), SQLITE_UTF8, nullptr, collate,
                              nullptr);
}

}  // namespace posto::sqlite
