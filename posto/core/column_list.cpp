#include "posto/core/column_list.h"

#include <algorithm>

#include "posto/core/sql_literals.h"
#include "posto/types/erro.h"

namespace posto {
namespace {

std::int32_t integer_of(const ValueObject& vo, const Property& p) {
  switch (p.type) {
    case SqlType::bit:
      return vo.member<bool>(p) ? -1 : 0;
    case SqlType::byte:
      return vo.member<std::uint8_t>(p);
    case SqlType::int16:
      return vo.member<std::int16_t>(p);
    case SqlType::int32:
      return vo.member<std::int32_t>(p);
    default:
      return vo.get(p).as<std::int32_t>();
  }
}

double number_of(const ValueObject& vo, const Property& p) {
  switch (p.type) {
    case SqlType::float64:
      return vo.member<double>(p);
    case SqlType::float32:
      return static_cast<double>(vo.member<float>(p));
    default:
      return vo.get(p).as<double>();
  }
}

std::int16_t small_of(const ValueObject& vo, const Property& p) {
  const std::int32_t value = integer_of(vo, p);
  return value == static_cast<std::int16_t>(value) ? static_cast<std::int16_t>(value) : vo.get(p).as<std::int16_t>();
}

}  // namespace

void append_literal(std::string& out, const LiteralForm& form, const ValueObject& vo, const Property& p,
                    const VOSistema& settings) {
  using Routine = LiteralForm::Routine;
  const auto decimals = static_cast<std::uint8_t>(form.argument);
  auto narrowed = [&] { return static_cast<float>(number_of(vo, p)); };
  switch (form.routine) {
    case Routine::tiny_int:
      return TinyIntToSql(out, small_of(vo, p), form.null_when_empty);
    case Routine::small_int:
      return SmallIntToSql(out, small_of(vo, p), form.null_when_empty);
    case Routine::integer:
      return IntToSql(out, integer_of(vo, p), form.null_when_empty);
    case Routine::float32:
      return FloatToSql(out, narrowed(), decimals);
    case Routine::real:
      return RealToSql(out, narrowed(), decimals);
    case Routine::float64:
      return DoubleToSql(out, number_of(vo, p), decimals);
    case Routine::money:
      return MoneyToSql(out, p.type == SqlType::money ? vo.member<Currency>(p) : vo.get(p).as<Currency>(), decimals);
    case Routine::var_char:
      return VarCharToSql(out, vo.member<std::string>(p), form.argument, form.null_when_empty);
    case Routine::day:
      return DateSemHoraToSql(out, vo.member<Date>(p), settings);
    case Routine::moment:
      return DateComHoraToSql(out, vo.member<Date>(p), settings);
    case Routine::bit:
      return BitToSql(out, vo.member<bool>(p));
    case Routine::quoted:
      out += '\'';
      out += vo.member<std::string>(p);
      out += '\'';
      return;
    case Routine::none:
      return;
  }
}

ColumnList::ColumnList(std::string_view table, std::span<const ListColumn> columns, const VoLayout& layout)
    : table_(table), columns_(columns) {
  insert_head_ = "INSERT INTO " + std::string(table) + " (";
  for (const ListColumn& c : columns_) {
    const Property* property = layout.find(c.column);
    if (property == nullptr) {
      throw Erro(erro::kUnknownMember, std::string(layout.type_name()),
                 "O objeto não possui a propriedade " + std::string(c.column));
    }
    properties_.push_back(property);
    if (&c != columns_.data()) insert_head_ += ',';
    insert_head_ += c.column;
  }
  insert_head_ += ") Values (";
}

std::string ColumnList::insert_statement(const ValueObject& vo, const VOSistema& settings) const {
  std::string out;
  out.reserve(insert_head_.size() + 16 * columns_.size());
  out += insert_head_;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (i > 0) out += ',';
    append_literal(out, columns_[i].insert, vo, *properties_[i], settings);
  }
  out += ')';
  return out;
}

std::string ColumnList::update_statement(const ValueObject& vo, const VOSistema& settings, Names keys) const {
  std::string out;
  out.reserve(2 * insert_head_.size() + 16 * columns_.size());
  auto assign = [&](std::size_t i) {
    const ListColumn& c = columns_[i];
    out += c.column;
    out += " = ";
    append_literal(out, c.update.routine == LiteralForm::Routine::none ? c.insert : c.update, vo, *properties_[i],
                   settings);
  };
  out += "UPDATE ";
  out += table_;
  out += "\rSET   ";
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (i > 0) out += "\r,";
    assign(i);
  }
  std::string_view join = "\rWHERE ";
  for (std::string_view key : keys) {
    auto found = std::find_if(columns_.begin(), columns_.end(), [&](const ListColumn& c) { return c.column == key; });
    if (found == columns_.end())
      throw Erro(erro::kUnknownMember, std::string(table_), "A lista não tem a coluna " + std::string(key));
    out += join;
    assign(static_cast<std::size_t>(found - columns_.begin()));
    join = " And ";
  }
  return out;
}

}  // namespace posto
