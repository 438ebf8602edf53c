// Logins of the system.
#pragma once

#include "posto/core/describe.h"
#include "posto/schema/masterdata.h"

namespace posto {

// A login is found by its code; to be read also by name and password, employee and password, or name alone: the first
// of these whose properties all have a value. The caller enciphers the password, the database compares it. To read one
// that there is not is 0x80040202 with these words as its description.
POSTO_DESCRIPTION(Usuario, keys("Cd_PessoaUsuaria", "Cd_Usuario"),
                  read_keys("Cd_PessoaUsuaria", "Nm_Usuario", "Ds_CriptoSenha"),
                  read_keys("Cd_PessoaUsuaria", "Cd_Funcionario", "Ds_CriptoSenha"),
                  read_keys("Cd_PessoaUsuaria", "Nm_Usuario"), not_read("Senha ou usuario invalido"))
using DALUsuario = Entity<VOUsuario, kUsuario>;

}  // namespace posto
