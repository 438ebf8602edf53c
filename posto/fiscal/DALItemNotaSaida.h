// Lines of the invoices that the station issues.
#pragma once

#include <memory>
#include <utility>

#include "posto/fiscal/line_of_product.h"
#include "posto/forecourt/DALBomba.h"
#include "posto/schema/fiscal.h"
#include "posto/stock/DALProduto.h"

namespace posto {

inline constexpr Description kItemNotaSaida{
    .class_name = "DALItemNotaSaida",
    .table = "ItemNotaSaida",
    .keys = {{"Cd_PessoaUsuaria", "Cd_TipoNF", "No_Nota", "No_Item"}},
    .empty_query = "Cd_PessoaUsuaria = 0 and No_Nota = 0 and Cd_TipoNF = 0 and No_Item = 0"};

// Standard operations (core/entity.h).
class DALItemNotaSaida : public LineOfProduct<Entity<VOItemNotaSaida, kItemNotaSaida>> {
 public:
  using LineOfProduct::LineOfProduct;

  // Objects that a caller keeps beside the line; the line's operations do not use them.
  std::shared_ptr<DALBomba> Ob_DALBomba = std::make_shared<DALBomba>();
  std::shared_ptr<DALProduto> Ob_DALProduto = std::make_shared<DALProduto>();
};

}  // namespace posto
