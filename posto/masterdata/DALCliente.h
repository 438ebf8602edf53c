// Customers: persons to whom the user company sells, on credit too; with what they owe and what was promised to them.
#pragma once

#include <cstdint>
#include <string_view>

#include "posto/core/describe.h"
#include "posto/masterdata/role.h"
#include "posto/schema/masterdata.h"

namespace posto {

POSTO_DESCRIPTION(Cliente, keys("Cd_PessoaUsuaria", "Cd_Cliente"))

// The pattern of role.h, and the customer's figures. "Today" is the day of the station's clock. Statements take the
// user company from the value object, or where that holds none from the settings.
class DALCliente : public Role<VOCliente, kCliente> {
 public:
  using Role::Role;

  // Consultar of the role; then VerificarAcumulos where Ic_CalculadoAcumuloNaConsulta is set.
  VOCliente& Consultar(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro = false);
  // SalvarCliente.
  void Salvar();
  // Alterar, and Incluir where that raises 0x80040201 or 0x80040202.
  void SalvarCliente();
  // Whether a customer of the user company has the tax number; then its key is put into the value object.
  bool CnpjOuCpfCadastradoComoCliente() { return stands_in_role(); }

  // --- credit

  bool Ic_CalculadoAcumuloNaConsulta = false;
  // Sums what the customer may still cost the station: Vl_AcumuloChequeEmitente (own cheques received in the last five
  // days), Vl_AcumuloChequeTerceiro (cheques of others that the customer passed on), both found by tax number in all
  // user companies and 0 without one; Vl_AcumuloAFaturar (credit sales that are not billed), Vl_AcumuloFaturado (open
  // bills).
  void VerificarAcumulos();
  // The balances of open bills that were due before today.
  Currency ValorDasContasVencida();
  // Moves the day from which bills block the customer's credit to Dt_Prazo, where it lies earlier; in all user
  // companies. True. Raises 0x80040660 for a day before today.
  bool concederPrazo(Date Dt_Prazo);
  // Writes into the bills that are not paid, of the customer and of those for whom the customer stands guarantor, of
  // all user companies: Qt_DiasAtraso, the whole days from the due date to Dt_Atualizacao, below zero before it;
  // Vl_ComJuros, the balance with simple interest of Tx_Mora per cent in thirty days, in cents with halves to the even
  // one; Ic_Avalista, whether the customer is the guarantor, where the bill has one. Bills with Fl_LiberarXdiasJuros
  // bear no interest on Qt_DiasSemCobrarJuros days. A bill without a due date has no delay (null) and no interest.
  // True.
  bool atualizarDebito(Date Dt_Atualizacao, std::int32_t Qt_DiasSemCobrarJuros);
  // Computes the customer's special prices anew (special_prices.h). True.
  bool AtualizarPrecoCondicaoEspecial();

  // --- commitments

  // Units of a product in the customer's pending commitment; 0 where there are none.
  Currency ConsultarQtEmpenhoPendenteProduto(std::int32_t Cd_Produto, std::string_view Id_Empenho);
  // Units of a product that were drawn on credit against the commitment and are not billed; 0 where there are none.
  Currency ConsultarQtVendaPendenteProduto(std::int32_t Cd_Produto, std::string_view Id_Empenho);
  // Concludes all pending commitments of the customer. True.
  bool AlterarEmpenhosParaConcluido();
  // The customer's pending commitments, of all user companies.
  Recordset rsEmpenhoPendente();

 private:
  Currency recent_cheques(std::string_view operation, std::string_view tax_number_column);
  Currency AcumulosAFaturar();
  Currency AcumulosFaturados();
  Currency units(std::string statement);
};

}  // namespace posto
