#include "posto/stock/DALCardex.h"

#include "posto/core/column_list.h"
#include "posto/core/sql.h"
#include "posto/types/number_pattern.h"
#include "posto/types/rounding.h"

namespace posto {
namespace {

constexpr ListColumn kColumns[] = {
    {"Cd_PessoaUsuaria", integer(kNullWhenEmpty), integer()},
    {"Cd_LancamentoCardex", integer(kNullWhenEmpty), integer()},
    {"Dt_Emissao", day()},
    {"Nm_Doc", var_char(13), quoted()},
    {"No_Tipo", tiny_int()},
    {"Qt_Unidade", float32(8)},
    {"Vl_Unitario", float32(8)},
    {"Tx_Icms", money(3), money(2)},
    {"Qt_Estoque", float32(8)},
    {"Vl_CustoMedio", float32(8)},
    {"Vl_CredIcmsMedio", float32(8)},
    {"Cd_SisTubulacao", tiny_int(kNullWhenEmpty)},
    {"Cd_Produto", integer(kNullWhenEmpty), integer()},
};

const ColumnList& column_list() {
  static const ColumnList kList("Cardex", kColumns, layout_of<VOCardex>());
  return kList;
}

constexpr std::string_view kKey[] = {"Cd_PessoaUsuaria", "Cd_LancamentoCardex"};
constexpr std::uint8_t kService = 2;
constexpr int kAverageDecimals = 6;

bool is_entry(std::int32_t type) { return type >= 10 && type < 20; }
bool is_exit(std::int32_t type) { return type >= 20 && type < 30; }

// A product as its last movement left it.
struct Position {
  double quantity, cost, icms_credit;
};

void average_entry(VOCardex& v, const Position& p) {
  const double after = p.quantity + v.Qt_Unidade;
  const double rate = v.Tx_Icms.as_double();
  if (p.quantity > 0 && v.Qt_Unidade > 0) {
    auto average = [&](double before, double added) {
      return Round((p.quantity * before + added) / after, kAverageDecimals);
    };
    const double value = v.Qt_Unidade * v.Vl_Unitario;
    v.Vl_CustoMedio = average(p.cost, value);
    v.Vl_CredIcmsMedio = average(p.icms_credit, value * rate / 100);
  } else if (after > 0) {
    v.Vl_CustoMedio = v.Vl_Unitario;
    v.Vl_CredIcmsMedio = rate * v.Vl_Unitario / 100;
  } else {
    v.Vl_CustoMedio = v.Vl_CredIcmsMedio = 0;
  }
}

// The position behind the movement. `stored`: the quantity of the stored movement, of a change.
void apply(VOCardex& v, Tp_EdicaoEnum edit, const Position& p, double stored) {
  const bool entry = is_entry(v.No_Tipo);
  if (!entry && !is_exit(v.No_Tipo)) return;
  const double before = static_cast<float>(p.quantity);
  const double direction = entry ? 1 : -1;
  switch (edit) {
    case Tp_EdicaoInclusao:
      v.Qt_Estoque = before + direction * v.Qt_Unidade;
      if (entry) {
        average_entry(v, p);
      } else {
        v.Vl_CustoMedio = Round(p.cost, kAverageDecimals);
        v.Vl_CredIcmsMedio = Round(p.icms_credit, kAverageDecimals);
      }
      return;
    case Tp_EdicaoAlteracao:
      v.Qt_Estoque = before + direction * v.Qt_Unidade - direction * stored;
      return;
    case Tp_EdicaoExclusao:
      v.Qt_Estoque = before - direction * v.Qt_Unidade;
      return;
    default:
      return;
  }
}

std::string figure(double value) { return format_number(value, "########0.0#####", kPointLocale); }

}  // namespace

std::string DALCardex::instrucaoInsert() {
  return routine("instrucaoInsert", [&] { return column_list().insert_statement(vo(), *ObVOSistema); });
}

void DALCardex::Incluir(bool) {
  routine("Incluir", [&] { execute(instrucaoInsert()); });
}

void DALCardex::Alterar(bool Ic_Salvando, bool) {
  routine("Alterar", [&] {
    if (!has_values(kKey)) raise_missing(!Ic_Salvando);
    execute(column_list().update_statement(vo(), *ObVOSistema, kKey));
  });
}

void DALCardex::Excluir() {
  routine("Excluir", [&] {
    if (!has_values(kKey)) raise_missing(true);
    Consultar(true);
    AtualizarEstoqueProduto(*ObVO, Tp_EdicaoExclusao);
    execute(sqlDelete(*ObVOSistema, "Cardex", vo(), kKey));
  });
}

float DALCardex::AtualizarEstoqueProduto(VOCardex& V, Tp_EdicaoEnum No_TipoEdicao,
                                         bool Ic_BloquearVendaQuandoEstoqueForNegativo) {
  return routine("AtualizarEstoqueProduto", [&] {
    constexpr std::string_view kProductKey[] = {"Cd_PessoaUsuaria", "Cd_Produto"};
    Recordset product = read(sqlSelect(*ObVOSistema, "Produto", by_name(V), {}, kProductKey));
    if (product["No_Tipo"].value_or(std::uint8_t{0}) == kService) return 0.0f;
    const Position before{.quantity = product["Qt_Estoque"].value_or(0.0),
                          .cost = product["Vl_CustoMedio"].value_or(0.0),
                          .icms_credit = product["Vl_CredIcmsMedio"].value_or(0.0)};
    product.Close();
    double stored = 0;
    if (No_TipoEdicao == Tp_EdicaoAlteracao) {
      Recordset movement = read(sqlSelect(*ObVOSistema, "Cardex", by_name(V), {}, kKey));
      stored = movement["Qt_Unidade"].value_or(0.0);
    }
    apply(V, No_TipoEdicao, before, stored);
    const bool may_block = No_TipoEdicao == Tp_EdicaoInclusao || No_TipoEdicao == Tp_EdicaoAlteracao;
    if (may_block && Ic_BloquearVendaQuandoEstoqueForNegativo && V.Qt_Estoque < 0) {
      raise(erro::kInsufficientStock,
            ", quantidade disponível: " + format_number(static_cast<float>(before.quantity), "###,###,##0.0"));
    }
    execute(sql(R"(
         UPDATE Produto
         SET    Produto.Qt_Estoque = {},
                Produto.Vl_CustoMedio = {},
                Produto.Vl_CredIcmsMedio = {}
         WHERE  Produto.Cd_Produto = {})",
                figure(V.Qt_Estoque), figure(V.Vl_CustoMedio), figure(V.Vl_CredIcmsMedio), V.Cd_Produto));
    return static_cast<float>(V.Qt_Estoque);
  });
}

}  // namespace posto
