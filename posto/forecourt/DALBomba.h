// Nozzles: the record of each, and the questions about its totaliser and its fuellings.
#pragma once

#include "posto/core/entity.h"
#include "posto/core/list_entity.h"
#include "posto/schema/forecourt.h"

namespace posto {

inline constexpr Description kBomba{.class_name = "DALBomba",
                                    .table = "Bomba",
                                    .keys = {{"Cd_PessoaUsuaria", "Cd_Bomba"}},
                                    .read_keys = {{"Cd_PessoaUsuaria", "De_EnderecoLogicoBico"}},
                                    .empty_query = "Cd_PessoaUsuaria = 0 and Cd_Bomba = 0",
                                    .list = {"Cd_Bomba", "Ds_Bomba", "Ds_Bomba"}};

// A nozzle is found by tenant and number, otherwise by tenant and logical address.
//
// Standard operations (core/entity.h) with these differences:
//  - Alterar finds by tenant and number, otherwise by the address alone, without the tenant. It writes the columns of
//    the nozzle, and those of the next delivery (shift, vehicle, presets) only on request.
//  - Excluir needs the number.
class DALBomba : public Entity<VOBomba, kBomba> {
 public:
  using Entity::Entity;

  // Either flag also writes the columns of the next delivery; a blank Cd_Veiculo becomes null.
  void Alterar(bool Ic_Salvando = false, bool Ic_GravarResponsabilidades = false, bool Ic_GravarLiberacaoBomba = false);
  // Alterar, and Incluir when there is no such nozzle.
  void Salvar(bool Ic_GravarResponsabilidades = false);

  // The end of the nozzle's last delivery; the zero date when it has none. Raises 0x80040201 without an address.
  Date DataUltimoAbastecimento();
  // Litres on the totaliser behind the last delivery that ended before the day began; 0 when there is none.
  double EncerranteAnteriorAoDia(Date Dt_Verificacao);
  // Litres on the totaliser behind the last delivery; 0 when there is none. Sets the tenant in the value object.
  double UltimoEncerranteEletronico();

  // Deliveries that are not posted, by amount, with the name of the shift's employee. Reads the nozzle first when the
  // value object has no address.
  Recordset Rs_AbastecimentosPendentes();
  // Deliveries from the last one that was checked on, behind the company's settled date.
  Recordset Rs_AbastecimentosNaoConferido();
  // Deliveries that ended on the day.
  Recordset Rs_AbastecimentoNaoVerificado(Date Dt_Verificacao);

 protected:
  Names key_for(Purpose purpose) override;
};

// The company's nozzles, by number.
inline constexpr Description kBombas{
    .class_name = "DALBombas", .table = "Bomba", .keys = {{"Cd_PessoaUsuaria"}}, .list = {.order = "Cd_Bomba"}};
using DALBombas = ListEntity<kBombas>;

}  // namespace posto
