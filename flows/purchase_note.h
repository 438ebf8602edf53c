// Purchase notes as a file tells them, and what their lines cost.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "flows/csv_table.h"
#include "flows/station.h"

namespace posto::flows {

// Litres of a line that went into a tank.
struct TankShare {
  std::uint8_t tank = 0;
  std::uint8_t piping = 0;  // the system that the tank feeds
  double litres = 0;
};

struct PurchaseLine {
  std::int32_t product = 0;  // Cd_Produto
  std::string cfop, situation;
  double quantity = 0;
  Currency unit, discount;       // before the discount; of the whole line
  Currency icms_rate, ipi_rate;  // per cent
  Currency substituted_icms;     // charged by the supplier for the sales to come
  std::vector<TankShare> deliveries;
};

// What every line of a note repeats.
struct PurchaseHeader {
  std::int32_t kind = 0;      // Cd_TipoNF
  std::int32_t number = 0;    // No_Nota
  std::int32_t supplier = 0;  // Cd_Fornecedor
  Date issued, delivered;
  Currency discount, freight, expenses;  // of the note as a whole
  Currency total;
};

struct PurchaseNote {
  std::string document;  // "tipo 1, nota 77, fornecedor 92520282000176", as the file has it; empty for a stray line
  PurchaseHeader header;
  std::vector<PurchaseLine> lines;
  std::string fault;  // the first one, with file and line; empty for a good note
};

// A line's part in the note's money, each in cents.
struct LineAmounts {
  Currency products;                     // quantity by unit price
  Currency discount, freight, expenses;  // its share of the note's, by the value behind the line's own discount
  Currency ipi;
  Currency icms_base;    // products less discounts, with freight and expenses
  Currency icms_credit;  // none under substitution or suspension
  Currency cost;         // the base, IPI and substituted ICMS: what the line adds to the note's total
};

// Shares are cut so that they add up to the note's figure to the cent.
std::vector<LineAmounts> amounts_of(const PurchaseNote& note);

// Whether a tax situation leaves the buyer no ICMS to take back: the last two digits of No_SitTributaria.
bool gives_no_credit(const std::string& situation);

// Reads a file of purchase notes. Its columns are told in purchase.h.
class PurchaseReader {
 public:
  // Raises 53 when there is no such file, 0x80040660 for another header.
  PurchaseReader(Station& station, const std::string& path);
  // The next note: rows that stand together and have the same kind, number and supplier. A row that cannot be split
  // into its fields counts to the note before it. False at the end.
  bool next(PurchaseNote& note);

 private:
  enum class At { row, unreadable, end };

  void advance();
  std::string document() const;
  void take(PurchaseNote& note);
  // Raises where the figure is above `most`, which keeps all sums of a note within money's range.
  Currency money(const char* column, Currency most = Currency(1'000'000)) const;
  PurchaseHeader header() const;
  PurchaseLine line() const;
  std::vector<TankShare> deliveries(const PurchaseLine& line, bool fuel) const;
  TankShare delivery(const std::string& text, std::int32_t product) const;

  Station& station_;
  CsvTable rows_;
  At at_ = At::end;
  std::string why_;       // the row is unreadable
  std::string repeated_;  // by the rows of the note
};

}  // namespace posto::flows
