#include "posto/masterdata/DALCliente.h"

#include "posto/masterdata/special_prices.h"

namespace posto {

VOCliente& DALCliente::Consultar(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro) {
  consult_both(Ic_RestaurarDefaulSeNaoEcontrarRegistro, [&] {
    if (Ic_CalculadoAcumuloNaConsulta) VerificarAcumulos();
  });
  return *ObVO;
}

void DALCliente::SalvarCliente() {
  save(
      "SalvarCliente", [&] { Alterar(true); }, [&] { Incluir(); });
}

void DALCliente::Salvar() {
  routine("Salvar", [&] { SalvarCliente(); });
}

bool DALCliente::AtualizarPrecoCondicaoEspecial() {
  return routine("AtualizarPrecoCondicaoEspecial", [&] {
    if (ObVO->Cd_Cliente != 0) update_special_prices(connection(), company(), ObVO->Cd_Cliente);
    return true;
  });
}

}  // namespace posto
