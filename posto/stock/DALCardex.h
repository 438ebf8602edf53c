// The stock ledger: each movement of a product with the running position behind it.
#pragma once

#include "posto/core/entity.h"
#include "posto/core/enumerations.h"
#include "posto/schema/stock.h"

namespace posto {

inline constexpr Description kCardex{.class_name = "DALCardex",
                                     .table = "Cardex",
                                     .keys = {{"Cd_PessoaUsuaria", "Cd_LancamentoCardex"}},
                                     .sequence = {"Cd_LancamentoCardex"}};

// Standard operations (core/entity.h) with the differences told at each. A new movement is AtualizarEstoqueProduto with
// Tp_EdicaoInclusao and then Incluir; a change is AtualizarEstoqueProduto with Tp_EdicaoAlteracao and then Alterar; a
// deletion is Excluir alone.
class DALCardex : public Entity<VOCardex, kCardex> {
 public:
  using Entity::Entity;

  // Executes instrucaoInsert; stock is the caller's work. The argument is accepted and not used.
  void Incluir(bool Ic_BloquearVendaQuandoEstoqueForNegativo = true);
  // The INSERT of the value object. Quantities and costs are narrowed to 32 bits.
  std::string instrucaoInsert();
  // Writes every column of the movement; stock is the caller's work. Raises 0x80040201 without a key; a movement that
  // is not there is no failure. The second argument is accepted and not used.
  void Alterar(bool Ic_Salvando = false, bool Ic_BloquearVendaQuandoEstoqueForNegativo = true);
  // Reads the movement, takes it out of the product's stock and deletes it. Raises 0x80040201 without a key, 0x80040202
  // when it is not there.
  void Excluir();

  // Moves the product's stock by the movement V and works out the position behind it, in V and in the product.
  //  No_TipoEdicao: Tp_EdicaoInclusao, Tp_EdicaoAlteracao (the difference to the stored movement) or Tp_EdicaoExclusao
  //    (takes it back). Only an inclusion works out the averages: weighted for an entry (types 10 to 19), the product's
  //    for an exit (20 to 29). Any other type leaves V as it is, and the product gets V's figures. For a service (the
  //    product's No_Tipo 2) nothing is worked out or written.
  //  Ic_BloquearVendaQuandoEstoqueForNegativo: an inclusion or change that leaves stock below 0 raises 0x800402CA with
  //    the available quantity; the product is not written then, V keeps what was worked out.
  // The new quantity, narrowed to 32 bits; 0 for a service. Raises 3021 when the product, or the movement that is
  // changed, is not there.
  float AtualizarEstoqueProduto(VOCardex& V, Tp_EdicaoEnum No_TipoEdicao,
                                bool Ic_BloquearVendaQuandoEstoqueForNegativo = true);
};

}  // namespace posto
