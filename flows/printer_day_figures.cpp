#include "flows/printer_day_figures.h"

#include <fmt/format.h>

#include <algorithm>

#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/fiscal/DALMapaResumoECF.h"
#include "posto/stock/product_kind.h"
#include "posto/types/number_pattern.h"

namespace posto::flows {
namespace {

constexpr Currency kHalfCent = Currency::of_scaled(50);
constexpr double kCutOfFactor = 0.0001;

enum class Taxation { taxed, substitution, exempt, not_liable };

// By the last two digits of the tax situation, as the first tells where the goods come from.
Taxation taxation_of(const std::string& situation, const std::string& tributation) {
  const std::string kind = situation.size() == 3 ? situation.substr(1) : situation;
  if (tributation == "6" || kind == "60") return Taxation::substitution;
  if (kind == "40") return Taxation::exempt;
  if (kind == "41" || kind == "50" || kind == "51") return Taxation::not_liable;
  return Taxation::taxed;
}

struct CouponSum {
  Currency lines;
  std::int32_t count = 0;
};
// Live lines by coupon. Its number alone may come back, on another day of issue.
using CouponSums = std::map<std::pair<std::int32_t, Date>, CouponSum>;

std::pair<std::int32_t, Date> key_of(Recordset& row) {
  return {row["No_CupomFiscal"].as<std::int32_t>(), row["Dt_Emissao"].as<Date>()};
}

// Where a live line's net amount belongs.
Currency& place_of(PrinterDayFigures& f, bool service, Taxation taxation, Currency rate) {
  if (service) return f.services;
  switch (taxation) {
    case Taxation::substitution:
      return f.substitution;
    case Taxation::exempt:
      return f.exempt;
    case Taxation::not_liable:
      return f.not_liable;
    case Taxation::taxed:
      break;
  }
  return f.by_rate[rate];
}

void add_line(PrinterDayFigures& f, CouponSums& sums, Recordset& line) {
  const Currency gross = line["Vl_Bruto"].value_or(Currency());
  const Currency net = line["Vl_Liquido"].value_or(Currency());
  const Currency rate(static_cast<double>(line["Tx_Icms"].value_or(0.0f)));
  const bool service = line["No_Tipo"].value_or(std::uint8_t{0}) == kService;
  const Taxation taxation =
      taxation_of(line["No_SitTributaria"].value_or(std::string()), line["No_TribIcms"].value_or(std::string()));
  const bool cancelled = line["Ic_Excluido"].as<bool>() || line["Ic_CupomExcluido"].as<bool>();
  if (cancelled || service || taxation != Taxation::taxed) f.aside[rate] += net;
  if (cancelled) {
    f.cancellations += gross;
    if (service) f.services_cancelled += gross;
    return;
  }
  if (service) f.services_discount += gross - net;
  place_of(f, service, taxation, rate) += net;
  CouponSum& sum = sums[key_of(line)];
  sum.lines += gross;
  ++sum.count;
}

CouponSums add_lines(const Station& station, PrinterDayFigures& f) {
  CouponSums sums;
  Recordset line =
      station.connection().Execute(sql(R"(
      SELECT B.No_CupomFiscal, B.Dt_Emissao, A.Ic_Excluido, B.Ic_Excluido As Ic_CupomExcluido, A.No_SitTributaria,
             A.No_TribIcms, A.Tx_Icms, C.No_Tipo,
             Round(A.Qt_Unidade * A.Vl_UnitVenda, 2) As Vl_Bruto,
             Round(A.Qt_Unidade * (A.Vl_UnitVenda - IsNull(A.Vl_AltFinalCupom,0)), 2) As Vl_Liquido
      FROM   CupomFiscal B
             INNER JOIN ItemCupomFiscal A On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And
                                             A.No_Impressora = B.No_Impressora And
                                             A.No_CupomFiscal = B.No_CupomFiscal And
                                             A.Dt_Emissao = B.Dt_Emissao
             LEFT JOIN Produto C On C.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And
                                    C.Cd_Produto = A.Cd_Produto
      WHERE  B.Cd_PessoaUsuaria = {} And
             B.No_Impressora = {} And
             B.Dt_Movimento = {})",
                                       station.tenant(), f.printer, DateSemHoraToSql(f.day, *station.settings)));
  for (; !line.EOF(); line.MoveNext()) add_line(f, sums, line);
  return sums;
}

void add_coupon(PrinterDayFigures& f, const CouponSums& sums, Recordset& coupon) {
  auto money = [&](const char* column) { return coupon[column].value_or(Currency()); };
  ++f.coupons;
  f.reductions = std::max(f.reductions, coupon["Qt_ContReducoes"].value_or(0));
  if (coupon["Ic_Excluido"].as<bool>()) {
    ++f.cancelled;
    return;
  }
  const Currency on_total = money("Vl_DescontoCF");
  const Currency altered = money("Vl_DesAcr");
  (altered > Currency() ? f.discounts : f.surcharges) += altered > Currency() ? altered : -altered;
  f.discounts += on_total;
  f.altered += altered;
  f.withheld += money("Vl_IssRetido");
  f.net += money("Vl_TotalLiquido");
  const Currency before_discount = money("Vl_TotalLiquido") + money("Vl_IssRetido") + on_total + altered;
  f.gross += before_discount;
  const auto found = sums.find(key_of(coupon));
  const CouponSum sum = found == sums.end() ? CouponSum() : found->second;
  if (on_total > Currency()) {
    f.proration += Currency(before_discount * kCutOfFactor);
    for (std::int32_t i = 0; i < sum.count; ++i) f.proration += kHalfCent;
  }
  if (sum.lines != before_discount) {
    f.findings.push_back(fmt::format("cupom {}: as linhas somam {}, o total antes do desconto é {}",
                                     coupon["No_CupomFiscal"].as<std::int32_t>(), shown(sum.lines),
                                     shown(before_discount)));
  }
}

}  // namespace

std::string shown(Currency amount) { return format_number(amount, "###,###,##0.00"); }

Currency PrinterDayFigures::net_lines() const {
  Currency sum = substitution + exempt + not_liable + services;
  for (const auto& [rate, amount] : by_rate) sum += amount;
  return sum;
}

PrinterDayFigures printer_day_figures(const Station& station, std::int32_t printer, Date day) {
  PrinterDayFigures f{.printer = printer, .day = day};
  const CouponSums sums = add_lines(station, f);
  DALMapaResumoECF map(station.settings);
  map.ObVO->Cd_PessoaUsuaria = station.tenant();
  map.ObVO->No_Impressora = static_cast<std::uint8_t>(printer);
  map.ObVO->Dt_Movimento = day;
  for (Recordset coupon = map.rsCupomFiscais(); !coupon.EOF(); coupon.MoveNext()) add_coupon(f, sums, coupon);
  f.gross += f.cancellations;
  return f;
}

std::vector<PrinterDayKey> printer_days(const Station& station, Date first, Date last, std::int32_t printer) {
  std::vector<PrinterDayKey> keys;
  Recordset rows = station.connection().Execute(sql(R"(
      SELECT   Distinct Dt_Movimento, No_Impressora
      FROM     CupomFiscal
      WHERE    Cd_PessoaUsuaria = {} And
               Dt_Movimento Between {} And {}
      ORDER BY Dt_Movimento, No_Impressora)",
                                                    station.tenant(), DateSemHoraToSql(first, *station.settings),
                                                    DateSemHoraToSql(last, *station.settings)));
  for (; !rows.EOF(); rows.MoveNext()) {
    const PrinterDayKey key{.printer = rows["No_Impressora"].as<std::int32_t>(),
                            .day = rows["Dt_Movimento"].as<Date>()};
    if (printer == 0 || key.printer == printer) keys.push_back(key);
  }
  return keys;
}

}  // namespace posto::flows
