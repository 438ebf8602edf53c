// The customers' cards.
#pragma once

#include "posto/masterdata/catalogue.h"

namespace posto {

// Standard operations (core/entity.h) and the sales by card that are still open: on credit by card, not approved, their
// coupon not billed. Company, kind of card and card are those of the value object.
class DALCartao : public Entity<VOCartao, kCartao> {
 public:
  using Entity::Entity;

  // How many there are. Raises 6 for more than 32767.
  std::int16_t QuantidadeDePendencias();
  // Their rows of VendaCartaoPorCupomFiscal, detached.
  Recordset rsPendencias();
};

}  // namespace posto
