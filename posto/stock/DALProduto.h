// Products: goods, fuels and services, with the stock that the ledger keeps, and the ledger's views of a product.
#pragma once

#include "posto/core/entity.h"
#include "posto/schema/stock.h"

namespace posto {

inline constexpr Description kProduto{.class_name = "DALProduto",
                                      .table = "Produto",
                                      .keys = {{"Cd_PessoaUsuaria", "Cd_Produto"}},
                                      .read_keys = {{"Cd_CodBarras"}},
                                      .sequence = {"Cd_Produto"},
                                      .empty_query = "Cd_PessoaUsuaria = 0 and Cd_Produto = 0",
                                      .list = {"Cd_Produto", "Nm_Produto", "Nm_Produto"}};

// Standard operations (core/entity.h) with these differences:
//  - Consultar finds by company and code, otherwise by the bar code alone, of whatever company.
//  - Alterar makes the product's nozzles send their price to the automation again, whether it changed or not.
//  - Alterar and Excluir need company and code.
class DALProduto : public Entity<VOProduto, kProduto> {
 public:
  using Entity::Entity;

  // With Ic_ConsultaUltimoCusto also fills Vl_UltimoCusto with the unit cost of a purchase of the latest day that has
  // one; 0 when there is none.
  VOProduto& Consultar(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro = false, bool Ic_ConsultaUltimoCusto = true);
  void Alterar(bool Ic_Salvando = false);

  // The position before the recalculation of a day: of the product's last movement before it, or the product's opening
  // figures where there is none; a null counts as 0. Raises 0x80040201 when there is no such product. True.
  bool UltimoEstoqueDeKardexAtualizado(Date Dt_InicialDeAtualizacao, float& Qt_Estoque, float& Vl_CustoMedio,
                                       float& Vl_CredIcmsMedio);

  // Record sets, detached. Company and, but for rsEstoque, product are those of the value object.
  //
  // Each product of the company as the ledger has it at the end of a day: Cd_PessoaUsuaria, Nm_GrupoProduto,
  // Cd_Produto, Nm_Produto, Qt_Estoque. A product without a movement until then has no row.
  Recordset rsEstoque(Date Dt_Movimento);
  // The product's movements between two days; rsKardexNegativo: those that leave less than nothing in stock.
  Recordset rsKardex(Date Dt_Inicial, Date Dt_Final);
  Recordset rsKardexNegativo(Date Dt_Inicial, Date Dt_Final);
  // SomaDeQt_Litros of the day's fuellings that were posted on a coupon of another day.
  Recordset rsSomaDeAbastecimentoDoDiaBaixadoEmOutraData(Date Dt_Termino);
  // SomaDeQt_Litros of other days' fuellings that were posted on a coupon of this day. A failure reports itself as
  // rsMargemContribuicao.
  Recordset rsSomaDeAbastecimentoDeOutraDataBaixadoNoDia(Date Dt_Termino);

 private:
  double UltimoCusto();
  Recordset ledger(Date first, Date last, std::string_view condition);
};

}  // namespace posto
