// The figures of a coupon from its lines.
#pragma once

#include <cstdint>
#include <span>

#include "posto/schema/fiscal.h"
#include "posto/stock/product_kind.h"

namespace posto::flows {

// A line with what its product says.
struct PricedLine {
  VOItemCupomFiscal item;
  std::uint8_t kind = kGoods;
  Currency iss_rate;  // per cent, of a service
  Date delivered{};   // the end of the fuelling
};

// A quantity as a line keeps it: narrowed to 32 bits.
double stored_quantity(double quantity);
// Quantity by price in cents, halves away from zero, as the printer and the database reckon it.
Currency amount_of(const VOItemCupomFiscal& item);

// Works out the coupon's totals, bases and taxes from its live lines, and Vl_TotalLiquido with Vl_DescontoCF and
// Vl_DesAcr taken off. Goods are under substitution (No_TribIcms "6"), exempt (No_SitTributaria "040"), not taxed
// ("041") or taxed.
void total_up(VOCupomFiscal& coupon, std::span<const PricedLine> lines);
// All of them to zero but Vl_Total.
void clear_totals(VOCupomFiscal& coupon);

}  // namespace posto::flows
