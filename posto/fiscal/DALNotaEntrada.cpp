#include "posto/fiscal/DALNotaEntrada.h"

#include "posto/core/sql.h"

namespace posto {

Recordset DALNotaEntrada::ItensRs() {
  return routine("ItensRs", [&] {
    return detached(sql(R"(
        SELECT   ItemNotaEntrada.*, Produto.Nm_Produto, Produto.Fl_VendBomba
        FROM     ItemNotaEntrada
                 INNER JOIN Produto On ItemNotaEntrada.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria AND
                                       ItemNotaEntrada.Cd_ProdutoItem = Produto.Cd_Produto
        WHERE    ItemNotaEntrada.Cd_PessoaUsuaria = {} And
                 No_Entrada = {}
        ORDER BY No_Item)",
                        ObVO->Cd_PessoaUsuaria, ObVO->No_Entrada));
  });
}

Recordset DALNotaEntrada::ItensAgrupadoPorCombustivelRs() {
  return routine("ItensAgrupadoPorCombustivelRs", [&] {
    return detached(sql(R"(
        SELECT   Cd_ProdutoItem, Sum(Qt_UnidadeItem) As SomaQt_UnidadeItem
        FROM     ItemNotaEntrada
                 Join Produto on ItemNotaEntrada.Cd_ProdutoItem = Produto.Cd_Produto
        WHERE    No_Entrada = {} AND
                 Produto.Fl_VendBomba <> 0
        GROUP BY Cd_ProdutoItem
        ORDER BY Cd_ProdutoItem)",
                        ObVO->No_Entrada));
  });
}

Recordset DALNotaEntrada::SomaDescargaDeUmProdutoRs(std::int32_t Cd_Produto) {
  return routine("SomaDescargaDeUmProdutoRs", [&] {
    return detached(sql(R"(
        SELECT   Cd_ProdutoDescarga, Sum(Qt_UnidadeDescarga) As SomaDeQt_UnidadeDescarga
        FROM     Descarga
        WHERE    No_Entrada = {} And
                 Cd_ProdutoDescarga = {}
        GROUP BY Cd_ProdutoDescarga)",
                        ObVO->No_Entrada, Cd_Produto));
  });
}

Recordset DALNotaEntrada::DescargasRs() {
  return routine("DescargasRs", [&] {
    return detached(sql(R"(
        SELECT   Descarga.*, Produto.Nm_Produto
        FROM     Descarga
                 INNER JOIN Produto On Descarga.Cd_ProdutoDescarga = Produto.Cd_Produto
        WHERE    No_Entrada = {}
        ORDER BY No_Tanque)",
                        ObVO->No_Entrada));
  });
}

Recordset DALNotaEntrada::ContasAPagarRs() {
  return routine("ContasAPagarRs", [&] {
    return detached(sql(R"(
        SELECT   B.No_ContasAPagar, B.Id_DocumentoFornecedor, B.No_CodigoBarras, B.Qt_DiasProtesto,
                 B.Cd_BancoContaAPagar, B.Dt_Vencimento, B.Vl_MoraDiaria, B.Vl_Debito
        FROM     ContaAPagarDeNotaEntrada A
                 INNER JOIN ContaAPagar B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And
                                             A.No_ContasAPagar = B.No_ContasAPagar
        WHERE    A.Cd_PessoaUsuaria = {} And
                 A.Cd_Fornecedor = {} And
                 A.Cd_TipoNF = {} And
                 A.No_Nota = {})",
                        ObVO->Cd_PessoaUsuaria, ObVO->Cd_Fornecedor, ObVO->Cd_TipoNF, ObVO->No_Nota));
  });
}

std::string DALNotaEntrada::CFOPsItens() {
  return routine("CFOPsItens", [&] {
    std::string codes;
    Recordset rs = detached(sql(R"(
        SELECT   Cd_CfopItem As Cd_Cfop
        FROM     ItemNotaEntrada
        GROUP BY Cd_CfopItem)"));
    for (; !rs.EOF(); rs.MoveNext()) codes += rs["Cd_Cfop"].value_or(std::string()) + " ";
    return codes;
  });
}

}  // namespace posto
