#include "posto/stock/DALProduto.h"

#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"

namespace posto {
VOProduto& DALProduto::Consultar(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro, bool Ic_ConsultaUltimoCusto) {
  consult(Ic_RestaurarDefaulSeNaoEcontrarRegistro, [&] {
    if (Ic_ConsultaUltimoCusto) ObVO->Vl_UltimoCusto = UltimoCusto();
  });
  return *ObVO;
}

double DALProduto::UltimoCusto() {
  return routine("UltimoCusto", [&] {
    Recordset rs = read(sql(R"(
        SELECT   TOP 1 Vl_Unitario
        FROM     Cardex
        WHERE    Cd_PessoaUsuaria = {} And
                 Cd_Produto = {} And
                 No_Tipo = 10
        ORDER BY Dt_Emissao desc)",
                            ObVO->Cd_PessoaUsuaria, ObVO->Cd_Produto));
    return rs.EOF() ? 0.0 : rs["Vl_Unitario"].value_or(0.0);
  });
}

void DALProduto::Alterar(bool Ic_Salvando) {
  alter(
      Ic_Salvando, [&](Recordset& record) { fill(record); },
      [&] {
        execute(sql(R"(
            Update Bomba
            Set    Fl_AlterarPrecoAutomacao = -1
            WHERE  Cd_Produto = {})",
                    ObVO->Cd_Produto));
      });
}

bool DALProduto::UltimoEstoqueDeKardexAtualizado(Date Dt_InicialDeAtualizacao, float& Qt_Estoque, float& Vl_CustoMedio,
                                                 float& Vl_CredIcmsMedio) {
  return routine("UltimoEstoqueDeKardexAtualizado", [&] {
    auto take = [&](Recordset& row) {
      float* const figures[] = {&Qt_Estoque, &Vl_CustoMedio, &Vl_CredIcmsMedio};
      for (std::size_t i = 0; i < std::size(figures); ++i) *figures[i] = static_cast<float>(row[i].value_or(0.0));
    };
    Recordset opening = read(sql(R"(
        SELECT   Produto.Qt_EstoqueInicial, Produto.Vl_CustoMedioInicial, Produto.Vl_CredIcmsMedioInicial
        FROM     Produto
        WHERE    Produto.Cd_PessoaUsuaria = {} And
                 Produto.Cd_Produto = {})",
                                 ObVO->Cd_PessoaUsuaria, ObVO->Cd_Produto));
    if (opening.EOF()) raise(erro::kMissingKey);
    take(opening);
    Recordset last =
        read(sql(R"(
        SELECT   Top 1 Cardex.Qt_Estoque, Cardex.Vl_CustoMedio, Cardex.Vl_CredIcmsMedio
        FROM     Cardex
        WHERE    Cardex.Cd_PessoaUsuaria = {} And
                 Cardex.Cd_Produto = {} And
                 Cardex.Dt_Emissao < {}
        ORDER BY Cardex.Cd_PessoaUsuaria, Cardex.Cd_Produto, Cardex.Dt_Emissao Desc, Cardex.Cd_LancamentoCardex Desc)",
                 ObVO->Cd_PessoaUsuaria, ObVO->Cd_Produto, DateSemHoraToSql(Dt_InicialDeAtualizacao, *ObVOSistema)));
    if (!last.EOF()) take(last);
    return true;
  });
}

Recordset DALProduto::rsEstoque(Date Dt_Movimento) {
  return routine("rsEstoque", [&] {
    const std::string position = sql(R"(
        (SELECT   TOP 1 Qt_Estoque
                  FROM     Cardex
                  WHERE    Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And
                           Cd_Produto =  A.Cd_Produto And
                           Dt_Emissao <= {}
                  ORDER BY Cardex.Cd_PessoaUsuaria, Cardex.Dt_Emissao Desc, Cardex.Cd_LancamentoCardex Desc))",
                                     DateSemHoraToSql(Dt_Movimento, *ObVOSistema));
    return detached(sql(R"(
        SELECT   A.Cd_PessoaUsuaria, B.Nm_GrupoProduto, A.Cd_Produto, A.Nm_Produto,
                 {} As Qt_Estoque
        FROM     Produto A
                 INNER JOIN GrupoProduto B On A.Cd_GrupoProduto = B.Cd_GrupoProduto
        WHERE    A.Cd_PessoaUsuaria = {} And
                 Not {} Is Null
        ORDER BY B.Nm_GrupoProduto, A.Nm_Produto)",
                        position, ObVO->Cd_PessoaUsuaria, position));
  });
}

Recordset DALProduto::ledger(Date first, Date last, std::string_view condition) {
  return detached(sql(R"(
      SELECT *
      FROM   Cardex
      WHERE  Cardex.Cd_PessoaUsuaria = {} And
             Cardex.Cd_Produto = {} And
             Cardex.Dt_Emissao Between {} And {}{})",
                      ObVO->Cd_PessoaUsuaria, ObVO->Cd_Produto, DateSemHoraToSql(first, *ObVOSistema),
                      DateSemHoraToSql(last, *ObVOSistema), condition));
}

Recordset DALProduto::rsKardex(Date Dt_Inicial, Date Dt_Final) {
  return routine("rsKardex", [&] { return ledger(Dt_Inicial, Dt_Final, ""); });
}

Recordset DALProduto::rsKardexNegativo(Date Dt_Inicial, Date Dt_Final) {
  return routine("rsKardexNegativo", [&] { return ledger(Dt_Inicial, Dt_Final, " And\r       Qt_Estoque < 0"); });
}

Recordset DALProduto::rsSomaDeAbastecimentoDoDiaBaixadoEmOutraData(Date Dt_Termino) {
  return routine("rsSomaDeAbastecimentoDoDiaBaixadoEmOutraData", [&] {
    const std::string day = format_date(Dt_Termino, ObVOSistema->Ds_FormatoData);
    return detached(sql(R"(
        SELECT   Sum(Abastecimento.Qt_Litros) As SomaDeQt_Litros
        FROM     Abastecimento
                 INNER JOIN Bomba           On Abastecimento.Cd_PessoaUsuaria = Bomba.Cd_PessoaUsuaria And
                                               Abastecimento.De_EnderecoLogicoBico = Bomba.De_EnderecoLogicoBico
                 LEFT JOIN  ItemCupomFiscal On Abastecimento.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria And
                                               Abastecimento.Cd_Abastecimento = ItemCupomFiscal.Cd_Abastecimento
                 INNER JOIN CupomFiscal     On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria And
                                               ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora And
                                               ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal And
                                               ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
        WHERE    Abastecimento.Cd_PessoaUsuaria = {} And
                 Abastecimento.Dt_Termino Between '{} 00:00:00' And '{} 23:59:59' And
                 Bomba.Cd_Produto = {}
                 And (CupomFiscal.Dt_Emissao <> '{}' Or CupomFiscal.Dt_Emissao = Null);)",
                        ObVO->Cd_PessoaUsuaria, day, day, ObVO->Cd_Produto, day));
  });
}

Recordset DALProduto::rsSomaDeAbastecimentoDeOutraDataBaixadoNoDia(Date Dt_Termino) {
  return routine("rsMargemContribuicao", [&] {
    const std::string day = format_date(Dt_Termino, ObVOSistema->Ds_FormatoData);
    return detached(sql(R"(
        SELECT   Sum(Abastecimento.Qt_Litros) As SomaDeQt_Litros
        FROM     ItemCupomFiscal
                 INNER JOIN CupomFiscal   On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria And
                                             ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora And
                                             ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal And
                                             ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
                 INNER JOIN Abastecimento On ItemCupomFiscal.Cd_PessoaUsuaria = Abastecimento.Cd_PessoaUsuaria And
                                             ItemCupomFiscal.Cd_Abastecimento = Abastecimento.Cd_Abastecimento
        WHERE    ItemCupomFiscal.Cd_PessoaUsuaria = {} And
                 CupomFiscal.Dt_Emissao = '{}'
                 And (Not Abastecimento.Dt_Termino Between '{} 00:00:00' And '{} 23:59:59') And
                 ItemCupomFiscal.Cd_Produto = {}
                 And Abastecimento.Ic_Baixado <> 0;)",
                        ObVO->Cd_PessoaUsuaria, day, day, day, ObVO->Cd_Produto));
  });
}

}  // namespace posto
