// Invoices that the station issues.
#pragma once

#include "posto/core/entity.h"
#include "posto/core/enumerations.h"
#include "posto/schema/fiscal.h"

namespace posto {

inline constexpr Description kNotaSaida{
    .class_name = "DALNotaSaida",
    .table = "NotaSaida",
    .keys = {{"Cd_PessoaUsuaria", "Cd_TipoNF", "No_Nota"}},
    .read_keys = {{"Cd_PessoaUsuaria", "Cd_TipoNF", "Cd_ContaAReceber"}, {"Cd_PessoaUsuaria", "Cd_ContaAReceber"}},
    .sequence = {"Cd_SequencialNota", "No_Nota"},
    .empty_query = "Cd_PessoaUsuaria = 0 and No_Nota = 0"};

// An invoice is found by company, kind and number. Consultar also finds the one of a receivable: by company, kind and
// Cd_ContaAReceber, or by company and Cd_ContaAReceber.
//
// Standard operations (core/entity.h). Cd_SequencialNota is the database's, No_Nota the caller's: it is the number on
// the form. Alterar leaves both as the record has them.
class DALNotaSaida : public Entity<VONotaSaida, kNotaSaida> {
 public:
  using Entity::Entity;

  // Cancels the invoice (CdTipoExclusaoLogica) or deletes it (CdTipoExclusaoFisica); any other value does nothing.
  //
  // A cancelled invoice keeps its record, with Ic_Cancelada and without its receivable, but not its lines: they are
  // deleted. The invoice is found by company, kind and number, otherwise by company and Cd_ContaAReceber; the second
  // way cancels every invoice of the receivable, and deletes the lines of the one that Consultar finds. Raises
  // 0x80040201 without either, and resets the value object; 0x80040202 where Consultar finds none. An invoice that is
  // not there by its number is no failure. Whether it is billed is not asked.
  void Excluir(CdTipoExclusao No_TipoExclusao = CdTipoExclusaoLogica);
  // The deletion of the record and its lines, found as above.
  void ExcluirFisica();

  // The invoice's lines by No_Item, with No_Tipo and Nm_Produto of their product and Ic_DestacarIcmsST of its nature:
  // all, those of goods or those of services. A line whose product has no nature is left out.
  Recordset ConsultarItens(TipoConsultaItensEnum Tp_Consulta = TodosItens);
  Recordset Rs_ItensTodos() { return ConsultarItens(TodosItens); }
  Recordset Rs_ItensProdutos() { return ConsultarItens(SomenteProdutos); }
  Recordset Rs_ItensServicos() { return ConsultarItens(SomenteServicos); }
  // No_Impressora and No_CupomFiscal of the coupons that the invoice stands for, by coupon: those of its receivable,
  // and those that bear its number. A coupon that is both stands twice.
  Recordset ConsultarCupons();
  // Cd_CfopItem of the invoice's lines, each once.
  Recordset ConsultarCFOPs();

 private:
  void ExcluirLogica();
  // The columns by which a deletion finds the invoice, which is read where they do not name it.
  Names found_for_removal();
  void remove_lines();
};

}  // namespace posto
