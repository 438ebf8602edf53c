#include "posto/core/mapper.h"

#include "posto/core/error_vocabulary.h"
#include "posto/types/text.h"

namespace posto {
namespace {

constexpr std::size_t kLongText = 1000;  // a column from this width on is not cut

const Date kFirstDate = Date::of_day(1900, 1, 1);

bool is_code(std::string_view column) {
  return column.size() >= 3 && ascii_lower(column[0]) == 'c' && ascii_lower(column[1]) == 'd' && column[2] == '_';
}

bool is_zero(const Variant& value) {
  switch (value.kind()) {
    case VariantKind::Byte:
      return value.held<std::uint8_t>() == 0;
    case VariantKind::Int16:
      return value.held<std::int16_t>() == 0;
    case VariantKind::Int32:
      return value.held<std::int32_t>() == 0;
    case VariantKind::Float32:
      return value.held<float>() == 0;
    case VariantKind::Float64:
      return value.held<double>() == 0;
    case VariantKind::Currency:
      return value.held<Currency>() == Currency();
    default:
      return false;
  }
}

// Makes a property's value what it is in the database.
void make_stored(const VOSistema& settings, const ResultColumn& column, Variant& value) {
  if (value.kind() == VariantKind::Date) {
    if (value.held<Date>() < kFirstDate) value = Null{};
    return;
  }
  const bool text = value.is_text();
  if (is_code(column.name)) {
    if (text ? value.held<std::string>().empty() : is_zero(value)) {
      value = column.name == "Cd_PessoaUsuaria" && !text ? Variant(settings.tenant()) : Variant(Null{});
      return;
    }
  }
  if (text && column.width > 0 && column.width < kLongText && value.held<std::string>().size() > column.width) {
    value = std::string(first_chars(value.held<std::string>(), column.width));
  }
}

// Without the way over a Variant where column and property have one type.
bool read_same_type(const Cell& cell, SqlType type, const ValueObject& vo, const Property& property) {
  if (property.type != type) return false;
  switch (type) {
    case SqlType::bit:
      vo.member<bool>(property) = cell.integer != 0;
      return true;
    case SqlType::byte:
      vo.member<std::uint8_t>(property) = static_cast<std::uint8_t>(cell.integer);
      return true;
    case SqlType::int16:
      vo.member<std::int16_t>(property) = static_cast<std::int16_t>(cell.integer);
      return true;
    case SqlType::int32:
      vo.member<std::int32_t>(property) = static_cast<std::int32_t>(cell.integer);
      return true;
    case SqlType::float32:
      vo.member<float>(property) = static_cast<float>(cell.real);
      return true;
    case SqlType::float64:
      vo.member<double>(property) = cell.real;
      return true;
    case SqlType::money:
      vo.member<Currency>(property) = Currency::of_scaled(cell.integer);
      return true;
    case SqlType::date:
      vo.member<Date>(property) = Date::of_millis(cell.integer);
      return true;
    case SqlType::text:
      vo.member<std::string>(property) = cell.text;
      return true;
  }
  return false;
}

}  // namespace

void TransferirDadosDeVOParaBd(const VOSistema& settings, const ValueObject& vo, Recordset& record) {
  guarded("DALModulo", "TransferirDadosDeVOParaBd", [&] {
    const ResultShape& shape = record.shape();
    auto properties = shape.properties_of(vo.layout());
    for (std::size_t i = 0; i < properties.size(); ++i) {
      if (properties[i] == nullptr) continue;
      const ResultColumn& column = shape.columns()[i];
      tolerant([&] {
        bool generated = column.column != nullptr && column.column->identity;
        if (!generated) {
          Variant value = vo.get(*properties[i]);
          make_stored(settings, column, value);
          record[i].Value(std::move(value));
        } else if (Variant key = record[i].Value(); !key.is_null()) {
          vo.let(*properties[i], key);
        }
      });
    }
  });
}

bool pegarValorCamposSequencial(const ValueObject& vo, Names sequential_columns, Recordset& record) {
  return guarded("DALModulo", "pegarValorCamposSequencial", [&] {
    for (std::string_view name : sequential_columns) vo.let(name, record[name].Value());
    return true;
  });
}

void read_record(Recordset& record, const ValueObject& vo) {
  const ResultShape& shape = record.shape();
  const std::span<const Cell> row = record.row();
  auto properties = shape.properties_of(vo.layout());
  for (std::size_t i = 0; i < properties.size(); ++i) {
    const Cell& cell = row[i];
    if (cell.null || properties[i] == nullptr) continue;
    SqlType type = shape.columns()[i].type;
    if (read_same_type(cell, type, vo, *properties[i])) continue;
    tolerant([&] { vo.let(*properties[i], cell_value(cell, type)); });
  }
}

}  // namespace posto
