// Suppliers: persons of whom the user company buys.
#pragma once

#include "posto/core/describe.h"
#include "posto/masterdata/role.h"
#include "posto/schema/masterdata.h"

namespace posto {

POSTO_DESCRIPTION(Fornecedor, keys("Cd_PessoaUsuaria", "Cd_Fornecedor"))

// The pattern of role.h and nothing else.
class DALFornecedor : public Role<VOFornecedor, kFornecedor> {
 public:
  using Role::Role;

  // Whether a supplier of the user company has the tax number; then its key is put into the value object.
  bool CnpjOuCpfCadastradoComoFornecedor() { return stands_in_role(); }
};

}  // namespace posto
