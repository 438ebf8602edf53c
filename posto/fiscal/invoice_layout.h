// How the company's invoices are printed: the measures of the form, and the place of each field on it.
#pragma once

#include "posto/core/entity.h"
#include "posto/schema/fiscal.h"

namespace posto {

// The standard entity (core/entity.h) with a Salvar.
template <class VO, const Description& kDescription>
class SavedLayout : public Entity<VO, kDescription> {
 public:
  using Entity<VO, kDescription>::Entity;

  // The flag has no effect on a layout.
  void Alterar(bool Ic_Salvando = false, [[maybe_unused]] bool Ic_GravarResponsabilidades = false) {
    EntityBase::Alterar(Ic_Salvando);
  }
  // Alterar, and Incluir where that raises 0x80040201 or 0x80040202.
  void Salvar(bool Ic_GravarResponsabilidades = false) {
    this->save(
        "Salvar", [&] { Alterar(true, Ic_GravarResponsabilidades); }, [&] { this->Incluir(); });
  }
};

// The form, one record a company.
inline constexpr Description kLayOutNotaFiscalSaida{.class_name = "DALLayOutNotaFiscalSaida",
                                                    .table = "LayOutNotaFiscalSaida",
                                                    .keys = {{"Cd_PessoaUsuaria"}},
                                                    .empty_query_by_keys = true};
using DALLayOutNotaFiscalSaida = SavedLayout<VOLayOutNotaFiscalSaida, kLayOutNotaFiscalSaida>;

// A field of the form, one record for each that is printed.
inline constexpr Description kLayOutCamposNotaFiscalSaida{.class_name = "DALLayOutCamposNotaFiscalSaida",
                                                          .table = "LayOutCamposNotaFiscalSaida",
                                                          .keys = {{"Cd_PessoaUsuaria", "Nm_Campo"}},
                                                          .empty_query_by_keys = true};
using DALLayOutCamposNotaFiscalSaida = SavedLayout<VOLayOutCamposNotaFiscalSaida, kLayOutCamposNotaFiscalSaida>;

}  // namespace posto
