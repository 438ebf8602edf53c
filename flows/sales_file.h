// Takes in a file of sales as they were printed.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "flows/station.h"

namespace posto::flows {

struct RefusedSale {
  std::string coupon;  // "impressora 1, cupom 77, 2026-11-23"; empty for a line that is part of none
  std::string reason;  // with file and line where one line is at fault
};

struct SalesResult {
  std::size_t sold = 0;
  std::size_t repeated = 0;   // the coupon is there already
  std::size_t cancelled = 0;  // of those sold
  std::vector<RefusedSale> refused;
};

// Sells what a CSV file tells, coupon by coupon. A row is one line of a coupon; the rows of a coupon stand together.
// Its header names these columns, in any order; only the first six are required:
//
//   impressora     number of the printer
//   cupom          number of the coupon, as printed
//   data, hora     of issue: 2026-11-23, 08:15:00
//   produto        bar code; may be empty where a fuelling is sold
//   quantidade     units, with a point; empty: the fuelling's litres
//   abastecimento  code of the fuelling that the line sells (posto pendentes shows it)
//   ponto          code of the place of sale; empty: the station's lowest (PonVen)
//   preco          of a unit, where it is not the product's or the pump's
//   caixa          code of the cash shift
//   movimento      business day, where it is not the day of issue
//   desconto       on the coupon's total, in R$
//   pagamentos     kinds of receipt with their values, "5=100.00 3=26.40"; the last one may leave its value out: "5"
//   cliente        tax number; with no "pagamentos" the sale is on credit
//   cartao         "1/77", kind and code of the client's card: on credit by card, the client needs not be told
//   placa, km      of the vehicle
//   cancelado      "item": the line was taken back while it was printed; "cupom": the coupon was, after it ended, and
//                  needs no "pagamentos" then
//
// What belongs to the coupon (from hora to km, but for produto, quantidade, abastecimento, ponto and preco) is told in
// its first row; the others leave it empty or repeat it. A coupon with a bad row is refused whole, and so is one that
// cannot be sold: it is told with its number and the reason, and the rest goes on. Each coupon is a transaction of its
// own, and one that is there already is passed over, so that a file can be taken in again.
//
// Raises 0x80040660 for another header, 53 and 75 for a file that cannot be read, failures of the database; the coupons
// before stay.
SalesResult sell_from(Station& station, const std::string& path);

}  // namespace posto::flows
