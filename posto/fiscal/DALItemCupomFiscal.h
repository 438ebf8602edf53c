// Lines of fiscal coupons.
#pragma once

#include <memory>
#include <utility>

#include "posto/fiscal/line_of_product.h"
#include "posto/fiscal/live_entity.h"
#include "posto/forecourt/DALBomba.h"
#include "posto/schema/fiscal.h"
#include "posto/stock/DALProduto.h"

namespace posto {

inline constexpr Description kItemCupomFiscal{
    .class_name = "DALItemCupomFiscal",
    .table = "ItemCupomFiscal",
    .keys = {{"Cd_PessoaUsuaria", "No_Impressora", "No_CupomFiscal", "Dt_Emissao", "No_Item"}}};

// Standard operations (core/entity.h) with the differences told at each. The key is the coupon's and No_Item.
// Consultar finds live lines only.
class DALItemCupomFiscal : public LineOfProduct<LiveEntity<VOItemCupomFiscal, kItemCupomFiscal>> {
 public:
  using LineOfProduct::LineOfProduct;

  // The nozzle and the product that go with the line; each has this object's settings whenever it is asked for.
  const std::shared_ptr<DALBomba>& Ob_DALBomba() { return with_settings(nozzle_); }
  void Ob_DALBomba(std::shared_ptr<DALBomba> nozzle) { nozzle_ = std::move(nozzle); }
  const std::shared_ptr<DALProduto>& Ob_DALProduto() { return with_settings(product_); }
  void Ob_DALProduto(std::shared_ptr<DALProduto> product) { product_ = std::move(product); }

  // Writes every column that Incluir writes, of the line that the value object's key finds; none is no failure.
  void Alterar(bool Ic_Salvando = false);
  // Adds the line; true.
  bool Incluir();
  // Marks the line as deleted and cuts its links to ledger and fuelling; the row stays.
  void Excluir();

 private:
  std::string instrucaoInsert();
  template <class Child>
  const std::shared_ptr<Child>& with_settings(const std::shared_ptr<Child>& child) {
    if (child) child->ObVOSistema = ObVOSistema;
    return child;
  }

  std::shared_ptr<DALBomba> nozzle_ = std::make_shared<DALBomba>();
  std::shared_ptr<DALProduto> product_ = std::make_shared<DALProduto>();
};

}  // namespace posto
