// The lines of a sale with what fuelling, nozzle and product say.
#pragma once

#include "flows/point_of_sale.h"
#include "flows/sale.h"
#include "flows/sale_totals.h"
#include "posto/fiscal/DALItemCupomFiscal.h"
#include "posto/forecourt/DALAbastecimento.h"

namespace posto::flows {

// Prices the lines of a coupon, one behind the other. Nothing is written, but for a station's first place of sale.
class LinePricer {
 public:
  LinePricer(Station& station, const VOCupomFiscal& coupon);

  // The next line: its key, place, product, nozzle, quantity, prices and taxation. Raises 0x8004026F for a fuelling
  // that is posted, 0x80040660 for a calibration, for a fuelling of another product than told, for a quantity that is
  // not positive and for an unknown place, 0x80040202 for a fuelling or product that is not there.
  PricedLine price(const SaleLine& sold);

 private:
  void take_fuelling(const SaleLine& sold, PricedLine& line);
  void take_nozzle(const std::string& address, VOItemCupomFiscal& item);
  void take_product(const SaleLine& sold, PricedLine& line);

  const VOCupomFiscal& coupon_;
  PointsOfSale places_;
  std::uint8_t lines_ = 0;
  DALItemCupomFiscal item_;
  DALAbastecimento fuelling_;
};

}  // namespace posto::flows
