// Purchase notes that the station receives.
#pragma once

#include <string>

#include "posto/core/entity.h"
#include "posto/schema/fiscal.h"

namespace posto {

inline constexpr Description kNotaEntrada{
    .class_name = "DALNotaEntrada",
    .table = "NotaEntrada",
    .keys = {{"Cd_PessoaUsuaria", "Cd_TipoNF", "No_Nota", "Cd_Fornecedor"}, {"Cd_PessoaUsuaria", "No_Entrada"}},
    .remove_keys = {"Cd_PessoaUsuaria", "Cd_TipoNF", "No_Nota", "Cd_Fornecedor"},
    .sequence = {"No_Entrada"},
    .empty_query = "Cd_PessoaUsuaria = 0 and No_Nota = 0 and Cd_Fornecedor = 0 and Cd_TipoNF = 0"};

// A note is found by company, kind, number and supplier, otherwise by company and No_Entrada, the number that the
// database gives it.
//
// Standard operations (core/entity.h). Excluir takes the first of the two keys only, and leaves lines and deliveries
// where they are.
class DALNotaEntrada : public Entity<VONotaEntrada, kNotaEntrada> {
 public:
  using Entity::Entity;

  // Record sets, detached; they need No_Entrada in the value object.
  //
  // The lines by No_Item, with Nm_Produto and Fl_VendBomba of their product.
  Recordset ItensRs();
  // Cd_ProdutoItem and SomaQt_UnidadeItem of each fuel of the note.
  Recordset ItensAgrupadoPorCombustivelRs();
  // Cd_ProdutoDescarga and SomaDeQt_UnidadeDescarga: what of a product went into tanks. No row when nothing did.
  Recordset SomaDescargaDeUmProdutoRs(std::int32_t Cd_Produto);
  // The deliveries by tank, with Nm_Produto.
  Recordset DescargasRs();
  // The payables that arose from the note: No_ContasAPagar, Id_DocumentoFornecedor, No_CodigoBarras, Qt_DiasProtesto,
  // Cd_BancoContaAPagar, Dt_Vencimento, Vl_MoraDiaria, Vl_Debito. Needs the first key.
  Recordset ContasAPagarRs();
  // Every Cd_CfopItem of all purchase lines that there are, of whatever note and company, with a blank behind each.
  std::string CFOPsItens();
};

}  // namespace posto
