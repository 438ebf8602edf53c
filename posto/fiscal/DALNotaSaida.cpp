#include "posto/fiscal/DALNotaSaida.h"

#include "posto/core/sql.h"

namespace posto {
namespace {

constexpr std::string_view kNumber[] = {"Cd_PessoaUsuaria", "Cd_TipoNF", "No_Nota"};
constexpr std::string_view kReceivable[] = {"Cd_PessoaUsuaria", "Cd_ContaAReceber"};

std::string_view invoice_lines_of(TipoConsultaItensEnum which) {
  switch (which) {
    case SomenteProdutos:
      return "AND B.No_Tipo = 1";
    case SomenteServicos:
      return "AND B.No_Tipo = 2";
    default:
      return "";
  }
}

}  // namespace

void DALNotaSaida::Excluir(CdTipoExclusao No_TipoExclusao) {
  routine("Excluir", [&] {
    if (No_TipoExclusao == CdTipoExclusaoLogica) ExcluirLogica();
    if (No_TipoExclusao == CdTipoExclusaoFisica) ExcluirFisica();
  });
}

Names DALNotaSaida::found_for_removal() {
  if (has_values(kNumber)) return kNumber;
  if (!has_values(kReceivable)) raise_missing(true);
  Consultar();
  return kReceivable;
}

void DALNotaSaida::remove_lines() {
  execute(sql(R"(
      DELETE
      FROM   ItemNotaSaida
      WHERE  Cd_PessoaUsuaria = {} And
             Cd_TipoNF = {} And
             No_Nota = {})",
              ObVO->Cd_PessoaUsuaria, ObVO->Cd_TipoNF, ObVO->No_Nota));
}

void DALNotaSaida::ExcluirLogica() {
  routine("ExcluirLogica", [&] {
    if (found_for_removal().size() == std::size(kNumber)) {
      execute(sql(R"(
          UPDATE NotaSaida
          SET    Ic_Cancelada = 1,
                 Cd_ContaAReceber = Null
          WHERE  Cd_PessoaUsuaria = {} And
                 Cd_TipoNF = {} And
                 No_Nota = {})",
                  ObVO->Cd_PessoaUsuaria, ObVO->Cd_TipoNF, ObVO->No_Nota));
    } else {
      execute(sql(R"(
          UPDATE NotaSaida
          SET    Ic_Cancelada = 1,
                 Cd_ContaAReceber = Null
          WHERE  Cd_PessoaUsuaria = {} And
                 Cd_ContaAReceber = {})",
                  ObVO->Cd_PessoaUsuaria, ObVO->Cd_ContaAReceber));
    }
    remove_lines();
  });
}

void DALNotaSaida::ExcluirFisica() {
  routine("ExcluirFisica", [&] {
    execute(sqlDelete(*ObVOSistema, "NotaSaida", vo(), found_for_removal()));
    remove_lines();
  });
}

Recordset DALNotaSaida::ConsultarItens(TipoConsultaItensEnum Tp_Consulta) {
  return routine("ConsultarItens", [&] {
    return detached(sql(R"(
        SELECT   A.*, B.No_Tipo, B.Nm_Produto, C.Ic_DestacarIcmsST
        FROM     ItemNotaSaida A
                 LEFT JOIN Produto B On A.Cd_Produto = B.Cd_Produto
                 INNER JOIN NaturezaProduto C On B.Cd_Natureza = C.Cd_Natureza
        WHERE    A.Cd_PessoaUsuaria = {} AND
                 A.Cd_TipoNF = {} AND
                 A.No_Nota = {}
                 {}
        ORDER BY A.No_Item)",
                        ObVO->Cd_PessoaUsuaria, ObVO->Cd_TipoNF, ObVO->No_Nota, invoice_lines_of(Tp_Consulta)));
  });
}

Recordset DALNotaSaida::ConsultarCupons() {
  return routine("ConsultarCupons", [&] {
    return detached(sql(R"(
        SELECT   CupomFiscal.No_Impressora, CupomFiscal.No_CupomFiscal
        FROM     ContaAReceber
                 INNER JOIN CupomFiscal On ContaAReceber.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria And
                                           ContaAReceber.Cd_ContaAReceber = CupomFiscal.Cd_ContaAReceber
        WHERE    ContaAReceber.Cd_PessoaUsuaria = {} And
                 ContaAReceber.Cd_ContaAReceber = {}
        UNION ALL
        SELECT   CupomFiscal.No_Impressora, CupomFiscal.No_CupomFiscal
        FROM     CupomFiscal
        WHERE    CupomFiscal.Cd_PessoaUsuaria = {} And
                 CupomFiscal.No_NF = {}
        ORDER BY 2)",
                        ObVO->Cd_PessoaUsuaria, ObVO->Cd_ContaAReceber, ObVO->Cd_PessoaUsuaria, ObVO->No_Nota));
  });
}

Recordset DALNotaSaida::ConsultarCFOPs() {
  return routine("ConsultarCFOPs", [&] {
    static constexpr std::string_view kCfop[] = {"Cd_CfopItem"};
    return detached(sqlSelect(*ObVOSistema, "ItemNotaSaida", vo(), kCfop, kNumber, kCfop));
  });
}

}  // namespace posto
