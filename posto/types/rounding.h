// The two ways in which figures are rounded. Nothing else in the system rounds.
#pragma once

#include "posto/types/currency.h"

namespace posto {

// The library's Round: scales by 10^decimals in double precision, takes halves to the even digit, scales back.
// decimals: 0 to 15.
double Round(double value, int decimals);
// The same on money, exactly. decimals: 0 to 4 and more (then unchanged).
Currency Round(Currency value, int decimals);

// The database server's Round: halves go away from zero; a float is scaled in double precision first.
// decimals: -15 to 15 (negative rounds in front of the point).
double round_half_away(double value, int decimals);
// The same on money, exactly. decimals: 4 and more leave it unchanged.
Currency round_half_away(Currency value, int decimals);

}  // namespace posto
