// Questions about the coupons of a day.
#pragma once

#include "posto/core/entity.h"
#include "posto/schema/fiscal.h"

namespace posto {

inline constexpr Description kCuponsFiscais{.class_name = "DALCuponsFiscais", .table = "CupomFiscal"};

class DALCuponsFiscais : public EntityBase {
 public:
  DALCuponsFiscais() : EntityBase(kCuponsFiscais) {}
  explicit DALCuponsFiscais(std::shared_ptr<VOSistema> settings) : EntityBase(kCuponsFiscais, std::move(settings)) {}

  // The user company's lines of services (Fl_Tipo "SERVIcO") of a day, on coupons that go onto a service invoice
  // (No_TipoEnvioNF 1), summed by product, price and unit: Cd_PessoaUsuaria, Cd_Produto, SomaDeQt_Unidade,
  // Vl_UnitVenda, Cd_Unidade. Detached.
  Recordset rsItensParaEmissaoNFServicosCupons(Date Dt_Emissao);

 protected:
  ValueObject vo() override { return by_name(unused_); }

 private:
  VOCupomFiscal unused_;
};

}  // namespace posto
