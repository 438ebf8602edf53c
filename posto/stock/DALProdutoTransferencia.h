// Which product's stock is transferred into which other's.
#pragma once

#include "posto/core/entity.h"
#include "posto/schema/stock.h"

namespace posto {

inline constexpr Description kProdutoTransferencia{
    .class_name = "DALProdutoTransferencia",
    .table = "ProdutoTransferencia",
    .keys = {{"Cd_PessoaUsuaria", "Cd_ProdutoBaixa", "Cd_ProdutoEntrada"}},
    .read_keys = {{"Cd_PessoaUsuaria", "Cd_ProdutoEntrada", "Ic_TransferenciaAutomatica"},
                  {"Cd_PessoaUsuaria", "Cd_ProdutoEntrada"}},
    .empty_query = "Cd_PessoaUsuaria = 0 and Cd_ProdutoBaixa = 0 and Cd_ProdutoEntrada = 0"};

// Standard operations (core/entity.h). Consultar and Existe find by both products; otherwise, where
// Ic_TransferenciaAutomatica is true, the automatic source of Cd_ProdutoEntrada; otherwise any source of it. Alterar
// and Excluir need both products.
class DALProdutoTransferencia : public Entity<VOProdutoTransferencia, kProdutoTransferencia> {
 public:
  using Entity::Entity;

  // Whether there is such a transfer. Raises 0x80040201 without a key.
  bool Existe();
  // How many products take from Cd_ProdutoBaixa.
  std::int32_t QuantidadeProdutoTransferencia();
  // No transfer of either product is an automatic one any more, whatever its company.
  void LimparTransferenciaAutomaticaProduto();
};

// One transfer between products. Its stock effect is two ledger movements of the caller's.
inline constexpr Description kItemTransfEmbalagem{.class_name = "DALItemTransfEmbalagem",
                                                  .table = "ItemTransfEmbalagem",
                                                  .keys = {{"Cd_PessoaUsuaria", "No_Transferencia"}},
                                                  .sequence = {"No_Transferencia"},
                                                  .empty_query = "Cd_PessoaUsuaria = 0 and No_Transferencia = 0"};
using DALItemTransfEmbalagem = Entity<VOItemTransfEmbalagem, kItemTransfEmbalagem>;

}  // namespace posto
