// Fuellings: deliveries of fuel through a nozzle, pending until they are posted against a line of a coupon.
#pragma once

#include "posto/core/entity.h"
#include "posto/schema/forecourt.h"

namespace posto {

inline constexpr Description kAbastecimento{
    .class_name = "DALAbastecimento",
    .table = "Abastecimento",
    .keys = {{"Cd_PessoaUsuaria", "Cd_Abastecimento"},
             {"Cd_PessoaUsuaria", "De_EnderecoLogicoBico", "No_EncerranteFechamento"}},
    .sequence = {"Cd_Abastecimento"}};

// Standard operations (core/entity.h) with these differences:
//  - Consultar and Alterar find by Cd_Abastecimento when it is not 0, otherwise by the nozzle's address and the
//    totaliser reading, which the composed statement compares with one decimal.
//  - Excluir accepts only Cd_Abastecimento.
//  - Incluir executes instrucaoInsert; the caller supplies Cd_Abastecimento.
class DALAbastecimento : public Entity<VOAbastecimento, kAbastecimento> {
 public:
  using Entity::Entity;

  void Incluir();
  // The INSERT of the value object. Quantities are narrowed to 32 bits; empty vehicle and cheque line become null.
  std::string instrucaoInsert();

  // Marks the fuelling as posted, whatever its tenant. True.
  bool BaixarAbastecimento();
  // True when exactly one coupon line holds the fuelling. Raises 0x80040660 when none does, 0x8004026F when several do;
  // then the fuelling is marked as posted before, so that it does not come back into the pending lists.
  bool ConferirBaixa();
  // The oldest fuelling that this computer (Nm_Computador) has to post by itself, with Cd_Usuario, Cd_Funcionario and
  // Cd_Bomba; empty when there is none. Marked ones, and where the user company posts by age those older than its
  // seconds. Detached.
  Recordset ConsultarProximoAbastecimentosBaixaAutomatica();

 protected:
  Names key_for(Purpose purpose) override;

 private:
  std::string posting_statement() const;
};

inline constexpr Description kAbastecimentos{.class_name = "DALAbastecimentos", .table = "Abastecimento"};

// Pending fuellings of all nozzles.
class DALAbastecimentos : public EntityBase {
 public:
  DALAbastecimentos() : EntityBase(kAbastecimentos) {}
  explicit DALAbastecimentos(std::shared_ptr<VOSistema> settings) : EntityBase(kAbastecimentos, std::move(settings)) {}

  // The pending fuellings with Cd_Bomba and Cd_Funcionario, of one employee or, with 0, of all, those without a shift
  // too; by end, the latest first unless told otherwise. Detached.
  Recordset ConsultarAbastecimentoPendentesRs(std::int32_t Cd_Funcionario = 0, bool Ic_OrdemDecrescenteTermino = true);
  // The same for all employees, the highest code first. A failure reports itself as ConsultarAbastecimentoPendentesRs.
  Recordset ConsultarAbastecimentoPendentesOrdenadoPorCodigoRs();
  // Executes a statement in another system's dialect, which the database refuses: the failure goes up under the name
  // VeriricaAbastecimentosBaixadosSemEmissaoCupom.
  void VerificaAbastecimentosBaixadosSemEmissaoCupom();

 protected:
  ValueObject vo() override { return by_name(unused_); }

 private:
  VOAbastecimento unused_;
};

}  // namespace posto
