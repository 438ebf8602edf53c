// Employees: persons who work for the user company.
#pragma once

#include "posto/core/describe.h"
#include "posto/masterdata/role.h"
#include "posto/schema/masterdata.h"

namespace posto {

POSTO_DESCRIPTION(Funcionario, keys("Cd_PessoaUsuaria", "Cd_Funcionario"))

// The pattern of role.h and little else.
class DALFuncionario : public Role<VOFuncionario, kFuncionario> {
 public:
  using Role::Role;

  // Whether an employee of the user company has the tax number; then its key is put into the value object.
  bool CnpjOuCpfCadastradoComoFuncionario() { return stands_in_role(); }
  // Adds the employee's record alone; the person stands already, under Cd_Funcionario.
  void IncluirFuncionario() { insert_role(); }
};

}  // namespace posto
