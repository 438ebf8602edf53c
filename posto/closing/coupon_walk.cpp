#include "posto/closing/coupon_walk.h"

namespace posto {

void CouponWalk::start_printer(Currency grand_total, std::int32_t first_coupon) {
  previous_total_ = grand_total;
  previous_cancellations_ = Currency();
  previous_coupon_ = first_coupon;
  first_ = true;
}

CouponWalk::Step CouponWalk::take(const CouponFigures& coupon) {
  const Currency difference = previous_total_ + coupon.net + (coupon.cancellations - previous_cancellations_) +
                              coupon.iss_retained - coupon.grand_total + coupon.surcharge + coupon.discount;
  const Step step{
      .verdict = judge(difference, coupon.net), .difference = difference, .previous_coupon = previous_coupon_};
  previous_coupon_ = coupon.number;
  previous_cancellations_ = coupon.cancellations;
  previous_total_ = coupon.grand_total;
  first_ = false;
  return step;
}

CouponVerdict CouponWalk::judge(Currency difference, Currency net) {
  const Currency nothing;
  if (first_ && difference != nothing) return CouponVerdict::first_differs;
  const bool is_opposite = difference == -carried_;
  if (difference != nothing && net > nothing && !is_opposite) {
    return difference < nothing ? CouponVerdict::printer_ahead : CouponVerdict::database_ahead;
  }
  carried_ = is_opposite ? nothing : difference;
  return CouponVerdict::fits;
}

}  // namespace posto
