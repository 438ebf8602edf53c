// Customers' vehicles, by number plate.
#pragma once

#include "posto/core/describe.h"
#include "posto/schema/masterdata.h"

namespace posto {

POSTO_DESCRIPTION(Veiculo, keys("Cd_PessoaUsuaria", "Cd_Veiculo"))

// The standard operations, and the vehicle's figures. Statements take the user company from the value object.
class DALVeiculo : public Entity<VOVeiculo, kVeiculo> {
 public:
  using Entity::Entity;

  // The standard Consultar; then VerificarAcumulos where Ic_CalculadoAcumuloNaConsulta is set.
  VOVeiculo& Consultar(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro = false);

  bool Ic_CalculadoAcumuloNaConsulta = false;
  // Fills Vl_AcumuloAFaturar, the vehicle's credit sales that are to be billed in the current month and are not yet,
  // and Qt_ConsumoMedio, its average kilometres a litre over all lines of its coupons; each 0 where there are none.
  void VerificarAcumulos();
  // The vehicle's coupons of a day.
  Recordset Rs_AbastecimentosVeiculoNoDia(Date Dt_Pesquisa);

 private:
  Currency AcumulosAFaturarPeriodoAtual();
  double ConsumoMedio();
};

}  // namespace posto
