#include "posto/core/composers.h"

#include "posto/core/error_vocabulary.h"
#include "posto/core/sql_literals.h"
#include "posto/types/number_pattern.h"

namespace posto {
namespace {

constexpr std::string_view kIndent = "         ";
constexpr std::size_t kUsualLength = 384;

// How a statement writes its conditions.
struct Conditions {
  bool float64;  // whether a key of this type is compared at all
  bool boolean;
  bool whole_money;              // in full, or rounded to one decimal
  std::string_view behind_each;  // of those that are compared
  std::string_view between;
  std::string_view behind_all;
};
constexpr Conditions kWhere{.float64 = true,
                            .boolean = true,
                            .whole_money = false,
                            .behind_each = " ",
                            .between = "and \r         ",
                            .behind_all = " \r"};
constexpr Conditions kHaving{.float64 = false,
                             .boolean = false,
                             .whole_money = false,
                             .behind_each = " ",
                             .between = "and \r         ",
                             .behind_all = "\r"};
constexpr Conditions kDelete{.float64 = false,
                             .boolean = false,
                             .whole_money = true,
                             .behind_each = " \r",
                             .between = "      and ",
                             .behind_all = ""};

bool compares(const Conditions& form, SqlType type) {
  switch (type) {
    case SqlType::float32:
      return false;
    case SqlType::float64:
      return form.float64;
    case SqlType::bit:
      return form.boolean;
    default:
      return true;
  }
}

void append_money(std::string& out, Currency value, bool whole) {
  if (whole) {
    out += Variant(value).as<std::string>();
  } else {
    append_fixed(out, value, 1);
  }
}

void append_quoted(std::string& out, std::string_view text) { out.append("'").append(text).append("'"); }

void append_comparison(std::string& out, const Conditions& form, const ValueObject& vo, const Property& key,
                       const VOSistema& settings) {
  if (key.type == SqlType::bit) {
    out += vo.member<bool>(key) ? " <> 0" : " = 0";
    return;
  }
  out += " = ";
  switch (key.type) {
    case SqlType::byte:
      return append_digits(out, vo.member<std::uint8_t>(key));
    case SqlType::int16:
      return append_digits(out, vo.member<std::int16_t>(key));
    case SqlType::int32:
      return append_digits(out, vo.member<std::int32_t>(key));
    case SqlType::float64:
      return append_fixed(out, vo.member<double>(key), 1);
    case SqlType::money:
      return append_money(out, vo.member<Currency>(key), form.whole_money);
    case SqlType::date:
      return append_quoted(out, format_date(vo.member<Date>(key), settings.Ds_FormatoData));
    case SqlType::text:
      return append_quoted(out, vo.member<std::string>(key));
    case SqlType::bit:
    case SqlType::float32:
      return;  // the first is written above, the second is never compared
  }
}

const Property& property_of(const ValueObject& vo, std::string_view name) {
  if (const Property* property = vo.layout().find(name)) return *property;
  throw platform_erro(erro::kUnknownMember, name);
}

void append_conditions(std::string& out, const Conditions& form, const ValueObject& vo, Names keys,
                       const VOSistema& settings) {
  for (std::size_t i = 0; i < keys.size(); ++i) {
    if (i > 0) out += form.between;
    const Property& key = property_of(vo, keys[i]);
    if (!compares(form, key.type)) continue;
    out += keys[i];
    append_comparison(out, form, vo, key, settings);
    out += form.behind_each;
  }
  out += form.behind_all;
}

void append_items(std::string& out, Names items) {
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (i > 0) out.append(", \r").append(kIndent);
    out += items[i];
  }
  out += " \r";
}

void append_items_clause(std::string& out, std::string_view word, Names items) {
  if (items.empty()) return;
  out += word;
  append_items(out, items);
}

void append_conditions_clause(std::string& out, std::string_view word, const Conditions& form, const ValueObject& vo,
                              Names keys, const VOSistema& settings) {
  if (keys.empty()) return;
  out += word;
  append_conditions(out, form, vo, keys, settings);
}

// Composes under SQL Server inside the named routine.
template <class Compose>
std::string composed(const VOSistema& settings, std::string_view routine, Compose compose) {
  std::string out;
  if (settings.Cd_BD != BancoDadosSqlServer2000) return out;
  out.reserve(kUsualLength);
  guarded("DALModulo", routine, [&] { compose(out); });
  return out;
}

struct Select {
  const VOSistema& settings;
  std::string_view table;
  const ValueObject& vo;
  Names fields, keys, groups, having, order;
  std::string_view behind_where = {};

  void compose(std::string& out) const {
    out += "SELECT   ";
    if (fields.empty()) {
      out += " * \r";
    } else {
      append_items(out, fields);
    }
    out.append("FROM     ").append(table).append(" \r");
    append_conditions_clause(out, "WHERE    ", kWhere, vo, keys, settings);
    out += behind_where;
    append_items_clause(out, "GROUP BY ", groups);
    append_conditions_clause(out, "HAVING ", kHaving, vo, having, settings);
    append_items_clause(out, "ORDER BY ", order);
  }
};

std::string_view not_deleted(Names keys) {
  return keys.empty() ? "and \rWHERE        Ic_Excluido = 0" : "         and Ic_Excluido = 0";
}

}  // namespace

std::string sqlSelect(const VOSistema& settings, std::string_view table, const ValueObject& vo, Names fields,
                      Names keys, Names groups, Names having, Names order) {
  const Select select{settings, table, vo, fields, keys, groups, having, order};
  return composed(settings, "sqlSelect", [&](std::string& out) { select.compose(out); });
}

std::string sqlSelect2(const VOSistema& settings, std::string_view table, const ValueObject& vo, Names fields,
                       Names keys, bool include_deleted, Names groups, Names having, Names order) {
  const Select select{settings, table, vo,
                      fields,   keys,  groups,
                      having,   order, include_deleted ? std::string_view{} : not_deleted(keys)};
  return composed(settings, "sqlSelect2", [&](std::string& out) { select.compose(out); });
}

std::string sqlDelete(const VOSistema& settings, std::string_view table, const ValueObject& vo, Names keys) {
  return composed(settings, "sqlDelete", [&](std::string& out) {
    out.append("DELETE \rFROM ").append(table).append(" \rWHERE ");
    append_conditions(out, kDelete, vo, keys, settings);
  });
}

std::string sqlIndicadorExcluido(const VOSistema& settings, std::string_view table, const ValueObject& vo, Names keys) {
  return composed(settings, "sqlIndicadorExcluido", [&](std::string& out) {
    out.append("UPDATE ").append(table).append(" \rSET    Ic_Excluido = -1\rWHERE ");
    append_conditions(out, kDelete, vo, keys, settings);
  });
}

bool LerPropriedadeVO(const ValueObject& vo, std::string_view name, Variant& value) {
  const Property* property = vo.layout().find(name);
  value = property ? vo.get(*property) : Variant();
  return property != nullptr;
}

}  // namespace posto
