// A sale at a fiscal printer, and its cancelling.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "flows/station.h"
#include "posto/schema/fiscal.h"

namespace posto::flows {

struct SaleLine {
  std::int32_t product = 0;       // code; 0: the fuelling's
  double quantity = 0;            // 0: the fuelling's litres
  std::optional<Currency> price;  // of a unit; none: the fuelling's less its discount, or the product's
  std::int32_t fuelling = 0;      // Cd_Abastecimento of the delivery that is sold
  bool cancelled = false;         // printed and taken back before the coupon ended
  std::int32_t place = 0;         // Cd_PonVen, where it is sold; 0: the station's lowest
};

inline constexpr std::int32_t kCash = 5;  // Cd_TipoRecebimento

struct Payment {
  std::int32_t kind = 0;            // Cd_TipoRecebimento
  std::optional<Currency> value{};  // none, of the last one: what the others leave of the net total
};

// A card that the station gave a client.
struct ClientCard {
  std::int32_t kind = 0;    // Cd_TipoCartao
  std::int32_t number = 0;  // Cd_Cartao; 0: none
};

struct Sale {
  std::uint8_t printer = 0;
  std::int32_t number = 0;  // of the coupon, as printed; 0: one more than the printer's highest
  Date moment;              // of issue
  Date business_day{};      // none: the day of issue
  std::int32_t shift = 0;   // Cd_Caixa
  Currency discount;        // on the total
  std::vector<SaleLine> lines;
  std::vector<Payment> payments;  // none: a sale on credit to the client
  std::int32_t client = 0;
  ClientCard card{};    // by which the credit is given; its client needs not be told
  std::string vehicle;  // number plate
  std::int32_t odometer = 0;
  bool automatic = false;  // posted by a computer
};

struct CouponKey {
  std::uint8_t printer = 0;
  std::int32_t number = 0;
  Date issued;  // a day
};

// Sells: the coupon with its lines, receipts, the printer's grand total and the log of its documents, in one
// transaction. The coupon as it stands then.
//
// Each line of goods gets a ledger movement of type 20, which moves the product's stock; a fuelling that was taken in
// with its movement keeps it. A fuelling is posted, and it is verified that this line alone holds it. Vl_GTotal goes on
// from the printer's highest, or from what is registered for the printer before its first coupon. A sale by a client's
// card waits for approval (VendaCartaoPorCupomFiscal).
//
// Raises, with nothing sold: 0x800402CA for goods that are not in stock (fuel of a fuelling is gone and never refused),
// 0x8004026F for a fuelling that is posted already, 0x80040269 for a sale on credit to a client whose credit is
// blocked, 0x80040660 for a sale that cannot be (no lines, payments that are not the net total or of an unknown kind, a
// calibration, a blocked card, an unknown printer or place, an unknown or checked shift, a business day up to the
// settled date), 0x80040E2F for a coupon that is there already, 0x80040202 for an unknown product, fuelling, client or
// card.
VOCupomFiscal sell(Station& station, const Sale& sale);
// The same for a coupon that was cancelled at once, in one transaction.
void sell_and_cancel(Station& station, const Sale& sale);
// Whether a sale that raised this can never be, while others go on; anything else is a failure.
bool refuses_sale(const Erro& raised);

// Take a line, or a whole coupon, back: links are cut, stock is put back by the ledger's own deletion, a fuelling is
// pending again (its fuel stays out of stock where its movement was taken in with it). Receipts shrink from the last
// one on to the new net total, or go; the printer's running figure of cancellations rises, on this coupon and on those
// behind it on the business day. A cancelled coupon keeps its lines, marked as deleted, and Vl_Total.
//
// Raise, with nothing changed: 0x80040202 for a coupon or line that is not there, 0x80040660 for a coupon that is
// billed, has an invoice, lies up to the settled date or in a checked shift, and for the only line of a coupon.
void cancel_line(Station& station, const CouponKey& coupon, std::uint8_t item);
void cancel_coupon(Station& station, const CouponKey& coupon);

}  // namespace posto::flows
