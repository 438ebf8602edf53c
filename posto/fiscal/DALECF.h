// Fiscal printers, the log of the documents that they issue, and their grand totals.
#pragma once

#include <string_view>

#include "posto/core/describe.h"
#include "posto/schema/fiscal.h"

namespace posto {

POSTO_DESCRIPTION(ECF, keys("Cd_PessoaUsuaria", "No_Impressora"))

// Standard operations (core/entity.h), and questions about a printer: company and printer are those of the value
// object. Record sets are detached.
class DALECF : public Entity<VOECF, kECF> {
 public:
  using Entity::Entity;

  // An item without text and with 0, then "ECF:001-SERIE:" and the serial number of each printer that has one, with
  // No_Impressora. Ds_Condicao: a WHERE clause or nothing. No printer leaves the control empty. Raises 0x80040201 for
  // a serial number that was not enciphered here. Errors 13, 438, 440 and 451 of the control go on at the next
  // statement.
  void CarregarComboBox(LateBound& Ob_ComboBox, std::string_view Ds_Condicao = {});

  // Nm_Produto, Cd_Bomba and SomaDeQt_Unidade: what was sold of each fuel through each nozzle on a business day,
  // deleted coupons and lines included.
  Recordset Rs_VolumeCombustiveisVendidos(Date Dt_Emissao);
  // The latest business day of its coupons; the zero date without one.
  Date DataUltimoMovimento();
  // What the printer reported for a day: its lines of tax, and its totals.
  Recordset Rs_Registro60Analitico(Date Dt_Movimento);
  Recordset Rs_Registro60Mestre(Date Dt_Movimento);
  // The approved models of these four. The texts stand as they are.
  Recordset rsIdentificacaoECF(std::string_view Ds_TipoECF, std::string_view Ds_MarcaECF, std::string_view Ds_ModeloECF,
                               std::string_view Ds_VersaoSoftwareBasicoECF);

  // Adds a document to the log, which stands in the database Vr5 whatever database is connected.
  //  Dt_Emissao: its day; Dt_Inicio, Dt_Fim: from when to when it was printed; No_COO and the three further counters:
  //  the printer's; Ds_TipoDocumento: two letters; Ic_Sangria, Ic_Suprimento: whether it is of a withdrawal, of a
  //  float; Vl_Documento in cents.
  void IncluirLogDocumentoEmitidoECF(Date Dt_Emissao, std::int32_t No_COO, std::int32_t No_ContadorGNF,
                                     std::int32_t No_ContadorGRG, std::int32_t No_ContadorCDC,
                                     std::string_view Ds_TipoDocumento, Date Dt_Inicio, Date Dt_Fim, bool Ic_Sangria,
                                     bool Ic_Suprimento, Currency Vl_Documento);

  // Nm_TipoRecebimento, Vl_RecebimentoFiscal and Vl_RecebimentoNaoFiscal by kind of receipt: payments of the printer's
  // coupons (of those that pay a sale), and the company's floats, of days up to and including Dt_Final. A receipt of
  // several coupons counts with each. Failures bear the name rsCuponsPorPeriodo.
  Recordset rsRecebimentosPorPeriodo(Date Dt_Inicial, Date Dt_Final);

  // Stores the printer's grand total, enciphered, as text with a decimal point ("987654.32"). A printer that is not
  // there is no failure.
  void AtualizarValorGT(Currency Vl_GTotal);
  // The highest grand total of its coupons, deleted ones included; 0 without one.
  Currency ObterGTotalDeCupons();

 private:
  std::string receipts_of_period(Date Dt_Inicial, Date Dt_Final) const;
  void drop_receipts_of_period();
  Recordset reported(std::string_view table, Date day);
};

}  // namespace posto
