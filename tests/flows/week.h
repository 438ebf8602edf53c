// The sample's week, taken in day by day.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "flows/import_readings.h"
#include "flows/printer_day.h"
#include "flows/purchase.h"
#include "flows/sale.h"
#include "flows/sales_file.h"
#include "posto/services/csv.h"
#include "posto/types/number_pattern.h"
#include "tests/flows/sample_station.h"

namespace posto::flows {

inline const std::string kWeek = kSample + "/semana/";
inline constexpr int kDays = 7;

using Row = std::vector<std::string>;

// The rows of a CSV file without its header; none where there is no such file.
inline std::vector<Row> rows_of_file(const std::string& path) {
  std::vector<Row> rows;
  if (!std::filesystem::exists(path)) return rows;
  LineFile lines(path);
  std::string line;
  for (lines.next(line); lines.next(line);) rows.push_back(*split_csv(line));
  return rows;
}

inline std::string iso(Date day) { return format_date(day, "yyyy-mm-dd"); }
inline std::string day_folder(int day) { return kWeek + iso(kFirstDay.plus_days(day)); }

// The readings are copied: what is refused of them is written beside them.
inline void import(Station& station, const TemporaryFolder& folder, const std::string& readings) {
  if (!std::filesystem::exists(readings)) return;
  const std::string copy = folder / "leituras.csv";
  std::filesystem::copy_file(readings, copy, std::filesystem::copy_options::overwrite_existing);
  import_readings(station, copy);
}

// What a day brings, and its end at each printer.
struct DayResult {
  PurchaseResult purchases;
  SalesResult sales;
  std::vector<PrinterDay> printers;
};

inline DayResult work_day(Station& station, const TemporaryFolder& folder, int day) {
  const std::string files = day_folder(day);
  DayResult result;
  import(station, folder, files + "/leituras.csv");
  if (std::filesystem::exists(files + "/notas.csv")) result.purchases = record_purchases(station, files + "/notas.csv");
  result.sales = sell_from(station, files + "/vendas.csv");
  for (const Row& row : rows_of_file(files + "/cancelamentos.csv")) {
    cancel_line(station,
                {.printer = static_cast<std::uint8_t>(std::stoi(row[0])),
                 .number = std::stoi(row[1]),
                 .issued = Date::parse_iso(row[2]).value()},
                static_cast<std::uint8_t>(std::stoi(row[3])));
  }
  const Date date = kFirstDay.plus_days(day);
  for (const PrinterDayKey& key : printer_days(station, date, date)) {
    result.printers.push_back(reduce_printer_day(station, key.printer, key.day));
  }
  return result;
}

}  // namespace posto::flows
