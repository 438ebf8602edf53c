// What customers pay who have a price of their own: the price list, changed as each customer's condition says.
#pragma once

#include <cstdint>

#include "posto/ado/connection.h"
#include "posto/types/currency.h"

namespace posto {

// The price that a condition (Tp_CondicaoEnum) makes of the list's: Vl_Alteracao is a percentage or a value, taken off
// or put on, or the price itself. It has three decimals, halves away from zero, as prices at a pump have, and is never
// below zero. Any other condition leaves the list's price. Raises 6 for a price that does not fit.
Currency special_price(std::int32_t Tp_Condicao, Currency Vl_UnitTabela, Currency Vl_Alteracao);

// Writes Vl_Preco of the special prices of a user company, of one customer or (0) of all. Raises the provider's
// failures; the prices before it stand then.
void update_special_prices(Connection& connection, std::int32_t Cd_PessoaUsuaria, std::int32_t Cd_Cliente);

}  // namespace posto
