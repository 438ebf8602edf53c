// What selling and cancelling have in common, inside their transactions.
#pragma once

#include <string>

#include "flows/sale.h"

namespace posto::flows {

// The first statement of a transaction that sells or cancels: others of the company wait until it ends, or begin
// afresh.
void lock_sales(Station& station);
// The ledger's document of a fuelling that was taken in with its movement.
std::string document_of_fuelling(std::int32_t fuelling);
// Raises 0x80040660.
[[noreturn]] void refuse_sale(const std::string& reason);
// cancel_coupon, inside the caller's transaction.
void take_coupon_back(Station& station, const CouponKey& coupon);

}  // namespace posto::flows
