// The grand-total walk: whether a fiscal printer's grand total advances as its coupons say. No database.
#pragma once

#include <cstdint>

#include "posto/types/currency.h"

namespace posto {

// What the walk looks at in a coupon.
struct CouponFigures {
  std::int32_t number = 0;
  Currency net{};            // Vl_TotalLiquido
  Currency cancellations{};  // the printer's running figure
  Currency iss_retained{};
  Currency grand_total{};  // the printer's, after the coupon
  Currency surcharge{};    // Vl_DesAcr
  Currency discount{};     // on the coupon's total
};

enum class CouponVerdict : std::uint8_t {
  fits,            // or is only carried
  first_differs,   // the day's first coupon does not follow on
  printer_ahead,   // a coupon was printed and is not in the database
  database_ahead,  // a coupon was deleted at the printer and is in the database
};

// Takes one printer's coupons after another's. A difference of a coupon at 0 or below is carried without a word, and
// one that is its exact opposite, later, is not told either: also from one printer to the next.
class CouponWalk {
 public:
  void start_printer(Currency grand_total, std::int32_t first_coupon);

  struct Step {
    CouponVerdict verdict = CouponVerdict::fits;
    Currency difference{};
    std::int32_t previous_coupon = 0;
  };
  // Raises 6 for figures that do not add up in money.
  Step take(const CouponFigures& coupon);

 private:
  CouponVerdict judge(Currency difference, Currency net);

  Currency previous_total_{}, previous_cancellations_{}, carried_{};
  std::int32_t previous_coupon_ = 0;
  bool first_ = true;
};

}  // namespace posto
