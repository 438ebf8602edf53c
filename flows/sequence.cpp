#include "flows/sequence.h"

#include <limits>

#include "flows/conflict.h"
#include "posto/core/sql.h"
#include "posto/masterdata/catalogue.h"

namespace posto::flows {

Sequence::Sequence(std::shared_ptr<VOSistema> settings, const std::string& attribute)
    : settings_(std::move(settings)), name_(attribute + "/" + std::to_string(settings_->tenant())) {}

bool Sequence::hold() {
  std::int64_t rows = 0;
  settings_->ObConnection->Execute(sql(R"(
      UPDATE   SequenciadorGeral
      SET      No_Sequencial = No_Sequencial
      WHERE    Nm_Atributo = '{}')",
                                       name_),
                                   rows);
  return rows > 0;
}

// The row is written before it is read: whoever else wants a number waits here for the end of this transaction.
void Sequence::load() {
  const bool stands = hold();
  DALSequenciadorGeral sequencer(settings_);
  sequencer.ObVO->Nm_Atributo = name_;
  last_ = 0;
  if (stands) {
    last_ = sequencer.Consultar().No_Sequencial;
  } else {
    try {
      sequencer.Incluir();
    } catch (const Erro& failure) {
      if (failure.number() != erro::kIntegrity) throw;
      throw conflict("flows.Sequence", "A numeração de " + name_ + " acaba de ser criada por outro processo");
    }
  }
  stored_ = last_;
  loaded_ = true;
}

std::int32_t Sequence::next() {
  if (!loaded_) load();
  if (last_ == std::numeric_limits<std::int32_t>::max()) {
    throw Erro(erro::kOverflow, "flows.Sequence", "A numeração de " + name_ + " acabou");
  }
  return ++last_;
}

void Sequence::store() {
  if (loaded_ && last_ != stored_) {
    DALSequenciadorGeral sequencer(settings_);
    sequencer.ObVO->Nm_Atributo = name_;
    sequencer.ObVO->No_Sequencial = last_;
    sequencer.Alterar();
  }
  loaded_ = false;
}

}  // namespace posto::flows
