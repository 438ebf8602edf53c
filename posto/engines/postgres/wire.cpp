#include "posto/engines/postgres/wire.h"

#include <fmt/format.h>

#include <bit>
#include <cmath>
#include <cstring>

#include "posto/engines/row_stream.h"
#include "posto/tsql/types.h"
#include "posto/types/decimal.h"
#include "posto/types/erro.h"

namespace posto::postgres {
namespace {

enum Type : Oid {
  kBool = 16,
  kInt8 = 20,
  kInt2 = 21,
  kInt4 = 23,
  kText = 25,
  kFloat4 = 700,
  kFloat8 = 701,
  kBpchar = 1042,
  kTimestamp = 1114,
  kNumeric = 1700
};
constexpr int kBinary = 1;
constexpr std::uint16_t kNegative = 0x4000;
constexpr std::int64_t kBase = 10'000;  // of a numeric's digits, which are as wide as the decimals of money

constexpr std::string_view kProvider = "PostgreSQL";

const Date kEpoch = Date::of_day(2000, 1, 1);
// Of a date here; the server knows earlier and later ones, and its infinities.
const std::int64_t kFirstMoment = Date::of_day(100, 1, 1).millis();
const std::int64_t kLastMoment = Date::of_day(9999, 12, 31).millis() + 86'399'999;

std::uint64_t read_big_endian(const char* bytes, int count) {
  std::uint64_t value = 0;
  for (int i = 0; i < count; ++i) value = value << 8 | static_cast<unsigned char>(bytes[i]);
  return value;
}

void append_big_endian(std::string& out, std::uint64_t value, int count) {
  for (int shift = 8 * (count - 1); shift >= 0; shift -= 8) out += static_cast<char>(value >> shift & 0xFF);
}

[[noreturn]] void overflow() { throw Erro(erro::kDataOverflow, std::string(kProvider), "Estouro aritmético"); }

}  // namespace

Oid type_of(const tsql::Parameter& p) {
  switch (p.type) {
    case SqlType::money:
      return kNumeric;
    case SqlType::float32:
      return kFloat4;
    case SqlType::float64:
      return kFloat8;
    case SqlType::date:
      return kTimestamp;
    case SqlType::text:
      return p.compared ? kBpchar : kText;
    default:
      return p.compared ? kInt8 : kInt4;
  }
}

// --- sending
// ------------------------------------------------------------------------------------------------------------

void Values::clear() {
  bytes_.clear();
  types_.clear();
  begins_.clear();
  lengths_.clear();
  formats_.clear();
  usual_ = true;
}

void Values::begin(Oid type) {
  types_.push_back(type);
  begins_.push_back(bytes_.size());
  formats_.push_back(kBinary);
}

void Values::integer(std::int64_t value, int bytes) {
  append_big_endian(bytes_, static_cast<std::uint64_t>(value), bytes);
}

void Values::real(double value, bool single) {
  if (single) {
    append_big_endian(bytes_, std::bit_cast<std::uint32_t>(static_cast<float>(value)), 4);
  } else {
    append_big_endian(bytes_, std::bit_cast<std::uint64_t>(value), 8);
  }
}

// Digits of base 10,000, the last of them behind the point.
void Values::money(std::int64_t scaled) {
  std::uint64_t rest = magnitude(scaled);
  std::uint16_t digits[6];
  int count = 0;
  for (; rest != 0; rest /= kBase) digits[count++] = static_cast<std::uint16_t>(rest % kBase);
  append_big_endian(bytes_, static_cast<std::uint64_t>(count), 2);
  append_big_endian(bytes_, static_cast<std::uint64_t>(count - 2), 2);  // the weight of the first
  append_big_endian(bytes_, scaled < 0 ? kNegative : 0, 2);
  append_big_endian(bytes_, 4, 2);  // decimals shown
  while (count > 0) append_big_endian(bytes_, digits[--count], 2);
}

void Values::add(const tsql::Parameter& p, const tsql::BoundValue& value) {
  using Kind = tsql::BoundValue::Kind;
  begin(type_of(p));
  switch (value.kind) {
    case Kind::null:
      lengths_.push_back(-1);
      return;
    case Kind::integer:
      if (p.type == SqlType::money) {
        money(value.integer);
      } else if (p.compared) {
        integer(value.integer, 8);
      } else {
        tsql::require_room(p, value.integer);
        integer(value.integer, 4);
      }
      break;
    case Kind::real:
      if (p.type == SqlType::money) {  // with more digits than money has
        formats_.back() = 0;
        fmt::format_to(std::back_inserter(bytes_), "{:.17g}", value.real / static_cast<double>(Currency::kScale));
        bytes_ += '\0';
      } else if (tsql::is_float(p.type)) {
        real(value.real, p.type == SqlType::float32);
      } else {
        types_.back() = kFloat8;
        usual_ = false;
        real(value.real, false);
      }
      break;
    case Kind::text:
      if (p.type == SqlType::date) {
        const auto moment = Date::parse_iso(value.text);
        integer((moment.value_or(Date()).millis() - kEpoch.millis()) * 1000, 8);
      } else {
        bytes_ += value.text;
      }
  }
  lengths_.push_back(static_cast<int>(bytes_.size() - begins_.back()));
}

const char* const* Values::values() {
  pointers_.clear();
  for (std::size_t i = 0; i < begins_.size(); ++i) {
    pointers_.push_back(lengths_[i] < 0 ? nullptr : bytes_.data() + begins_[i]);
  }
  return pointers_.data();
}

// --- reading
// ------------------------------------------------------------------------------------------------------------

namespace {

// A numeric; digits behind the fourth decimal are rounded, halves away from zero.
std::int64_t read_scaled(const char* bytes) {
  const int count = static_cast<int>(read_big_endian(bytes, 2));
  const int weight = static_cast<std::int16_t>(read_big_endian(bytes + 2, 2));
  const auto sign = read_big_endian(bytes + 4, 2);
  if (sign != 0 && sign != kNegative) overflow();  // no number
  const bool negative = sign == kNegative;
  std::int64_t scaled = 0;  // of the value's own sign: the least one has no counterpart
  const auto append = [&](std::int64_t base, std::int64_t digit) {
    if (__builtin_mul_overflow(scaled, base, &scaled) ||
        __builtin_add_overflow(scaled, negative ? -digit : digit, &scaled)) {
      overflow();
    }
  };
  auto digit = [&](int i) { return i < count ? static_cast<std::int64_t>(read_big_endian(bytes + 8 + 2 * i, 2)) : 0; };
  for (int i = 0; i <= weight + 1; ++i) append(kBase, digit(i));
  const int next = weight + 2;
  if (next >= 0 && digit(next) >= kBase / 2) append(1, 1);
  return scaled;
}

struct Field {
  Oid type;
  const char* bytes;

  double real() const {
    switch (type) {
      case kFloat4:
        return std::bit_cast<float>(static_cast<std::uint32_t>(read_big_endian(bytes, 4)));
      case kFloat8:
        return std::bit_cast<double>(read_big_endian(bytes, 8));
      case kNumeric:
        return static_cast<double>(read_scaled(bytes)) / static_cast<double>(Currency::kScale);
      default:
        return static_cast<double>(integer());
    }
  }
  std::int64_t integer() const {
    switch (type) {
      case kBool:
        return bytes[0];
      case kInt2:
        return static_cast<std::int16_t>(read_big_endian(bytes, 2));
      case kInt4:
        return static_cast<std::int32_t>(read_big_endian(bytes, 4));
      case kInt8:
        return static_cast<std::int64_t>(read_big_endian(bytes, 8));
      case kNumeric:
        return read_scaled(bytes) / Currency::kScale;
      default:
        return static_cast<std::int64_t>(std::trunc(real()));
    }
  }
  std::int64_t scaled() const {
    if (type == kNumeric) return read_scaled(bytes);
    std::int64_t value = 0;
    if (__builtin_mul_overflow(integer(), Currency::kScale, &value)) overflow();
    return value;
  }
  // Moments before the epoch are negative: rounded down, a millisecond is never more than it was.
  std::int64_t millis() const {
    const auto micros = static_cast<std::int64_t>(read_big_endian(bytes, 8));
    return kEpoch.millis() + (micros >= 0 ? micros / 1000 : (micros - 999) / 1000);
  }
};

}  // namespace

void read_row(const PGresult* result, int row, const ResultShape& shape, std::span<Cell> cells) {
  int i = 0;
  for (const ResultColumn& column : shape.columns()) {
    Cell& cell = cells[static_cast<std::size_t>(i)];
    cell.null = PQgetisnull(result, row, i) != 0;
    if (!cell.null) {
      const Field field{PQftype(result, i), PQgetvalue(result, row, i)};
      switch (column.type) {
        case SqlType::float32:
        case SqlType::float64:
          cell.real = require_finite(field.real(), column, kProvider);
          break;
        case SqlType::money:
          cell.integer = field.scaled();
          break;
        case SqlType::date:
          cell.integer = field.millis();
          if (cell.integer < kFirstMoment || cell.integer > kLastMoment) raise_no_room(column, kProvider);
          break;
        case SqlType::text:
          cell.text = {field.bytes, static_cast<std::size_t>(PQgetlength(result, row, i))};
          break;
        default:
          cell.integer = field.integer();
          if (cell.integer != static_cast<std::int32_t>(cell.integer)) raise_no_room(column, kProvider);
      }
    }
    ++i;
  }
}

}  // namespace posto::postgres
