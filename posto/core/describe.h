// The words in which a catalogue tells the facts about a class, one line each:
//
//   POSTO_DESCRIPTION(Bairro, keys("Cd_Bairro"), generated, list("Nm_Bairro"), by_query)
//
// is the constant kBairro, the description of the class DALBairro on the table Bairro.
#pragma once

#include "posto/core/entity.h"

#define POSTO_DESCRIPTION(table, ...)                                 \
  inline constexpr ::posto::Description k##table = [] {               \
    using namespace ::posto::facts;                                   \
    return describe("DAL" #table, #table __VA_OPT__(, ) __VA_ARGS__); \
  }();

namespace posto::facts {

template <class... Facts>
constexpr Description describe(std::string_view class_name, std::string_view table, Facts... facts) {
  Description description{.class_name = class_name, .table = table};
  (facts(description), ...);
  return description;
}

constexpr void append(KeySet (&sets)[Description::kMostKeySets], const KeySet& set) {
  for (KeySet& place : sets) {
    if (place.empty()) {
      place = set;
      return;
    }
  }
  throw "a class has at most three key sets of a kind";
}

// The columns that find a record, in their order. Told again: a set that is tried behind the others.
template <class... Columns>
constexpr auto keys(Columns... columns) {
  return [set = KeySet{columns...}](Description& d) { append(d.keys, set); };
}
// A further set for Consultar alone.
template <class... Columns>
constexpr auto read_keys(Columns... columns) {
  return [set = KeySet{columns...}](Description& d) { append(d.read_keys, set); };
}
// The set of Excluir, where it is not one of those above.
template <class... Columns>
constexpr auto remove_keys(Columns... columns) {
  return [set = KeySet{columns...}](Description& d) { d.remove_keys = set; };
}
// The last key column is numbered by the database.
inline constexpr auto generated = [](Description& d) { d.sequence = {d.keys[0].last()}; };

// CarregarComboBox shows a column, with the last key column as data; in the order of another column, where one is told.
constexpr auto list(const char* display, const char* order) {
  return [=](Description& d) { d.list = {.key = d.keys[0].last(), .display = display, .order = order}; };
}
constexpr auto list(const char* display) { return list(display, display); }
// In no order; such a list takes no condition.
constexpr auto unordered_list(const char* display) { return list(display, ""); }
// The list of an empty table is 0x80040202. Behind `list`.
inline constexpr auto list_needs_records = [](Description& d) { d.list.refuses_empty = true; };

// Incluir opens a query without rows and not the table by its name: every key 0 (a text ''), or these conditions.
inline constexpr auto by_query = [](Description& d) { d.empty_query_by_keys = true; };
constexpr auto by_query_of(const char* conditions) {
  return [=](Description& d) { d.empty_query = conditions; };
}
// Incluir adds to another table.
constexpr auto inserts_into(const char* table) {
  return [=](Description& d) { d.insert_table = table; };
}

// There is an operation Existe.
inline constexpr auto existe = [](Description& d) { d.existe = true; };
// What Consultar says where there is no such record.
constexpr auto not_read(const char* words) {
  return [=](Description& d) { d.not_read = words; };
}
// Consultar tells the settings that it is entered and left.
inline constexpr auto enters_reading = [](Description& d) { d.enters_reading = true; };

}  // namespace posto::facts
