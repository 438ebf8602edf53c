// Commitments: fixed quantities that a customer ordered and against which goods are drawn.
#pragma once

#include "posto/core/describe.h"
#include "posto/schema/masterdata.h"

namespace posto {

POSTO_DESCRIPTION(Empenho, keys("Cd_PessoaUsuaria", "Cd_Cliente", "Id_Empenho"), by_query)

// The standard operations, and the lines.
class DALEmpenho : public Entity<VOEmpenho, kEmpenho> {
 public:
  using Entity::Entity;

  // The lines of the value object's commitment by their number, with the products' names.
  Recordset rsItens();
};

}  // namespace posto
