// The user company: the station that runs the system, and what concerns it as a whole: the block of overdue credit, the
// stock consolidated at a day, and its reports.
#pragma once

#include "posto/core/enumerations.h"
#include "posto/masterdata/role.h"
#include "posto/schema/masterdata.h"

namespace posto {

inline constexpr Description kEmpresaUsuaria{
    .class_name = "DALEmpresaUsuaria", .table = "EmpresaUsuaria", .keys = {{"Cd_PessoaUsuaria"}}};

// A person in the role of user company (role.h). The parameters of the station are columns of its record; three of them
// are named here because other classes live by them:
//   Ic_BaixaAutomaticaPorTempo  fuellings that nobody has dealt with are posted by themselves once they are old enough
//   Qt_SegundosBaixaAutomatica  how old that is, in seconds
//   Qt_DiasCancelamentoCredito  days that a bill may be overdue before the customer's credit is cancelled
//
// Beside the record, every operation works for the company of the value object, or where it names none the settings'.
// A day is written in the settings' Ds_FormatoData and its time is left out; a period holds its first and last day
// whole. Record sets are detached and belong to the caller.
class DALEmpresaUsuaria : public Role<VOEmpresaUsuaria, kEmpresaUsuaria> {
 public:
  using Role::Role;

  // Whether a user company has the value object's tax number; then its key is put into the value object.
  bool CnpjOuCpfCadastradoComoEmpresaUsuaria() { return stands_in_role(); }
  // Alterar of the company's record alone, without the person.
  void AlterarEmpresaUsuaria(bool Ic_Salvando = false) { change_role(Ic_Salvando); }

  // --- credit

  // Raises the credit state of customers with overdue bills (not paid, with a balance), of all companies: blocks the
  // released ones whose bill has reached its block date (Fl_BloqAutCredito 1), and with each the bill's guarantor,
  // whatever the guarantor's own flags; then cancels those whose bill is overdue by the days that the settings' company
  // grants (Fl_CanCredito 1), without their guarantors. A state only rises; 5 (insolvent) stays. True.
  // Each customer is a statement of its own. A customer that was raised is not selected again, so a guarantor behind a
  // cut would be left out: a caller to whom that matters holds a transaction.
  bool BloqueiaAutomaticamenteCreditoClienteEmAtraso();
  // Works out the special prices of all customers of the company anew (special_prices.h). True.
  bool AtualizarPrecoCondicaoEspecial();

  // --- stock consolidated at a day: quantity, average cost and ICMS credit of each product of type 1

  // One road, with a cut in the ledger: fills the day with the opening figures of all products and gives the codes
  // (Cd_Produto) of those that have moved up to it; the caller then fixes each of them.
  Recordset rsProdutosComVendaNoCardexAtePeriodo(Date Dt_Referencia);
  // Fixes one product at its last movement up to the day with a code up to MaxCd_LancamentoCardex; without one, and
  // where the movement lacks a figure, the opening figures stay.
  void BuscaEGravaEstoqueConsolidado(Date Dt_Referencia, std::int32_t Cd_Produto, std::int32_t MaxCd_LancamentoCardex);

  // The other road: the day anew from the ledger as it is, each product at its last movement up to the day, its opening
  // figures where it has none, 0 where these are missing too. Two statements a product.
  // Ob_Andamento is called by name (services/memory_progress.h): Caption "Atualizando Kardex dd/mm/yyyy" and Show; at
  // each product Progresso.Value of Progresso.Max, Acao with the product's name, Percentual.Caption with the per cent
  // in whole numbers, and Refresh, in which the form may let the screen work. Failures of the form are raised.
  void PreparaEstoqueConsolidadoFechado(Date Dt_Referencia, LateBound& Ob_Andamento);

  // Takes the day's rows away: all of them, or those whose quantity is 0.
  void ApagaEstoqueConsolidado(Date Dt_Referencia);
  void ApagaEstoqueConsolidadoIgualZero(Date Dt_Referencia);
  // The day's rows: Cd_GrupoProduto, Nm_GrupoProduto, Cd_Produto, Nm_Produto, Vl_Preco (today's), Qt_Estoque,
  // Vl_CustoMedio, Vl_Total (quantity by cost, two decimals, halves away from zero). A product without a group is not
  // among them.
  Recordset rsEstoqueConsolidado(Date Dt_Referencia, orderByEstoqueConsolidado Order);

  // --- questions

  // Whether a nozzle's responsibility changes with the shift (No_TipoControleResponsabilidade 1), or with its release
  // (2).
  bool ExisteControleResponsabilidadePorTrocaTurno();
  bool ExisteControleResponsabilidadePorDesbloqueioDeBico();
  // The last day with a page in the fuel movement book; the zero date when there is none.
  Date ObterDataUltimoLmc();

  // --- receivables

  // Draws up ResumoContaAReceber anew for a period: for each person the company's bills whose extended due date
  // (Dt_VencPro) lies in it, counted and summed, with what of their balance is overdue today. Another run for the same
  // period replaces its rows.
  void GerarResumoContaAReceber(Date Dt_Inicial, Date Dt_Final);

  // --- reports on products, nozzles and stock

  // The nozzles by number: Cd_Bomba, Ds_Bomba (housing), Ds_Bico, De_EnderecoLogicoBico, Cd_Produto, Nm_Produto,
  // Vl_Preco, Cd_SisTubulacao, Nm_SisTubulacao, No_UltEncerrante, De_Status, Fl_BloquearBico.
  Recordset rsBombas();
  // The stock at the end of a day, by group and name; of products that have a stock: Nm_GrupoProduto, Cd_Produto,
  // Nm_Produto, Cd_Unidade, Qt_Estoque, Vl_CustoMedio (of the last movement up to the day, otherwise the opening
  // figures), Vl_Total. The statement may take 120 seconds; behind it CommandTimeout is 30, whatever it was before.
  Recordset rsEstoque(Date Dt_Movimento);
  // The present stock, by group and name, of products whose quantity is below, above or exactly 0, as the flags say:
  // Nm_GrupoProduto, Cd_Produto, Nm_Produto, Cd_Unidade, Qt_Estoque, Vl_CustoMedio, Vl_Preco, Vl_Total (at cost). With
  // all three flags false there are no rows.
  Recordset rsEstoqueAtual(bool Ic_IncluirEstoqueNegativo = true, bool Ic_IncluirEstoquePositivo = true,
                           bool Ic_IncluirEstoqueIgualZero = true);
  // Which products are refilled out of which, by name: Cd_ProdutoEntrada, Nm_ProdutoEntrada, Qt_UnidadeEntrada (units
  // that one transfer gives), Qt_EstoqueEntrada (present stock), Cd_ProdutoBaixa, Nm_ProdutoBaixa, Qt_UnidadeBaixa
  // (units that it takes), Qt_EstoqueBaixa, Ic_TransferenciaAutomatica.
  Recordset rsTransferenciaEntrada();
  // Sales of each day and product out of the ledger: Dt_Emissao, Cd_Produto, Nm_Produto, Qt_Vendida, Vl_Venda (each
  // movement at its unit value), Vl_Custo (each at its average cost), Vl_Margem (the difference), Pc_Margem (per cent
  // of the sale; 0 without one). Each movement is rounded to two decimals, then added.
  Recordset rsMargemContribuicaoPorProdutoEDia(Date Dt_Inicial, Date Dt_Final, bool Ic_SomenteCombustiveis);
  // Each nozzle by number: Cd_Bomba, De_EnderecoLogicoBico, Ds_Bico, Cd_Produto, Nm_Produto, No_EncerranteInicial (the
  // totaliser before the period), No_EncerranteFinal (behind it), Qt_Venda (litres sold), Qt_Afericao (litres that
  // calibrations gave and put back), Vl_Venda.
  Recordset rsEncerranteInicialFinalEVenda(Date Dt_Inicial, Date Dt_Final);
  // What to print on labels, by name, of the products with these codes ("120,121"), which are spliced as they are; an
  // empty text gives no rows: Cd_Produto, Nm_Produto, Cd_CodBarras, Cd_Unidade, Vl_Preco.
  Recordset rsEtiquetaProdutos(std::string_view Produtos);
  // The conciliations of a day, by moment and piping system: Dt_Conciliacao (with its time), Cd_SisTubulacao,
  // Nm_SisTubulacao, Cd_Produto, Nm_Produto, Qt_EstoqueSistema (book), Qt_EstoqueFisico (measured), Qt_Diferenca,
  // Ds_Observacao.
  Recordset rsConciliacaoEstoqueSisTubulacao(Date Dt_Conciliacao);

  // --- reports on money and documents

  // The kinds of receipt by name: Cd_TipoRecebimento, Nm_TipoRecebimento, No_TipoPagamento, No_TipoVencimento,
  // Fl_DisNaVenda, Fl_eCheque. They are shared by all companies.
  Recordset rsTipoRecebimento();
  // What sales brought in, by kind of receipt, out of the receipts of the period that pay a coupon:
  // Cd_TipoRecebimento, Nm_TipoRecebimento, Qt_Recebimentos, Vl_Recebimentos.
  Recordset rsRecebimentosDasVendas(Date Dt_Inicial, Date Dt_Final);
  // Payments of the period with the payables that each settles, by day and person: Dt_Pagamento, Cd_Pagamento,
  // Vl_Pagamento (the whole payment, at each of its payables), No_ContasAPagar, Id_DocumentoFornecedor, Dt_Vencimento,
  // Vl_Debito, Vl_SaldoDebito, Cd_Fornecedor, Nm_Pessoa. The second: those of payables that arose from purchase notes,
  // with the note, Cd_TipoNF and No_Nota.
  Recordset rsPagamentoDeContasNoPeriodo(Date Dt_Inicial, Date Dt_Final);
  Recordset rsPagamentoDebitosOriginadoDeNotaFiscalNoPeriodo(Date Dt_Inicial, Date Dt_Final);
  // Payables with a balance that fall due on or before the day, the oldest first: Dt_Vencimento, No_ContasAPagar,
  // Id_DocumentoFornecedor, Cd_Fornecedor, Nm_Pessoa, Vl_Debito, Vl_Pagamentos, Vl_SaldoDebito, Vl_MoraDiaria.
  Recordset rsContaAPagarEmAbertoVencimentoMenorIgualA(Date Dt_Vencimento);
  // The coupons that a receivable bills, the oldest first: Dt_Emissao, Hr_Emissao, No_Impressora, No_CupomFiscal,
  // Cd_Veiculo, No_Km, No_Requisicao, Vl_Total, Vl_DescontoCF, Vl_TotalLiquido. Deleted coupons are not among them.
  Recordset rsCuponsDeContaAReceber(std::int32_t Cd_ContaAReceber);
  // The fiscal printers by number: No_Impressora, No_Serie, Dt_UltimaReducaoZ (the last day with a Z reduction; null
  // when there is none).
  Recordset rsECFsCadastrados();

 private:
  std::string day(Date date) const;  // as a literal
  // A period or a day as an operand of Between: over columns that hold a day, or a moment.
  std::string days(Date first, Date last) const;
  std::string moments(Date first, Date last) const;
  bool has_nozzles_under(std::string_view operation, int control);
  Recordset overdue(std::string_view dates, std::string_view customer);
  void raise_credit_state(Recordset customers, int state, Names persons);
  void consolidate(Recordset& product, const std::string& reference);
  Recordset payments(Date first, Date last, std::string_view note_columns, std::string_view note_join,
                     std::string_view last_link);
};

}  // namespace posto
