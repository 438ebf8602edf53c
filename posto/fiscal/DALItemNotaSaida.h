// Lines of the invoices that the station issues.
#pragma once

#include <memory>
#include <utility>

#include "posto/core/entity.h"
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
class DALItemNotaSaida : public Entity<VOItemNotaSaida, kItemNotaSaida> {
 public:
  using Entity::Entity;

  // Objects that a caller keeps beside the line; the line's operations do not use them.
  std::shared_ptr<DALBomba> Ob_DALBomba = std::make_shared<DALBomba>();
  std::shared_ptr<DALProduto> Ob_DALProduto = std::make_shared<DALProduto>();

  // Reads the line's product into the value object: the columns that both have (rates, tax situation, unit). Raises
  // 0x80040201 without Cd_PessoaUsuaria and Cd_Produto, 0x80040202 with "(ItemNotaSaida)" when there is no such
  // product; the flag resets the value object before they are raised. Errors 13, 438 and 440 go on at the next
  // statement.
  VOItemNotaSaida& ConsultarProduto(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro = false);
};

}  // namespace posto
