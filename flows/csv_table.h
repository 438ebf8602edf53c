// A CSV file with a header, read row by row, whose faults name file, line and column.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "posto/services/csv.h"
#include "posto/types/currency.h"
#include "posto/types/date.h"

namespace posto::flows {

// Every fault raises 0x80040660 with "<file>, linha <n>: ...".
class CsvTable {
 public:
  // The header must have exactly these columns, in any order.
  CsvTable(const std::string& path, std::initializer_list<std::string_view> columns);
  // Of whatever columns.
  explicit CsvTable(const std::string& path);
  const std::vector<std::string>& columns() const { return columns_; }

  bool next();  // to the next row that is not blank; false at the end
  // A field of the row; required fields must not be empty.
  const std::string& text(std::string_view column) const;
  const std::string& required(std::string_view column, std::size_t width) const;
  std::int32_t integer(std::string_view column, std::int32_t least,
                       std::int32_t most = std::numeric_limits<std::int32_t>::max()) const;
  Currency decimal(std::string_view column) const;  // not negative
  double figure(std::string_view column) const;     // not negative
  Date day(std::string_view column) const;          // yyyy-mm-dd
  bool yes(std::string_view column) const;          // S or N

  [[noreturn]] void fail(const std::string& what) const;

 private:
  std::string name_;
  LineFile file_;
  std::vector<std::string> columns_, fields_;
};

}  // namespace posto::flows
