// Cheques that were inquired about, and what the inquiry said.
#pragma once

#include "posto/core/describe.h"
#include "posto/schema/fiscal.h"

namespace posto {

POSTO_DESCRIPTION(ConsultaCheque, keys("Cd_Cmc7"), keys("Cd_Banco", "Cd_Agencia", "Cd_Conta", "Nm_IdDocumento"),
                  by_query_of("Cd_Banco = 0 and Cd_Agencia = 0 and Cd_Conta = '' and Nm_IdDocumento = ''"))

// Standard operations (core/entity.h). A cheque is found by its magnetic line when that is filled, otherwise by bank,
// branch, account and document together. A reading's statement ends in a comment that says which:
// "ConsultaCheque_03" by the line, "ConsultaCheque_01" by the account.
class DALConsultaCheque : public Entity<VOConsultaCheque, kConsultaCheque> {
 public:
  using Entity::Entity;

  // As Entity's.
  VOConsultaCheque& Consultar(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro = false);
  // Whether the cheque was inquired about; the value object keeps what it has. Raises 0x80040201 without a key. The
  // flag resets the value object before that is raised, and where there is no such cheque.
  bool Existe(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro = false);

 private:
  // The reading by the value object's key; raises 0x80040201 without one.
  std::string reading(bool reset_when_missing);
};

}  // namespace posto
