#include "flows/sequence.h"

#include <limits>

#include "posto/masterdata/catalogue.h"

namespace posto::flows {

Sequence::Sequence(std::shared_ptr<VOSistema> settings, const std::string& attribute)
    : settings_(std::move(settings)), name_(attribute + "/" + std::to_string(settings_->tenant())) {}

std::int32_t Sequence::next() {
  if (!loaded_) {
    DALSequenciadorGeral sequencer(settings_);
    sequencer.ObVO->Nm_Atributo = name_;
    try {
      last_ = sequencer.Consultar().No_Sequencial;
    } catch (const Erro& failure) {
      if (failure.number() != erro::kRecordNotFound) throw;
      sequencer.Incluir();
      last_ = 0;
    }
    stored_ = last_;
    loaded_ = true;
  }
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
