// What belongs to the coupons of a cash shift, read from another database.
#include "posto/core/sql.h"
#include "posto/treasury/DALCaixa.h"

namespace posto {
namespace {

std::string items() {
  return sql(R"(
      INNER JOIN ItemCupomFiscal On CupomFiscal.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria
      And CupomFiscal.No_Impressora = ItemCupomFiscal.No_Impressora
      And CupomFiscal.No_CupomFiscal = ItemCupomFiscal.No_CupomFiscal
      And CupomFiscal.Dt_Emissao = ItemCupomFiscal.Dt_Emissao
      )");
}

std::string receipt_links() {
  return sql(R"(
      INNER JOIN RecebimentoCupom On CupomFiscal.Cd_PessoaUsuaria = RecebimentoCupom.Cd_PessoaUsuaria
      And CupomFiscal.No_Impressora = RecebimentoCupom.No_Impressora
      And CupomFiscal.No_CupomFiscal = RecebimentoCupom.No_CupomFiscal
      And CupomFiscal.Dt_Emissao = RecebimentoCupom.Dt_Emissao
      )");
}

}  // namespace

Recordset DALCaixa::rows_elsewhere(std::string_view operation, std::string_view strConexao, std::string_view selected,
                                   std::string_view joins) {
  return routine(operation, [&] {
    auto elsewhere = Connection::create();
    elsewhere->ConnectionTimeout = connection().ConnectionTimeout;
    elsewhere->CommandTimeout = connection().CommandTimeout;
    elsewhere->Open(strConexao);
    Recordset rows;
    rows.ActiveConnection(elsewhere);
    rows.Source = sql(R"(
        SELECT {}
        FROM CupomFiscal
        {}WHERE CupomFiscal.Cd_PessoaUsuaria = {}
        And CupomFiscal.Cd_Caixa = {})",
                      selected, joins, ObVO->Cd_PessoaUsuaria, ObVO->Cd_Caixa);
    rows.CursorType = adOpenStatic;
    rows.CursorLocation = adUseClient;
    rows.Open();
    rows.ActiveConnection(nullptr);
    return rows;
  });
}

Recordset DALCaixa::rsAbastecimento(std::string_view strConexao) {
  return rows_elsewhere("rsAbastecimento", strConexao, "Abastecimento.*", items() + sql(R"(
      INNER JOIN Abastecimento On ItemCupomFiscal.Cd_PessoaUsuaria = Abastecimento.Cd_PessoaUsuaria
      And ItemCupomFiscal.Cd_Abastecimento = Abastecimento.Cd_Abastecimento
      )"));
}

Recordset DALCaixa::rsPessoa(std::string_view strConexao) {
  return rows_elsewhere("rsPessoa", strConexao, "Pessoa.*", sql(R"(
      INNER JOIN Pessoa On CupomFiscal.Cd_Cliente = Pessoa.Cd_Pessoa
      )"));
}

Recordset DALCaixa::rsCliente(std::string_view strConexao) {
  return rows_elsewhere("rsCliente", strConexao, "Cliente.*, Pessoa.*", sql(R"(
      INNER JOIN Cliente On CupomFiscal.Cd_Cliente = Cliente.Cd_Cliente
      INNER JOIN Pessoa On Pessoa.Cd_Pessoa = Cliente.Cd_Cliente
      )"));
}

Recordset DALCaixa::rsVeiculo(std::string_view strConexao) {
  return rows_elsewhere("rsVeiculo", strConexao, "Veiculo.*", sql(R"(
      INNER JOIN Veiculo On CupomFiscal.Cd_Veiculo = Veiculo.Cd_Veiculo
      )"));
}

Recordset DALCaixa::rsCardex(std::string_view strConexao) {
  return rows_elsewhere("rsCardex", strConexao, "Cardex.*", items() + sql(R"(
      INNER JOIN Cardex On ItemCupomFiscal.Cd_PessoaUsuaria = Cardex.Cd_PessoaUsuaria
      And ItemCupomFiscal.Cd_LancamentoCardex = Cardex.Cd_LancamentoCardex
      )"));
}

Recordset DALCaixa::rsCupomFiscal(std::string_view strConexao) {
  return rows_elsewhere("rsCupomFiscal", strConexao, "CupomFiscal.*", {});
}

Recordset DALCaixa::rsItemCupomFiscal(std::string_view strConexao) {
  return rows_elsewhere("rsItemCupomFiscal", strConexao, "ItemCupomFiscal.*", items());
}

Recordset DALCaixa::rsRecebimento(std::string_view strConexao) {
  return rows_elsewhere("rsRecebimento", strConexao, "Recebimento.*", receipt_links() + sql(R"(
      INNER JOIN Recebimento On RecebimentoCupom.Cd_PessoaUsuaria = Recebimento.Cd_PessoaUsuaria
      And RecebimentoCupom.No_Recebimento = Recebimento.No_Recebimento
      )"));
}

Recordset DALCaixa::rsRecebimentoCupom(std::string_view strConexao) {
  return rows_elsewhere("rsRecebimentoCupom", strConexao, "RecebimentoCupom.*", receipt_links());
}

}  // namespace posto
