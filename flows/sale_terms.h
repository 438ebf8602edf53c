// On what terms a sale is made: against receipts, or on the client's credit, with or without a card.
#pragma once

#include "flows/sale.h"

namespace posto::flows {

// An amount as a message shows it.
std::string in_reais(Currency value);

// The payments of a sale with their values; none for a sale on credit. Raises 0x80040660 where they are not the net
// total, for a kind of receipt that is not there, and for a sale with neither payments nor client.
std::vector<Payment> agreed_payments(Station& station, const Sale& sale, Currency net_total);
// Raise 0x80040660 for a shift that is checked already: its settlement stands. The first does for one that is not
// there, the second says whether it is.
void require_open_shift(Station& station, std::int32_t shift);
bool refuse_checked_shift(Station& station, std::int32_t shift);

// Fills Tp_Venda, FL_Fechada, Dt_Fechamento and Cd_Cliente of the coupon. Raises 0x80040269 for a client whose credit
// is blocked, 0x80040202 for a client or card that is not there, 0x80040660 for a card that cannot be used.
void fill_kind_of_sale(Station& station, const Sale& sale, VOCupomFiscal& coupon);

// The coupon's sale by card, which waits for approval; nothing where it is none.
void write_card_sale(Station& station, const Sale& sale, const VOCupomFiscal& coupon);
// Writes what the coupon comes to now to its sale by card, which goes where that is nothing.
void revalue_card_sale(Station& station, const VOCupomFiscal& coupon);

}  // namespace posto::flows
