#include "posto/engines/odbc/wire.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <tuple>
#include <utility>

#include "posto/engines/odbc/text.h"
#include "posto/engines/row_stream.h"
#include "posto/tsql/types.h"
#include "posto/types/decimal.h"
#include "posto/types/erro.h"

namespace posto::odbc {
namespace {

constexpr SQLULEN kLongestText = 8000;  // of a varchar; a longer text goes as one without a limit

template <class T>
void put_bytes(std::string& bytes, T value) {
  bytes.assign(reinterpret_cast<const char*>(&value), sizeof value);
}

template <class T>
T get_bytes(const char* at) {
  T value;
  std::memcpy(&value, at, sizeof value);
  return value;
}

// The type of a value here and the one that the server takes it for.
std::pair<SQLSMALLINT, SQLSMALLINT> sent_form(const tsql::Parameter& p) {
  if (tsql::is_integer(p.type)) {
    return {SQL_C_SBIGINT, p.compared ? SQLSMALLINT{SQL_BIGINT} : SQLSMALLINT{SQL_INTEGER}};
  }
  if (tsql::is_float(p.type)) return {SQL_C_DOUBLE, SQL_DOUBLE};
  return {p.type == SqlType::text ? SQLSMALLINT{SQL_C_WCHAR} : SQLSMALLINT{SQL_C_CHAR}, SQL_VARCHAR};
}

void put_money(std::string& bytes, std::int64_t scaled) {
  bytes.clear();
  append_scaled(bytes, scaled < 0, magnitude(scaled), 4);
}

}  // namespace

// --- sending
// ------------------------------------------------------------------------------------------------------------

Values::Value& Values::next() {
  if (count_ == values_.size()) values_.emplace_back();
  return values_[count_++];
}

std::string Values::Value::text() const {
  switch (c_type) {
    case SQL_C_SBIGINT:
      return fmt::format("{}", get_bytes<std::int64_t>(bytes.data()));
    case SQL_C_DOUBLE:
      return fmt::format("{}", get_bytes<double>(bytes.data()));
    case SQL_C_WCHAR:
      return to_utf8({reinterpret_cast<const SQLWCHAR*>(bytes.data()), bytes.size() / sizeof(SQLWCHAR)});
    default:
      return bytes;
  }
}

void Values::add(const tsql::Parameter& p, const tsql::BoundValue& value) {
  using Kind = tsql::BoundValue::Kind;
  Value& out = next();
  std::tie(out.c_type, out.sql_type) = sent_form(p);
  out.null = value.kind == Kind::null;
  out.bytes.clear();
  switch (value.kind) {
    case Kind::null:
      return;
    case Kind::integer:
      if (p.type == SqlType::money) return put_money(out.bytes, value.integer);
      if (!p.compared) tsql::require_room(p, value.integer);
      return put_bytes(out.bytes, value.integer);
    case Kind::real:
      if (p.type == SqlType::money) {  // with more digits than money has
        out.bytes = fmt::format("{:.17g}", value.real / static_cast<double>(Currency::kScale));
        return;
      }
      if (tsql::is_integer(p.type)) {
        out.c_type = SQL_C_DOUBLE;
        out.sql_type = SQL_DOUBLE;
        has_fraction_ = true;
      }
      return put_bytes(out.bytes, p.type == SqlType::float32 ? static_cast<float>(value.real) : value.real);
    case Kind::text:
      if (p.type == SqlType::date) {  // "yyyy-mm-ddThh:mm:ss" reads the same in every order of dates
        out.bytes = value.text;
        if (out.bytes.size() > 10) out.bytes[10] = 'T';
        return;
      }
      WideText wide;
      append_utf16(wide, value.text);
      out.bytes.assign(reinterpret_cast<const char*>(wide.data()), wide.size() * sizeof(char16_t));
  }
}

void ParameterBlock::fill(const Command& command, const Values& values) {
  const auto all = values.all();
  slots_.resize(all.size());
  for (std::size_t i = 0; i < all.size(); ++i) {
    const Values::Value& value = all[i];
    Slot& slot = slots_[i];
    if (slot.bytes == nullptr || slot.c_type != value.c_type || slot.room < value.bytes.size()) {
      bind(command, static_cast<SQLUSMALLINT>(i + 1), slot, value);
    }
    std::memcpy(slot.bytes.get(), value.bytes.data(), value.bytes.size());
    slot.length = value.null ? SQL_NULL_DATA : static_cast<SQLLEN>(value.bytes.size());
  }
}

void ParameterBlock::bind(const Command& command, SQLUSMALLINT number, Slot& slot, const Values::Value& value) {
  constexpr std::size_t kLeastRoom = 64;
  slot.room = std::max(kLeastRoom, value.bytes.size() * 2);
  slot.bytes = std::make_unique<char[]>(slot.room);
  slot.c_type = value.c_type;
  const std::size_t characters = value.bytes.size() / (value.c_type == SQL_C_WCHAR ? sizeof(char16_t) : 1);
  const SQLULEN size = value.sql_type != SQL_VARCHAR ? 0 : characters > kLongestText ? 0 : kLongestText;
  command.check(SQLBindParameter(command.handle(), number, SQL_PARAM_INPUT, value.c_type, value.sql_type, size, 0,
                                 slot.bytes.get(), static_cast<SQLLEN>(slot.room), &slot.length),
                {});
}

// --- reading
// ------------------------------------------------------------------------------------------------------------

namespace {

constexpr std::size_t kBlockBytes = 64 * 1024;
constexpr std::size_t kMostRows = 128;
constexpr std::size_t kAlignment = 8;
constexpr std::size_t kMoneyRoom = 48;
constexpr std::size_t kWidestBound = 4000;  // characters; wider texts are rare and long

// How a column is read; of a text the room is found apart.
std::pair<SQLSMALLINT, std::size_t> form_of(SqlType type) {
  switch (type) {
    case SqlType::float32:
    case SqlType::float64:
      return {SQL_C_DOUBLE, sizeof(double)};
    case SqlType::money:
      return {SQL_C_CHAR, kMoneyRoom};
    case SqlType::date:
      return {SQL_C_TYPE_TIMESTAMP, sizeof(SQL_TIMESTAMP_STRUCT)};
    case SqlType::text:
      return {SQL_C_WCHAR, 0};
    default:
      return {SQL_C_SBIGINT, sizeof(std::int64_t)};
  }
}

// The widest text that a column gives, in characters; 0 where nobody knows. A database that was there before may have
// wider columns than the catalogue.
std::size_t width_of(SQLHSTMT statement, SQLUSMALLINT number, const ResultColumn& column) {
  if (column.column == nullptr) return 0;
  SQLULEN size = 0;
  SQLSMALLINT name_length = 0, type = 0, digits = 0, nullable = 0;
  SQLDescribeColW(statement, number, nullptr, 0, &name_length, &type, &size, &digits, &nullable);
  const bool is_told = size > 0 && size <= kWidestBound;
  const std::size_t width = std::max<std::size_t>(column.width, is_told ? size : 0);
  return width <= kWidestBound ? width : 0;
}

std::int64_t millis_of(const SQL_TIMESTAMP_STRUCT& t, const ResultColumn& column, std::string_view provider) {
  constexpr SQLUINTEGER kNanosPerMilli = 1'000'000;
  const auto moment = Date::of_parts({.year = t.year,
                                      .month = t.month,
                                      .day = t.day,
                                      .hour = t.hour,
                                      .minute = t.minute,
                                      .second = t.second,
                                      .millisecond = static_cast<int>(t.fraction / kNanosPerMilli)});
  if (!moment) raise_no_room(column, provider);
  return moment->millis();
}

// A figure as the server writes it, with an exponent perhaps where it was a float there.
std::int64_t scaled_of(std::string_view figure, const ResultColumn& column, std::string_view provider) {
  auto decimal = Decimal::parse(figure);
  if (!decimal) raise_no_room(column, provider);  // no number, as databases have them
  decimal->round(4, Half::Away);
  try {
    return decimal->scaled(4);
  } catch (const Erro&) {
    raise_no_room(column, provider);
  }
}

}  // namespace

bool RowBlock::plan_fields() {
  bool known = true;
  SQLUSMALLINT number = 0;
  for (const ResultColumn& column : shape_.columns()) {
    ++number;
    Field field{.at = row_bytes_};
    std::tie(field.c_type, field.room) = form_of(column.type);
    if (column.type == SqlType::text) {
      const std::size_t width = width_of(command_.handle(), number, column);
      known = known && width > 0;
      field.room = (2 * width + 1) * sizeof(SQLWCHAR);  // a character may take two units
    }
    row_bytes_ += sizeof(SQLLEN) + (field.room + kAlignment - 1) / kAlignment * kAlignment;
    fields_.push_back(field);
  }
  return known;
}

void RowBlock::bind() {
  in_blocks_ = plan_fields();
  texts_.resize(fields_.size());
  const std::size_t rows = in_blocks_ ? std::clamp<std::size_t>(kBlockBytes / row_bytes_, 1, kMostRows) : 1;
  rows_ = std::make_unique_for_overwrite<char[]>(rows * row_bytes_);
  if (!in_blocks_) return;
  states_.resize(rows);
  const SQLHSTMT statement = command_.handle();
  // A driver that refused one of these would give no rows, or the first of each block.
  command_.check(command_.set_attribute(SQL_ATTR_ROW_BIND_TYPE, row_bytes_), {});
  command_.check(command_.set_attribute(SQL_ATTR_ROW_ARRAY_SIZE, rows), {});
  command_.check(SQLSetStmtAttrW(statement, SQL_ATTR_ROWS_FETCHED_PTR, &filled_, 0), {});
  command_.check(SQLSetStmtAttrW(statement, SQL_ATTR_ROW_STATUS_PTR, states_.data(), 0), {});
  SQLUSMALLINT number = 0;
  for (const Field& field : fields_) {
    char* const at = rows_.get() + field.at;
    command_.check(SQLBindCol(statement, ++number, field.c_type, at + sizeof(SQLLEN), static_cast<SQLLEN>(field.room),
                              reinterpret_cast<SQLLEN*>(at)),
                   {});
  }
}

void RowBlock::restart() {
  if (rows_ == nullptr) bind();
  row_ = filled_ = 0;
}

bool RowBlock::fetch(std::string_view told) {
  row_ = filled_ = 0;
  const SQLRETURN code = SQLFetch(command_.handle());
  if (!SQL_SUCCEEDED(code)) filled_ = 0;
  command_.check(code, told);
  if (code == SQL_NO_DATA) return false;
  if (!in_blocks_) filled_ = 1;
  return filled_ > 0;
}

void RowBlock::get_text(std::size_t i, std::string_view told) {
  constexpr std::size_t kChunk = 1024;
  SQLWCHAR chunk[kChunk];
  std::basic_string<SQLWCHAR> whole;
  SQLLEN length = 0;
  for (bool more = true; more;) {
    const SQLRETURN code =
        SQLGetData(command_.handle(), static_cast<SQLUSMALLINT>(i + 1), SQL_C_WCHAR, chunk, sizeof chunk, &length);
    command_.check(code, told);
    if (code == SQL_NO_DATA || length == SQL_NULL_DATA) break;
    more = length == SQL_NO_TOTAL || length >= static_cast<SQLLEN>(sizeof chunk);
    whole.append(chunk, more ? kChunk - 1 : static_cast<std::size_t>(length) / sizeof(SQLWCHAR));
  }
  length = length == SQL_NULL_DATA ? SQL_NULL_DATA : 0;
  std::memcpy(rows_.get() + fields_[i].at, &length, sizeof length);
  texts_[i].clear();
  append_utf8(texts_[i], whole);
}

void RowBlock::get_single(std::size_t i, std::string_view told) {
  const Field& field = fields_[i];
  char* const at = rows_.get() + field.at;
  SQLLEN length = SQL_NULL_DATA;
  command_.check(SQLGetData(command_.handle(), static_cast<SQLUSMALLINT>(i + 1), field.c_type, at + sizeof(SQLLEN),
                            static_cast<SQLLEN>(field.room), &length),
                 told);
  std::memcpy(at, &length, sizeof length);
}

void RowBlock::take(std::size_t i, const char* at, SQLLEN length, Cell& cell) {
  const ResultColumn& column = shape_.columns()[i];
  const std::string_view provider = command_.server().name;
  switch (column.type) {
    case SqlType::float32:
      cell.real = require_finite(static_cast<float>(get_bytes<double>(at)), column, provider);
      break;
    case SqlType::float64:
      cell.real = require_finite(get_bytes<double>(at), column, provider);
      break;
    case SqlType::money:
      cell.integer = scaled_of({at, strnlen(at, fields_[i].room)}, column, provider);  // cut behind many decimals
      break;
    case SqlType::date:
      cell.integer = millis_of(get_bytes<SQL_TIMESTAMP_STRUCT>(at), column, provider);
      break;
    case SqlType::text:
      if (in_blocks_) {
        const bool cut = length < 0 || static_cast<std::size_t>(length) + sizeof(SQLWCHAR) > fields_[i].room;
        if (cut) raise_no_room(column, provider);
        texts_[i].clear();
        append_utf8(texts_[i],
                    {reinterpret_cast<const SQLWCHAR*>(at), static_cast<std::size_t>(length) / sizeof(SQLWCHAR)});
      }
      cell.text = texts_[i];
      break;
    default:
      cell.integer = get_bytes<std::int64_t>(at);
      if (cell.integer != static_cast<std::int32_t>(cell.integer)) raise_no_room(column, provider);
  }
}

bool RowBlock::next(std::span<Cell> cells, std::string_view told) {
  if (row_ == filled_ && !fetch(told)) return false;
  if (in_blocks_ && states_[row_] == SQL_ROW_ERROR) command_.check(SQL_ERROR, told);
  char* const row = rows_.get() + row_++ * row_bytes_;
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    const Field& field = fields_[i];
    if (!in_blocks_) field.c_type == SQL_C_WCHAR ? get_text(i, told) : get_single(i, told);
    const auto length = get_bytes<SQLLEN>(row + field.at);
    cells[i].null = length == SQL_NULL_DATA;
    if (!cells[i].null) take(i, row + field.at + sizeof(SQLLEN), length, cells[i]);
  }
  return true;
}

}  // namespace posto::odbc
