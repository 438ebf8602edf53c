// Which product's stock is transferred into which other's.
#pragma once

#include "posto/core/describe.h"
#include "posto/schema/stock.h"

namespace posto {

POSTO_DESCRIPTION(ProdutoTransferencia, keys("Cd_PessoaUsuaria", "Cd_ProdutoBaixa", "Cd_ProdutoEntrada"),
                  read_keys("Cd_PessoaUsuaria", "Cd_ProdutoEntrada", "Ic_TransferenciaAutomatica"),
                  read_keys("Cd_PessoaUsuaria", "Cd_ProdutoEntrada"), by_query, existe)

// Standard operations (core/entity.h). Consultar and Existe find by both products; otherwise, where
// Ic_TransferenciaAutomatica is true, the automatic source of Cd_ProdutoEntrada; otherwise any source of it. Alterar
// and Excluir need both products.
class DALProdutoTransferencia : public Entity<VOProdutoTransferencia, kProdutoTransferencia> {
 public:
  using Entity::Entity;

  // How many products take from Cd_ProdutoBaixa.
  std::int32_t QuantidadeProdutoTransferencia();
  // No transfer of either product is an automatic one any more, whatever its company.
  void LimparTransferenciaAutomaticaProduto();
};

// One transfer between products. Its stock effect is two ledger movements of the caller's.
POSTO_DESCRIPTION(ItemTransfEmbalagem, keys("Cd_PessoaUsuaria", "No_Transferencia"), generated, by_query)
using DALItemTransfEmbalagem = Entity<VOItemTransfEmbalagem, kItemTransfEmbalagem>;

}  // namespace posto
