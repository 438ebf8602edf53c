// Commission by group of customers, group of products and function.
#pragma once

#include "posto/masterdata/catalogue.h"

namespace posto {

// Standard operations (core/entity.h).
class DALGradeComissao : public Entity<VOGradeComissao, kGradeComissao> {
 public:
  using Entity::Entity;

  // The whole grid of all companies, by its names: Nm_GrupoCliente, Nm_GrupoProduto, Nm_Funcao, Tx_Comissao. Detached.
  Recordset rsTodosRegistros();
};

}  // namespace posto
