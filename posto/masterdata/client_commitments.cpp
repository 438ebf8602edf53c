// What was promised to a customer: quantities against which goods are drawn.
#include "posto/core/sql.h"
#include "posto/masterdata/DALCliente.h"

namespace posto {

// A sum of units as the callers compare it: with four decimals, 0 where there is nothing to add.
Currency DALCliente::units(std::string statement) {
  return Currency(read(std::move(statement))["SomaDeQt_Unidade"].value_or(0.0));
}

Currency DALCliente::ConsultarQtEmpenhoPendenteProduto(std::int32_t Cd_Produto, std::string_view Id_Empenho) {
  return routine("ConsultarQtEmpenhoPendenteProduto", [&] {
    return units(sql(R"(
        SELECT Sum(A.Qt_Unidade) As SomaDeQt_Unidade
        FROM   ItemEmpenho A
               INNER JOIN Empenho B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And
                                       A.Cd_Cliente = B.Cd_Cliente And
                                       A.Id_Empenho = B.Id_Empenho
        WHERE  A.Cd_PessoaUsuaria = {} And
               A.Id_Empenho = '{}' And
               A.Cd_Cliente = {} And
               A.Cd_Produto = {} And
               B.No_Situacao = 1)",
                     company(), Id_Empenho, ObVO->Cd_Cliente, Cd_Produto));
  });
}

Currency DALCliente::ConsultarQtVendaPendenteProduto(std::int32_t Cd_Produto, std::string_view Id_Empenho) {
  return routine("ConsultarQtVendaPendenteProduto", [&] {
    return units(sql(R"(
        SELECT Sum(A.Qt_Unidade) As SomaDeQt_Unidade
        FROM   ItemCupomFiscal A
               INNER JOIN CupomFiscal B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And
                                           A.No_Impressora = B.No_Impressora And
                                           A.No_CupomFiscal = B.No_CupomFiscal And
                                           A.Dt_Emissao = B.Dt_Emissao
        WHERE  B.Cd_PessoaUsuaria = {} And
               B.Cd_Cliente = {} And
               B.Tp_Venda Between 10 And 19 And
               (B.Fl_Fechada = 'N' or B.Fl_Fechada = '-') And
               A.Cd_Produto = {} And
               B.Cd_ContaAReceber Is Null And
               B.Id_Empenho = '{}')",
                     company(), ObVO->Cd_Cliente, Cd_Produto, Id_Empenho));
  });
}

bool DALCliente::AlterarEmpenhosParaConcluido() {
  return routine("AlterarEmpenhosParaConcluido", [&] {
    execute(sql(R"(
        UPDATE Empenho
        SET    No_Situacao = 2
        WHERE  Cd_PessoaUsuaria = {} And
               Cd_Cliente = {} And
               No_Situacao = 1)",
                company(), ObVO->Cd_Cliente));
    return true;
  });
}

Recordset DALCliente::rsEmpenhoPendente() {
  return routine("rsEmpenhoPendente", [&] {
    return open(sql(R"(
        SELECT *
        FROM   Empenho
        WHERE  Cd_Cliente = {} And
               No_Situacao = 1)",
                    ObVO->Cd_Cliente));
  });
}

}  // namespace posto
