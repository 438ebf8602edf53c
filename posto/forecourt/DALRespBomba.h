// Who answered for a nozzle in a cash shift, between which totaliser readings.
#pragma once

#include "posto/core/entity.h"
#include "posto/schema/forecourt.h"

namespace posto {

inline constexpr Description kRespBomba{
    .class_name = "DALRespBomba",
    .table = "RespBomba",
    .keys = {{"Cd_PessoaUsuaria", "Cd_Caixa", "Dt_RespBomba", "Cd_Bomba"}},
    .empty_query = "Cd_PessoaUsuaria = 0 and Cd_Caixa = 0 and Cd_Bomba = 0 and Dt_RespBomba = Null"};

// Standard operations (core/entity.h). The composed statements write Dt_RespBomba without its time, so that they find
// only a period that began at midnight.
class DALRespBomba : public Entity<VORespBomba, kRespBomba> {
 public:
  using Entity::Entity;

  // Closes the period in course, the last of the company, shift and nozzle: writes the two closing readings of the
  // value object, and as Qt_Venda the litres between the electronic ones, null where the opening one is. Raises
  // 0x80040201 without one of the three keys, and 3021 when there is no period.
  void FecharResponsabilidade();
};

}  // namespace posto
