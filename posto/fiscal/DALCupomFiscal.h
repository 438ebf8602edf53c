// Fiscal coupons: the head of each, and the questions about its lines, receipts and fuellings.
#pragma once

#include "posto/core/enumerations.h"
#include "posto/fiscal/live_entity.h"
#include "posto/schema/fiscal.h"

namespace posto {

inline constexpr Description kCupomFiscal{
    .class_name = "DALCupomFiscal",
    .table = "CupomFiscal",
    .keys = {{"Cd_PessoaUsuaria", "No_Impressora", "No_CupomFiscal", "Dt_Emissao"}}};

// A coupon changes no stock: its lines bear the codes of ledger movements and fuellings that the caller makes.
//
// Standard operations (core/entity.h) with the differences told at each. The key is company, printer, number and day;
// an operation that needs it raises 0x80040201 where one of the four is missing. Consultar finds live coupons only.
// Record sets are detached, and of live coupons and lines only where that is not denied.
class DALCupomFiscal : public LiveEntity<VOCupomFiscal, kCupomFiscal> {
 public:
  using LiveEntity::LiveEntity;

  // True while the lines that ConsultarItens keeps are good. Incluir, Alterar and Excluir clear it; a caller that needs
  // the lines read again clears it too.
  bool Ic_adoRsItensAtualizado = false;

  // No_SequencialNota, although the key is not numbered by the database.
  std::vector<std::string> nomeCamposSequencial() const { return {"No_SequencialNota"}; }

  // An empty Id_Empenho becomes null. Both move the coupon's receipts to its cash shift. Incluir writes neither
  // Dt_Movimento nor Vl_DescontoCF, which is 0 then; true.
  void Alterar(bool Ic_Salvando = false);
  bool Incluir();
  // Marks the coupon as deleted; its lines and receipts stay as they are.
  void Excluir();

  // Reads the last coupon of the printer's day: the one with the greatest Hr_Emissao. Raises 0x80040202 with
  // "(CupomFiscal)" when there is none.
  void ConsultarUltimo();
  // Deletes the receipts of the coupon and their links, one by one and for good, whether the coupon lives or not. True.
  bool ExcluirRecebimentos();

  // The coupon's lines by No_Item, with Nm_Produto and No_Tipo of their product: all, those of goods, those of
  // services. While Ic_adoRsItensAtualizado holds and the rows are open, the rows of the last reading come back, at the
  // first, whatever kind was asked for then and now. The second argument is accepted and not used. The rows are this
  // object's.
  Recordset& ConsultarItens(TipoConsultaItensEnum Tp_Consulta = TodosItens, bool Ic_ObrigatorioRefreshBd = false);
  Recordset& Rs_ItensTodos();
  Recordset& Rs_ItensProdutos();
  Recordset& Rs_ItensServicos();
  Recordset& adorsItens();  // all; a failure reports itself as ConsultarItens

  // The coupon's receipts with Nm_TipoRecebimento; a failure reports itself as ConsultarRecebimentos.
  Recordset adorsRecebimentos();
  // The sum of Vl_Recebimento of the coupon's receipts.
  Currency ConsultarTotalRecebimentos();

  // The company's coupons of a printer from a business day on, by number, finished or not.
  Recordset Rs_CuponsNaoConcluidos(Date Dt_UltimoMovimento, std::int32_t No_Impressora);
  // The odometer at the last sale of fuel to Cd_Veiculo until Dt_Emissao, among the coupons of any printer whose number
  // is below No_CupomFiscal; 0 when there is none. The plate stands in the statement as it is.
  std::int32_t No_UltimoKm();
  // The fuel of the coupons of that number and day, of all printers.
  float Qt_Combustivel();
  // Writes kilometres per litre, with three decimals, to all lines of the coupon.
  void GravarConsumoCombustivel(float Qt_KmPorLitro);

  // The lines of ledger movements, whose codes are listed with commas: No_Impressora, Dt_Emissao, No_CupomFiscal,
  // Cd_Produto, Nm_Produto, Qt_Unidade, Vl_UnitVenda and Vl_Total, by day and number. The list stands in the statement
  // as it is.
  Recordset ItensPeloKardexRs(std::string_view inCd_LancamentoCardex);
  // The same, summed by product and price. Selects a column that is not grouped, which databases refuse.
  Recordset ItensPeloKardexSomadosPorProdutoRs(std::string_view inCd_LancamentoCardex);
  // Lines, smallest amount first, of settled sales (Tp_Venda 21) without an invoice. An argument that is 0 is not asked
  // for; days and quantities count in pairs. Qt_Recebimento is the number of the coupon's lines, deleted ones included.
  Recordset CuponsSemEmissaoDeNfRs(std::int32_t Cd_PessoaUsuaria, std::int32_t Cd_Produto, Date Dt_EmissaoInicial,
                                   Date Dt_EmissaoFinal, Currency Qt_UnidadeInicial, Currency Qt_UnidadeFinal,
                                   Currency Vl_UnitVenda, std::int32_t Cd_Cliente, std::int32_t Cd_TipoRecebimento,
                                   std::int32_t Qt_Recebimento);
  // The lines of fuellings, whose codes are listed with commas, summed by product, rates and price.
  Recordset ObterItensPeloCodigoAbastecimento(std::string_view InCd_Abastecimento);
  // The keys of the coupons with such a line, each once.
  Recordset ObterCuponsFiscaisPeloCodigoAbastecimento(std::string_view InCd_Abastecimento);

  // Marks the coupon as billed: FL_Fechada "S" with the receivable, the dates and the employee.
  void AlterarParaFaturado(std::int32_t Cd_ContaAReceber, Date Dt_EfeFechamento,
                           std::int32_t Cd_FuncionarioEfeFechamento, Date Dt_Vencimento, Date Dt_Fechamento);
  // The totalisers of the coupon's fuellings: Ds_Bomba, Ds_Bico, Cd_Bomba, No_EncerranteAbertura,
  // No_EncerranteFechamento.
  Recordset rsAbastecimentos();

 private:
  std::string instrucaoInsert();
  void corrigirCaixaRecebimentoDiferenteCaixaCupom();
  void require_key();
  std::string day(Date date) const;
  std::string key_of(std::string_view alias, std::string_view conjunction = "And") const;

  Recordset items_;
};

}  // namespace posto
