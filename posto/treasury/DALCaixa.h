// Cash shifts: one employee's turn at the till, from opening to settlement and summary.
#pragma once

#include <string>
#include <string_view>

#include "posto/core/entity.h"
#include "posto/schema/treasury.h"

namespace posto {

inline constexpr Description kCaixa{
    .class_name = "DALCaixa",
    .table = "Caixa",
    .keys = {{"Cd_PessoaUsuaria", "Cd_Funcionario", "No_Sequencial", "Dt_Abertura"}, {"Cd_PessoaUsuaria", "Cd_Caixa"}},
    .sequence = {"Cd_Caixa"},
    .empty_query = "Cd_PessoaUsuaria = 0 and Cd_Funcionario = 0 and No_Sequencial = 0 and Dt_Abertura = Null",
    .existe = true};

// A shift is found by company, employee, ordinal and day, otherwise by company and code.
//
// Standard operations (core/entity.h); none of them enforces the order of Cd_Situacao (open, closed, checked). The
// operations that read a shift's sales, receipts and fuellings take company and code from the value object.
class DALCaixa : public Entity<VOCaixa, kCaixa> {
 public:
  using Entity::Entity;

  // Reads the employee's open shift of the latest day until today, of one day the highest ordinal. Raises 0x80040201
  // without company and employee, 0x80040202 with "(Caixa)" when there is none.
  VOCaixa& ConsultarUltimoCaixa();
  // The highest ordinal of the employee's shifts of today, whatever their state; 0 when there is none. The value object
  // must hold a company and an employee too (0x80040201); the arguments count.
  std::int32_t ConsultarUltimoSequencial(std::int32_t Cd_PessoaUsuaria, std::int32_t Cd_Funcionario);
  // Whether anybody answered for a nozzle in the shift.
  bool ExisteRespBomba();

  // Works out the settlement and leaves its figures in the value object, for the caller to keep with Alterar: sales of
  // fuel, goods and services (each line rounded to cents, halves to the even one), discounts, floats, receivables paid,
  // receipts, credit sales, fuellings without a coupon, other debits and credits, and out of them
  //   Vl_SomaDebitos  = sales + receivables + pending fuellings + floats - discounts + other debits
  //   Vl_SomaCreditos = receipts + credit sales + other credits
  //   Vl_Diferenca    = credits - debits + Vl_SobraSangrias - Vl_FaltaSangrias, below zero when the till is short.
  // The figures on cash drops are the caller's and stay. On the way the shift's coupon receipts that no coupon knows
  // are deleted, floats ("SUPRIMENTO") excepted. It can run any number of times. The first of its thirteen steps that
  // fails ends it, its name in the failure's path; the figures of the steps before stay.
  void CalcularCaixa();
  // The shift's receipts in cash, and the divergences that count as such.
  Currency ValorRecebimentosEmDinheiro();
  Currency ValorOutrosRecebimentosEmDinheiro();

  // Fills the work table TempRelCaixa14 anew with the summary of the shift, whose value object CalcularCaixa has
  // filled: the totals (group 0.0), debits (0.1) and credits (0.2), then a group of details for each item. Label1 to
  // Label4 head the columns Nm_Item and Valor1 to Valor3. The table is one for all shifts and users; a failure leaves
  // the lines that were written, and the next run clears them.
  void GerarDadosParaResumoDeCaixa();

  // Record sets that are detached. The settled coupons whose receipts are not their net total, with the sum of these as
  // SomaVl_Recebimento, null where there are none; the argument is not looked at.
  Recordset Rs_RecebimentosETroco(std::string& Ds_Resultado);
  // The coupons by day and time.
  Recordset Rs_CuponsFiscais();
  // Litres by nozzle as SomaDeQt_Litros, of all fuellings that the company has ever had and not only of the shift.
  Recordset Rs_VolumeCombustiveisVendidos();

  // All that belongs to the shift's coupons, deleted ones included, in another database: rows of the named table,
  // repeated where several coupons lead to one. strConexao: as Connection::Open takes it. Detached; raises what Open
  // raises.
  Recordset rsAbastecimento(std::string_view strConexao);
  Recordset rsPessoa(std::string_view strConexao);
  Recordset rsCliente(std::string_view strConexao);  // with the columns of the person behind
  Recordset rsVeiculo(std::string_view strConexao);
  Recordset rsCardex(std::string_view strConexao);
  Recordset rsCupomFiscal(std::string_view strConexao);
  Recordset rsItemCupomFiscal(std::string_view strConexao);
  Recordset rsRecebimento(std::string_view strConexao);
  Recordset rsRecebimentoCupom(std::string_view strConexao);

  // List fills as in core/entity.h, with Cd_Caixa as data. Ds_Condicao: a WHERE clause or nothing, as it is. The first
  // shows "01 - 24/11/2026 06:00:00" by ordinal, the second "NAME-SEQ:1" by the employee's name.
  void CarregarComboBox(LateBound& Ob_ComboBox, std::string_view Ds_Condicao = {});
  void CarregarComboBox2(LateBound& Ob_ComboBox, std::string_view Ds_Condicao = {});

 protected:
  void list_record(ListItems& items, Recordset& record) override;

 private:
  struct Step;
  static const Step kSteps[];

  void require_employee();
  Currency sum(std::string statement);
  void sum_sales();
  std::string divergences_of(int nature) const;
  Recordset rows_elsewhere(std::string_view operation, std::string_view strConexao, std::string_view selected,
                           std::string_view joins);
};

}  // namespace posto
