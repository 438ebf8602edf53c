// The summary map: a fiscal printer's business day as the state is told it, and what it takes from the coupons.
#pragma once

#include "posto/core/describe.h"
#include "posto/fiscal/printer_day_record.h"
#include "posto/schema/fiscal.h"

namespace posto {

POSTO_DESCRIPTION(MapaResumoECF, keys("Cd_PessoaUsuaria", "Dt_Movimento", "No_Impressora"),
                  remove_keys("Cd_PessoaUsuaria", "Dt_Movimento", "No_Impressora", "Qt_ContReducoes"),
                  by_query_of("Cd_PessoaUsuaria = 0 and Dt_Movimento = Null and No_Impressora = 0 and "
                              "Qt_ContReducoes = 0"),
                  existe)

// A line of the map is found by company, day and printer; Excluir needs the count of Z reductions too. Otherwise the
// standard operations (core/entity.h). Questions are about the value object's company, printer and day, in coupons
// whose business day it is, cancelled ones among them.
class DALMapaResumoECF : public PrinterDayRecord<VOMapaResumoECF, kMapaResumoECF> {
 public:
  using PrinterDayRecord::PrinterDayRecord;

  // The day's totals of the printer, one row, none without a coupon. First writes Vl_Isentas of the day's coupons of
  // ALL printers anew: the sum of their exempt products, null where a coupon has none. Running it again writes the
  // same.
  //   MinimoDe.., MaximoDeNo_CupomFiscal and ..Vl_GTotal; MaximoDeVl_Cancelamentos (the printer's running figure);
  //   SomaDeVl_Isentas, ..Vl_SubTrib, ..Vl_DescontoCF, ..Vl_TotSer, ..Vl_DesAcr, all 0 where there is nothing;
  //   Vl_Descontos, Vl_Acrescimos: Vl_DesAcr above and below zero, both without a sign, null where there is none;
  //   Vl_DescontoFinalCupom: the discounts on totals as they were prorated, rounded to cents once; ..ST, ..Tributado:
  //   those of lines with No_TribIcms 6 and 0; null where there is none.
  // Raises the provider's failure where a line's No_TribIcms is no number.
  Recordset Rs_SomaVendasCFAgrupadosPorECF();

  // The day's coupons by number; and all that were issued on the day or later, with no last day.
  Recordset rsCupomFiscais();
  Recordset rsCupomFiscaisDataMovimentoEProximoDia();

  // Prorating the discounts on coupons' totals over their lines, in these three steps. Each may run again.
  //
  // 1. The day's coupons that have one, with their key, Vl_DescontoCF, Vl_TotalLiquido and Vl_FatorDescontoFinalCupom:
  //    the discount's share of the value before it, a quotient of money and so cut at four decimals.
  Recordset rsCupomFiscaisComDescontoFinalCupom();
  // 2. Gives each line of such a coupon its share, a unit and not rounded: its price times the factor (twelve
  // decimals).
  bool RatearDescontoFinalCupom(std::int32_t Cd_PessoaUsuaria, std::int32_t No_Impressora, std::int32_t No_CupomFiscal,
                                Date Dt_Emissao, double Vl_FatorDescontoFinalCupom);
  // 3. Gives the lines without a share 0, from the day before to the day after, of EVERY company.
  bool ZerarDescontoFinalCupomNulo(std::int32_t Cd_PessoaUsuaria, Date Dt_Emissao);

 private:
  std::string of_day(std::string_view prefix, std::string_view printer) const;
  std::string prorated_discount(std::string_view printer, std::string_view condition) const;
  Recordset coupons_from(std::string_view condition);
};

}  // namespace posto
