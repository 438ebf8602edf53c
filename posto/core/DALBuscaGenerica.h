// The search behind the system's one search screen: clauses out of what the screen's form asks, and the rows into its
// grid.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "posto/core/entity.h"
#include "posto/core/search_attribute.h"

namespace posto {

// The caller sets the table, the attributes and the form, and asks for clauses or fills the grid.
//
// The form's controls are called by their paths, and a missing one is error 438:
//   Nm_AtributoPesquisa.ListIndex  the position that is chosen in the list of attributes; below 0 none
//   Nm_AtributoPesquisa.ItemData   with that position: the place in ColecaoAtributos, the first being 0
//   Nm_Operador.Text               one of operators()
//   Ds_Procura.Text                the value searched, as the statement takes it: a number with a point, a date in
//                                  Ds_FormatoData; not escaped
//   Grid.Rows, Grid.AddItem        the grid, whose lines are cells separated by tabs
//   Qt_Encontrados.Text            gets the count
// A second search row has Nm_AtributoPesquisa2, Nm_Operador2 and Ds_Procura2; a form without the first of them has no
// such row.
//
// Failures take the road of the entities (core/entity.h).
class DALBuscaGenerica : private EntityBase {
 public:
  DALBuscaGenerica();
  explicit DALBuscaGenerica(std::shared_ptr<VOSistema> settings);

  using EntityBase::ObVOSistema;
  std::vector<SearchAttribute> ColecaoAtributos;
  LateBound* FormBuscaGenerica = nullptr;  // the caller's
  std::string Nm_Tabela;
  std::string Ds_ComplementoClausulaWHERE;  // a condition that always holds, without WHERE
  std::string Ds_ClausulaJoin;              // what stands behind the table: joins

  // "SELECT a, b".
  std::string Ds_ClausulaSelect() const;
  // "FROM table join".
  std::string Ds_ClausulaFROM() const;
  // " WHERE a = 1 AND b Like '%x%' And complement"; "Where complement" when the form asks nothing; empty without
  // either. Raises 5 for an operator or an attribute that there is not, 91 without a form.
  std::string Ds_ClausulaWHERE();
  // "ORDER BY a, b"; empty when no attribute takes part.
  std::string Ds_ClausulaOrderBy() const;
  // The clauses that are not empty, each on its line.
  std::string query();

  // Runs the query and fills the grid behind its heading, one line a record: days as "dd/mm/yyyy", numbers with a
  // fraction as "###,###,##0.00####", indicators and Fl_CupomAssinado as SIM or NÃO, No_SituacaoCredito in words, null
  // as nothing, anything else as it is (a tab in a text as a blank). The count goes to Qt_Encontrados. Raises
  // 0x80040202 with "(<table>)" when nothing is found; the grid then has its heading alone.
  void CarregarMSFlexGridDeBusca();

  // The operators, as they stand in the form's list.
  static std::span<const std::string_view> operators();

 private:
  ValueObject vo() override { return by_name(*ObVOSistema->ObVOEmpresaUsuaria); }
  LateBound& form() const;
  std::string text_of(const std::string& control) const;
  std::string condition(std::string_view row, std::int32_t chosen) const;
  std::string conditions() const;
};

}  // namespace posto
