// The user company's reports on money and documents.
#include "posto/core/sql.h"
#include "posto/masterdata/DALEmpresaUsuaria.h"

namespace posto {

Recordset DALEmpresaUsuaria::rsTipoRecebimento() {
  return routine("rsTipoRecebimento", [&] {
    return detached(sql(R"(
        SELECT   Cd_TipoRecebimento, Nm_TipoRecebimento, No_TipoPagamento, No_TipoVencimento, Fl_DisNaVenda, Fl_eCheque
        FROM     TipoRecebimento
        ORDER BY Nm_TipoRecebimento)"));
  });
}

Recordset DALEmpresaUsuaria::rsRecebimentosDasVendas(Date Dt_Inicial, Date Dt_Final) {
  return routine("rsRecebimentosDasVendas", [&] {
    return detached(sql(R"(
        SELECT   A.Cd_TipoRecebimento, B.Nm_TipoRecebimento, Count(*) As Qt_Recebimentos,
                 Sum(A.Vl_Recebimento) As Vl_Recebimentos
        FROM     Recebimento A
                 LEFT JOIN TipoRecebimento B On A.Cd_TipoRecebimento = B.Cd_TipoRecebimento
        WHERE    A.Cd_PessoaUsuaria = {} And
                 A.Dt_Lancamento Between {} And
                 A.Tp_DocDebito = 20 And
                 A.Ic_Suprimento = 0
        GROUP BY A.Cd_TipoRecebimento, B.Nm_TipoRecebimento
        ORDER BY B.Nm_TipoRecebimento)",
                        company(), moments(Dt_Inicial, Dt_Final)));
  });
}

// Payments of a period with their payables; `last_link` is the column that tells the wanted ones. The outer joins keep
// the order of reading: from the few payments of the period to what they settle, not through all links ever made.
Recordset DALEmpresaUsuaria::payments(Date first, Date last, std::string_view note_columns, std::string_view note_join,
                                      std::string_view last_link) {
  return detached(sql(R"(
      SELECT   A.Dt_Pagamento, A.Cd_Pagamento, A.Vl_Pagamento, C.No_ContasAPagar, C.Id_DocumentoFornecedor,
               C.Dt_Vencimento, C.Vl_Debito, C.Vl_SaldoDebito, C.Cd_Fornecedor, E.Nm_Pessoa{}
      FROM     Pagamento A
               LEFT JOIN PagamentoDeConta B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And
                                               A.Cd_Pagamento = B.Cd_Pagamento
               LEFT JOIN ContaAPagar C On B.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And
                                          B.No_ContasAPagar = C.No_ContasAPagar{}
               LEFT JOIN Pessoa E On C.Cd_Fornecedor = E.Cd_Pessoa
      WHERE    A.Cd_PessoaUsuaria = {} And
               A.Dt_Pagamento Between {} And
               (Not {} Is Null)
      ORDER BY A.Dt_Pagamento, E.Nm_Pessoa, A.Cd_Pagamento, C.No_ContasAPagar)",
                      note_columns, note_join, company(), moments(first, last), last_link));
}

Recordset DALEmpresaUsuaria::rsPagamentoDeContasNoPeriodo(Date Dt_Inicial, Date Dt_Final) {
  return routine("rsPagamentoDeContasNoPeriodo",
                 [&] { return payments(Dt_Inicial, Dt_Final, "", "", "C.No_ContasAPagar"); });
}

Recordset DALEmpresaUsuaria::rsPagamentoDebitosOriginadoDeNotaFiscalNoPeriodo(Date Dt_Inicial, Date Dt_Final) {
  return routine("rsPagamentoDebitosOriginadoDeNotaFiscalNoPeriodo", [&] {
    return payments(Dt_Inicial, Dt_Final, ", D.Cd_TipoNF, D.No_Nota",
                    "\r         LEFT JOIN ContaAPagarDeNotaEntrada D On C.Cd_PessoaUsuaria = D.Cd_PessoaUsuaria And"
                    "\r                                                 C.No_ContasAPagar = D.No_ContasAPagar",
                    "D.No_Nota");
  });
}

Recordset DALEmpresaUsuaria::rsContaAPagarEmAbertoVencimentoMenorIgualA(Date Dt_Vencimento) {
  return routine("rsContaAPagarEmAbertoVencimentoMenorIgualA", [&] {
    return detached(sql(R"(
        SELECT   A.Dt_Vencimento, A.No_ContasAPagar, A.Id_DocumentoFornecedor, A.Cd_Fornecedor, B.Nm_Pessoa,
                 A.Vl_Debito, A.Vl_Pagamentos, A.Vl_SaldoDebito, A.Vl_MoraDiaria
        FROM     ContaAPagar A
                 LEFT JOIN Pessoa B On A.Cd_Fornecedor = B.Cd_Pessoa
        WHERE    A.Cd_PessoaUsuaria = {} And
                 A.Dt_Vencimento <= {} And
                 A.Vl_SaldoDebito > 0
        ORDER BY A.Dt_Vencimento, B.Nm_Pessoa, A.No_ContasAPagar)",
                        company(), day(Dt_Vencimento)));
  });
}

Recordset DALEmpresaUsuaria::rsCuponsDeContaAReceber(std::int32_t Cd_ContaAReceber) {
  return routine("rsCuponsDeContaAReceber", [&] {
    return detached(sql(R"(
        SELECT   Dt_Emissao, Hr_Emissao, No_Impressora, No_CupomFiscal, Cd_Veiculo, No_Km, No_Requisicao, Vl_Total,
                 Vl_DescontoCF, Vl_TotalLiquido
        FROM     CupomFiscal
        WHERE    Cd_PessoaUsuaria = {} And
                 Cd_ContaAReceber = {} And
                 Ic_Excluido = 0
        ORDER BY Dt_Emissao, Hr_Emissao, No_Impressora, No_CupomFiscal)",
                        company(), Cd_ContaAReceber));
  });
}

Recordset DALEmpresaUsuaria::rsECFsCadastrados() {
  return routine("rsECFsCadastrados", [&] {
    return detached(sql(R"(
        SELECT   A.No_Impressora, A.No_Serie,
                 (SELECT Max(Dt_Movimento)
                  FROM   ReducaoZ
                  WHERE  Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And
                         No_Impressora = A.No_Impressora) As Dt_UltimaReducaoZ
        FROM     ECF A
        WHERE    A.Cd_PessoaUsuaria = {}
        ORDER BY A.No_Impressora)",
                        company()));
  });
}

}  // namespace posto
