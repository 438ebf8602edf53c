// The log of the releases of nozzles.
#pragma once

#include "posto/core/entity.h"
#include "posto/schema/forecourt.h"

namespace posto {

inline constexpr Description kLogLiberacaoBico{.class_name = "DALLogLiberacaoBico",
                                               .table = "LogLiberacaoBico",
                                               .keys = {{"Cd_PessoaUsuaria", "No_Liberacao"}},
                                               .sequence = {"No_Liberacao"}};

// Standard operations (core/entity.h), but that Incluir executes instrucaoInsert; the caller supplies No_Liberacao.
class DALLogLiberacaoBico : public Entity<VOLogLiberacaoBico, kLogLiberacaoBico> {
 public:
  using Entity::Entity;

  void Incluir();
  // The INSERT of the value object; an empty vehicle becomes null.
  std::string instrucaoInsert();
};

}  // namespace posto
