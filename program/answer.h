// Tables as answers of the program.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "posto/ado/recordset.h"
#include "program/command.h"

namespace posto::program {

// A value for a program: null is empty, money has four decimals, floats their shortest form, a bit is -1 or 0, a date
// is yyyy-mm-dd hh:mm:ss.
std::string exact_text(const Variant& value);

// Patterns of figures for a person.
inline constexpr const char kMoney[] = "###,###,##0.00";
inline constexpr const char kQuantity[] = "###,###,##0.000";

// A column of an answer. With a pattern, figures are shown to a person with it ("###,##0.00"); a date without one is
// shown as day and time.
struct AnswerColumn {
  std::string title;  // for a person
  std::string name;   // for a program
  std::string pattern{};
};

// Rows that are printed aligned, as CSV (RFC 4180, null as an empty field, empty text as "") or as JSON (a list of
// objects).
class Answer {
 public:
  explicit Answer(std::vector<AnswerColumn> columns) : columns_(std::move(columns)) {}
  void add(std::vector<Variant> row) { rows_.push_back(std::move(row)); }
  std::size_t size() const { return rows_.size(); }
  void print(Form form) const;

 private:
  void print_aligned() const;
  std::string shown(const Variant& value, const AnswerColumn& column) const;
  std::vector<AnswerColumn> columns_;
  std::vector<std::vector<Variant>> rows_;
};

// Prints a record set from its current record on, with the names of its columns.
void print_rows(Recordset& rows, Form form);

}  // namespace posto::program
