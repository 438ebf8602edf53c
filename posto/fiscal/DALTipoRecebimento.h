// Kinds of receipt: cash, cheque, cards.
#pragma once

#include "posto/core/describe.h"
#include "posto/schema/fiscal.h"

namespace posto {

POSTO_DESCRIPTION(TipoRecebimento, keys("Cd_TipoRecebimento"), list("Nm_TipoRecebimento"))

// Standard operations (core/entity.h) with the differences told at each.
class DALTipoRecebimento : public Entity<VOTipoRecebimento, kTipoRecebimento> {
 public:
  using Entity::Entity;

  // Without a code it finds the kind that is offered at sales for No_TipoPagamento and No_TipoVencimento, whatever
  // they hold; 0x80040202 when there is none.
  VOTipoRecebimento& Consultar(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro = false);
  // "SELECIONE ->" with 0, then the names with their codes. Ds_Condicao: a WHERE clause or nothing.
  void CarregarComboBox(LateBound& Ob_ComboBox, std::string_view Ds_Condicao = {});
};

}  // namespace posto
