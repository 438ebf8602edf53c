// Persons: anybody with a tax number. The record is shared by all user companies; roles (role.h) hang on its key.
#pragma once

#include "posto/core/describe.h"
#include "posto/schema/masterdata.h"

namespace posto {

POSTO_DESCRIPTION(Pessoa, keys("Cd_Pessoa"), read_keys("Cd_CgcCpf"), generated, list("Nm_Pessoa"), by_query)

// A person is found by its key, to be read also by its tax number.
class DALPessoa : public Entity<VOPessoa, kPessoa> {
 public:
  using Entity::Entity;

  // The standard Incluir, with today as Dt_Inclusao.
  void Incluir();
  // All persons of all user companies.
  Recordset RsTodasPessoas();
};

// Puts today into Dt_Inclusao of a value object that holds a new person.
void date_inclusion(const ValueObject& person);

}  // namespace posto
