// Records of the master data from CSV files that are named after their tables: "UF.csv", "Cliente.csv".
#pragma once

#include <span>
#include <string_view>

#include "flows/csv_table.h"
#include "flows/station.h"

namespace posto::flows {

// A kind of record that a file may hold. The columns of the file are the record's properties by their own names (the
// person's too, of a role), or references in lower case: "cliente", "pessoa", "avalista" by tax number, "produto" by
// bar code. An empty field leaves the property as it is. The company is the station's.
struct RecordKind {
  std::string_view table;
  // Registers the row on which a table stands: changes the record that its key finds, or its tax number where it is a
  // person; adds one when there is none. True for a new one. Faults raise 0x80040660 with file and line.
  bool (*take)(Station& station, const CsvTable& row);
};

// In the order in which they build on each other.
std::span<const RecordKind> record_kinds();

}  // namespace posto::flows
