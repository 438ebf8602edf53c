// Logins of the system.
#pragma once

#include "posto/core/describe.h"
#include "posto/schema/masterdata.h"

namespace posto {

POSTO_DESCRIPTION(Usuario, keys("Cd_PessoaUsuaria", "Cd_Usuario"),
                  read_keys("Cd_PessoaUsuaria", "Nm_Usuario", "Ds_CriptoSenha"),
                  read_keys("Cd_PessoaUsuaria", "Cd_Funcionario", "Ds_CriptoSenha"),
                  read_keys("Cd_PessoaUsuaria", "Nm_Usuario"))

// A login is found by its code; to be read also by name and password, employee and password, or name alone: the first
// of these whose properties all have a value. The caller enciphers the password, the database compares it.
class DALUsuario : public Entity<VOUsuario, kUsuario> {
 public:
  using Entity::Entity;

  // The standard Consultar; no such record is 0x80040202 with the description "Senha ou usuario invalido".
  VOUsuario& Consultar(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro = false);
};

}  // namespace posto
