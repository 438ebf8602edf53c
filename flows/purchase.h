// Takes in purchase notes: documents, lines, stock and what went into tanks.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "flows/station.h"

namespace posto::flows {

struct RefusedNote {
  std::string document;  // empty for a line that is part of no note
  std::string reason;    // with file and line where one line is at fault
};

struct PurchaseResult {
  std::size_t stored = 0;
  std::size_t repeated = 0;  // already there with the same figures
  std::vector<RefusedNote> refused;
};

// Stores the good notes of a CSV file with the columns, in any order,
//
//   tipo_nf        kind of note, as registered      numero      of the note      fornecedor  tax number
//   emissao        day of issue                     entrega     day of delivery (aaaa-mm-dd)
//   desconto, frete, despesas                       of the note as a whole, in R$
//   total          of the note, in R$
//   produto        bar code                         cfop        four digits      situacao    tax situation, three
//   quantidade     in the product's unit            unitario    price of a unit before discounts
//   desconto_item  of the line, in R$               icms, ipi   per cent         icms_st     substituted ICMS, in R$
//   descargas      of a fuel, litres by tank: "1=5000 2=2500.5"; may be empty
//
// One row is one line of a note; the rows of a note stand together and repeat the columns up to `total`. A note whose
// lines do not add up to its total, or that has a bad row, is refused as a whole; the others go on. So is one that
// was delivered up to the company's settled date, or that stands already with other figures: a note that stands with
// the same ones is passed over, so that a file can be taken in again.
//
// A line costs its price less its discount and its share of the note's, with its shares of freight and expenses, IPI
// and substituted ICMS. That cost enters stock as a ledger movement of type 10 on the day of delivery, and moves the
// product's average cost and ICMS credit; a line under substitution or suspension gives no credit. The movement bears
// the piping system where the line went into tanks of one only. The note is concluded when every fuel of it went into
// tanks; litres that are told must be all of them.
//
// A note with its lines, movements, deliveries and numbers stands in one transaction. Payables are not made here.
// Raises 53 and 75 for a file that cannot be read, 0x80040660 for another header, the provider's failures; the notes
// before stay.
PurchaseResult record_purchases(Station& station, const std::string& path);

}  // namespace posto::flows
