#include "posto/engines/odbc/failures.h"

#include <algorithm>

#include "posto/engines/odbc/text.h"
#include "posto/engines/postgres/failures.h"
#include "posto/types/text.h"

namespace posto::odbc {
namespace {

// "[maker][driver][server]words" without what stands in brackets in front.
std::string_view without_origin(std::string_view message) {
  while (message.starts_with('[')) {
    const std::size_t end = message.find(']');
    if (end == std::string_view::npos) break;
    message.remove_prefix(end + 1);
  }
  return trim(message);
}

// What stands between two marks; empty where the first does not stand.
std::string between(std::string_view text, std::string_view begin, std::string_view end) {
  const std::size_t at = text.find(begin);
  if (at == std::string_view::npos) return {};
  const std::string_view rest = text.substr(at + begin.size());
  return std::string(rest.substr(0, rest.find(end)));
}

std::string quoted(std::string_view text, std::string_view word) {
  return between(text, std::string(word) + " \"", "\"");
}

// What is known of SQL Server's own numbers.
struct Known {
  std::int32_t native;
  std::int32_t number;
  std::string_view description;  // empty: the server's own words
};
constexpr Known kKnown[] = {{220, erro::kDataOverflow, "Estouro aritmético"},
                            {232, erro::kDataOverflow, "Estouro aritmético"},
                            {241, erro::kConversion, ""},
                            {242, erro::kConversion, ""},
                            {244, erro::kDataOverflow, "Estouro aritmético"},
                            {245, erro::kConversion, ""},
                            {248, erro::kDataOverflow, "Estouro aritmético"},
                            {295, erro::kConversion, ""},
                            {296, erro::kConversion, ""},
                            {512, erro::kSyntax, "A subconsulta deu mais de um valor"},
                            {515, erro::kIntegrity, ""},
                            {547, erro::kIntegrity, ""},
                            {1205, erro::kTimeout, "Duas transações esperavam uma pela outra"},
                            {1222, erro::kTimeout, "O banco está ocupado por outro processo"},
                            {2601, erro::kIntegrity, ""},
                            {2627, erro::kIntegrity, ""},
                            {2628, erro::kDataOverflow, ""},
                            {8114, erro::kConversion, ""},
                            {8115, erro::kDataOverflow, "Estouro aritmético"},
                            {8134, erro::kSyntax, "Divisão por zero"},
                            {8152, erro::kDataOverflow, ""}};

// By SQLSTATE, or the class that begins it, where the number is not known.
struct Class {
  std::string_view state;
  std::int32_t number;
};
constexpr Class kClasses[] = {{"HYT", erro::kTimeout},   {"22001", erro::kDataOverflow}, {"22003", erro::kDataOverflow},
                              {"22012", erro::kSyntax},  {"22", erro::kConversion},      {"23", erro::kIntegrity},
                              {"40001", erro::kTimeout}, {"42", erro::kSyntax}};

}  // namespace

Report report_of(SQLSMALLINT handle_type, SQLHANDLE handle) {
  Report report;
  SQLWCHAR state[6] = {}, words[2000];
  SQLSMALLINT length = 0;
  for (SQLSMALLINT number = 1;; ++number) {
    SQLINTEGER native = 0;
    const SQLRETURN code =
        SQLGetDiagRecW(handle_type, handle, number, state, &native, words, std::size(words), &length);
    if (!SQL_SUCCEEDED(code)) break;
    std::string told = to_utf8({state, 5});
    const bool notice = told.starts_with("01");
    if (number > 1 && notice) continue;
    const auto shown = std::min<std::size_t>(static_cast<std::size_t>(length), std::size(words) - 1);
    report = {
        .state = std::move(told), .native = native, .message = std::string(without_origin(to_utf8({words, shown})))};
    if (!notice) break;
  }
  return report;
}

// The driver hands the server's words on as one text: "ERROR: message", "DETAIL: detail", and words of its own.
Told told_by_postgres(const Report& report) {
  if (report.state.starts_with("HYT")) return {erro::kTimeout, "Tempo esgotado"};
  const std::string own_end = ";\nError while ";
  std::string_view words = report.message;
  words = words.substr(0, words.find(own_end));
  std::string message = between(words, "ERROR: ", "\nDETAIL: ");
  if (message.empty()) message = words;
  const std::string constraint = quoted(message, "constraint");
  std::string table = quoted(message, "relation");
  if (table.empty()) table = constraint.substr(0, constraint.rfind('_'));  // of a key: "Banco_pkey", "Bomba_1"
  auto [number, description] = postgres::described({.state = report.state,
                                                    .message = message,
                                                    .detail = between(words, "DETAIL: ", "\n"),
                                                    .table = table,
                                                    .column = quoted(message, "column"),
                                                    .constraint = constraint});
  return {number, description};
}

Told told_by_sql_server(const Report& report) {
  for (const Known& known : kKnown) {
    if (known.native == report.native)
      return {known.number, known.description.empty() ? report.message : std::string(known.description)};
  }
  for (const Class& known : kClasses) {
    if (report.state.starts_with(known.state)) return {known.number, report.message};
  }
  return {erro::kProviderFailure, report.message};
}

bool ends_connection(const Report& report) { return postgres::ends_connection(report.state); }

}  // namespace posto::odbc
