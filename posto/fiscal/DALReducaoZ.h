// Z reductions: what a fiscal printer reported at the end of a business day.
#pragma once

#include "posto/core/describe.h"
#include "posto/fiscal/printer_day_record.h"
#include "posto/schema/fiscal.h"

namespace posto {

POSTO_DESCRIPTION(ReducaoZ, keys("Cd_PessoaUsuaria", "Dt_Movimento", "No_Impressora"),
                  by_query_of("Cd_PessoaUsuaria = 0 and Dt_Movimento = Null and No_Impressora = 0 "), existe)

// A reduction is found by company, day and printer, all of which the standard operations (core/entity.h) need.
class DALReducaoZ : public PrinterDayRecord<VOReducaoZ, kReducaoZ> {
 public:
  using PrinterDayRecord::PrinterDayRecord;

  // Reads the latest reduction of a printer, with the days of a period (both included) or of all times, into the value
  // object. Raises 0x80040202 with "(ReducaoZ)" when there is none; the flag resets the value object before.
  VOReducaoZ& ConsultarUltimaNoPeriodo(std::int32_t Cd_PessoaUsuaria, std::int32_t No_Impressora,
                                       Date Dt_MovimentoInicial, Date Dt_MovimentoFinal,
                                       bool Ic_RestaurarDefaulSeNaoEcontrarRegistro = false);
  VOReducaoZ& ConsultarUltima(std::int32_t Cd_PessoaUsuaria, std::int32_t No_Impressora);

 private:
  void take_latest(std::int32_t company, std::int32_t printer, std::string_view period, bool reset_when_missing);
};

}  // namespace posto
