#include "posto/masterdata/DALPessoa.h"

#include "posto/core/sql.h"
#include "posto/services/clock.h"

namespace posto {

void date_inclusion(const ValueObject& person) { person.let("Dt_Inclusao", clock_now().day()); }

void DALPessoa::Incluir() {
  date_inclusion(vo());
  Entity::Incluir();
}

Recordset DALPessoa::RsTodasPessoas() {
  return routine("RsTodasPessoas", [&] { return open(sql("SELECT * FROM Pessoa")); });
}

}  // namespace posto
