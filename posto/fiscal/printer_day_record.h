// Records of which a fiscal printer has one for each business day: what is asked of them alike.
#pragma once

#include "posto/core/entity.h"
#include "posto/types/currency.h"

namespace posto {

// The standard entity by company, day and printer, with Existe. Company, printer and day of its own questions are those
// of the value object.
template <class VO, const Description& kDescription>
class PrinterDayRecord : public Entity<VO, kDescription> {
 public:
  using Entity<VO, kDescription>::Entity;

  // Reads the printer's latest record up to the day, or strictly before it, into the value object; a null leaves its
  // property as it was. Raises 0x80040202 with "(<table>)" when there is none; the flag resets the value object before.
  VO& ConsultarUltimo(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro = false);
  VO& ConsultarAnterior(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro = false);

  // The day's sales of the printer at a rate of ICMS (per cent, two decimals count), each line less its share of the
  // discount on its coupon's total and rounded to cents; 0 when there are none. Cancelled lines and coupons count,
  // lines whose share is null do not.
  Currency ConsultaVendaParaAliquota(Currency Pc_Aliquota);

 protected:
  // Reads the record set's current record, which must be one, into the value object.
  void take(Recordset& record, bool reset_when_missing);
  std::string day_literal() const;  // of the value object's Dt_Movimento
};

}  // namespace posto
