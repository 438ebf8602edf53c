#include "flows/sale_totals.h"

#include <charconv>

#include "posto/types/rounding.h"

namespace posto::flows {
namespace {

constexpr int kCents = 2;

Currency share(Currency of, double per_cent) {
  return Currency(round_half_away(of.as_double() * per_cent / 100, kCents));
}

void add_goods(VOCupomFiscal& coupon, const VOItemCupomFiscal& item, Currency amount) {
  coupon.Vl_TotProd += amount;
  if (item.No_TribIcms == "6") {
    coupon.Vl_SubTrib += amount;
  } else if (item.No_SitTributaria == "040") {
    coupon.Vl_Isentas += amount;
  } else if (item.No_SitTributaria == "041") {
    coupon.Vl_NaoTributadoICMS += amount;
  } else {
    const Currency base = share(amount, static_cast<double>(item.Tx_BaseCalculo));
    coupon.Vl_BasCalIcms += base;
    coupon.Vl_Icms += share(base, static_cast<double>(item.Tx_Icms));
  }
}

}  // namespace

double stored_quantity(double quantity) {
  char digits[64];
  const auto written = std::to_chars(digits, digits + sizeof digits, static_cast<float>(quantity));
  double stored = 0;
  std::from_chars(digits, written.ptr, stored);
  return stored;
}

Currency amount_of(const VOItemCupomFiscal& item) {
  return Currency(round_half_away(item.Qt_Unidade * item.Vl_UnitVenda, kCents));
}

void clear_totals(VOCupomFiscal& coupon) {
  for (auto total :
       {&VOCupomFiscal::Vl_TotProd, &VOCupomFiscal::Vl_TotSer, &VOCupomFiscal::Vl_BasCalIcms, &VOCupomFiscal::Vl_Icms,
        &VOCupomFiscal::Vl_BasCalIss, &VOCupomFiscal::Vl_Iss, &VOCupomFiscal::Vl_Isentas,
        &VOCupomFiscal::Vl_NaoTributadoICMS, &VOCupomFiscal::Vl_SubTrib, &VOCupomFiscal::Vl_TotalLiquido}) {
    coupon.*total = Currency();
  }
}

void total_up(VOCupomFiscal& coupon, std::span<const PricedLine> lines) {
  clear_totals(coupon);
  for (const PricedLine& line : lines) {
    const Currency amount = amount_of(line.item);
    if (line.kind != kService) {
      add_goods(coupon, line.item, amount);
      continue;
    }
    coupon.Vl_TotSer += amount;
    coupon.Vl_BasCalIss += amount;
    coupon.Vl_Iss += share(amount, line.iss_rate.as_double());
    coupon.Tx_Iss = line.iss_rate;
  }
  coupon.Vl_Total = coupon.Vl_TotProd + coupon.Vl_TotSer;
  coupon.Vl_TotalLiquido = coupon.Vl_Total - coupon.Vl_DescontoCF - coupon.Vl_DesAcr;
}

}  // namespace posto::flows
