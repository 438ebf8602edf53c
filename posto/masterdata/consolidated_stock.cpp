// The stock consolidated at a day, by the user company.
#include <utility>

#include "posto/core/sql.h"
#include "posto/masterdata/DALEmpresaUsuaria.h"
#include "posto/types/number_pattern.h"

namespace posto {
namespace {

std::string figure(double value) { return format_number(value, "########0.0#####", kPointLocale); }

// The opening figures of a product and those of its last movement, by the columns of EstoqueConsolidado.
struct Figure {
  std::string_view column, of_movement, opening;
};
constexpr Figure kFigures[] = {{"Vl_CustoMedio", "Vl_CustoMedio", "Vl_CustoMedioInicial"},
                               {"Qt_Estoque", "Qt_Estoque", "Qt_EstoqueInicial"},
                               {"Vl_IcmsRecuperar", "Vl_CredIcmsMedio", "Vl_CredIcmsMedioInicial"}};

void let(LateBound& form, std::string_view property, Variant value) { form.let(property, {{std::move(value)}}); }

// Moves a progress form to the n-th of its products.
void show_progress(LateBound& form, std::int32_t n, std::int32_t of, std::string_view product) {
  let(form, "Progresso.Value", n);
  let(form, "Acao", product);
  let(form, "Percentual.Caption", format_number(100.0 * n / of, "###,#"));
  form.call("Refresh", {});
}

}  // namespace

void DALEmpresaUsuaria::ApagaEstoqueConsolidado(Date Dt_Referencia) {
  routine("ApagaEstoqueConsolidado", [&] {
    execute(sql(R"(
        DELETE FROM EstoqueConsolidado
        WHERE  Cd_PessoaUsuaria = {} And
               Dt_Referencia = {})",
                company(), day(Dt_Referencia)));
  });
}

void DALEmpresaUsuaria::ApagaEstoqueConsolidadoIgualZero(Date Dt_Referencia) {
  routine("ApagaEstoqueConsolidadoIgualZero", [&] {
    execute(sql(R"(
        DELETE FROM EstoqueConsolidado
        WHERE  Cd_PessoaUsuaria = {} And
               Dt_Referencia = {} And
               Qt_Estoque = 0)",
                company(), day(Dt_Referencia)));
  });
}

Recordset DALEmpresaUsuaria::rsProdutosComVendaNoCardexAtePeriodo(Date Dt_Referencia) {
  return routine("rsProdutosComVendaNoCardexAtePeriodo", [&] {
    const std::string reference = day(Dt_Referencia);
    ApagaEstoqueConsolidado(Dt_Referencia);
    execute(sql(R"(
        INSERT INTO EstoqueConsolidado
               (Cd_PessoaUsuaria, Dt_Referencia, Cd_Produto, Vl_CustoMedio, Qt_Estoque, Vl_IcmsRecuperar)
        SELECT Cd_PessoaUsuaria, {} As Dt_Referencia, Cd_Produto, Vl_CustoMedioInicial, Qt_EstoqueInicial,
               Vl_CredIcmsMedioInicial
        FROM   Produto
        WHERE  Cd_PessoaUsuaria = {} And
               No_Tipo = 1)",
                reference, company()));
    return detached(sql(R"(
        SELECT   Cardex.Cd_Produto
        FROM     Cardex
                 INNER JOIN Produto On Cardex.Cd_Produto = Produto.Cd_Produto
        WHERE    Cardex.Cd_PessoaUsuaria = {} And
                 Cardex.Dt_Emissao <= {} And
                 Produto.No_Tipo = 1
        GROUP BY Cardex.Cd_Produto)",
                        company(), reference));
  });
}

void DALEmpresaUsuaria::BuscaEGravaEstoqueConsolidado(Date Dt_Referencia, std::int32_t Cd_Produto,
                                                      std::int32_t MaxCd_LancamentoCardex) {
  routine("BuscaEGravaEstoqueConsolidado", [&] {
    const std::string reference = day(Dt_Referencia);
    Recordset movement = read(sql(R"(
        SELECT   *
        FROM     Cardex
        WHERE    Cd_PessoaUsuaria = {} And
                 Dt_Emissao <= {} And
                 Cd_Produto = {} And
                 Cd_LancamentoCardex <= {}
        ORDER BY Dt_Emissao Desc, Cardex.Cd_LancamentoCardex Desc)",
                                  company(), reference, Cd_Produto, MaxCd_LancamentoCardex));
    if (movement.EOF()) return;
    std::string values[std::size(kFigures)];
    for (std::size_t i = 0; i < std::size(kFigures); ++i) {
      const Field value = movement[kFigures[i].of_movement];
      values[i] = value.is_null() ? std::string(kFigures[i].column) : figure(value.as<double>());
    }
    movement.Close();
    execute(sql(R"(
        UPDATE EstoqueConsolidado
        SET    Vl_CustoMedio = {},
               Qt_Estoque = {},
               Vl_IcmsRecuperar = {}
        WHERE  Cd_PessoaUsuaria = {} And
               Dt_Referencia = {} And
               Cd_Produto = {})",
                values[0], values[1], values[2], company(), reference, Cd_Produto));
  });
}

void DALEmpresaUsuaria::PreparaEstoqueConsolidadoFechado(Date Dt_Referencia, LateBound& Ob_Andamento) {
  routine("PreparaEstoqueConsolidadoFechado", [&] {
    const std::string reference = day(Dt_Referencia);
    let(Ob_Andamento, "Caption", "Atualizando Kardex " + format_date(Dt_Referencia, "dd/mm/yyyy"));
    Ob_Andamento.call("Show", {});
    ApagaEstoqueConsolidado(Dt_Referencia);
    Recordset products = detached(sql(R"(
        SELECT   Cd_Produto, Nm_Produto, Vl_CustoMedioInicial, Qt_EstoqueInicial, Vl_CredIcmsMedioInicial
        FROM     Produto
        WHERE    Cd_PessoaUsuaria = {} And
                 No_Tipo = 1
        ORDER BY Cd_Produto)",
                                      company()));
    const std::int32_t count = products.RecordCount();
    let(Ob_Andamento, "Progresso.Max", count);
    for (std::int32_t n = 1; !products.EOF(); products.MoveNext(), ++n) {
      show_progress(Ob_Andamento, n, count, products["Nm_Produto"].value_or(std::string()));
      consolidate(products, reference);
    }
  });
}

// Writes the row of the current product.
void DALEmpresaUsuaria::consolidate(Recordset& product, const std::string& reference) {
  const auto code = product["Cd_Produto"].as<std::int32_t>();
  Recordset movement = read(sql(R"(
      SELECT   TOP 1 Vl_CustoMedio, Qt_Estoque, Vl_CredIcmsMedio
      FROM     Cardex
      WHERE    Cd_PessoaUsuaria = {} And
               Cd_Produto = {} And
               Dt_Emissao <= {}
      ORDER BY Dt_Emissao Desc, Cd_LancamentoCardex Desc)",
                                company(), code, reference));
  std::string values[std::size(kFigures)];
  for (std::size_t i = 0; i < std::size(kFigures); ++i) {
    const double opening = product[kFigures[i].opening].value_or(0.0);
    values[i] = figure(movement.EOF() ? opening : movement[kFigures[i].of_movement].value_or(opening));
  }
  movement.Close();
  execute(sql(R"(
      INSERT INTO EstoqueConsolidado
             (Cd_PessoaUsuaria, Dt_Referencia, Cd_Produto, Vl_CustoMedio, Qt_Estoque, Vl_IcmsRecuperar)
      Values ({}, {}, {}, {}, {}, {}))",
              company(), reference, code, values[0], values[1], values[2]));
}

Recordset DALEmpresaUsuaria::rsEstoqueConsolidado(Date Dt_Referencia, orderByEstoqueConsolidado Order) {
  return routine("rsEstoqueConsolidado", [&] {
    const bool by_group = Order == orderByEstoqueConsolidadoNm_GrupoENm_Produto;
    return detached(
        sql(R"(
        SELECT   GrupoProduto.Cd_GrupoProduto, GrupoProduto.Nm_GrupoProduto, EstoqueConsolidado.Cd_Produto,
                 Produto.Nm_Produto, Produto.Vl_Preco, EstoqueConsolidado.Qt_Estoque, EstoqueConsolidado.Vl_CustoMedio,
                 Round(EstoqueConsolidado.Qt_Estoque * EstoqueConsolidado.Vl_CustoMedio, 2) As Vl_Total
        FROM     EstoqueConsolidado
                 INNER JOIN Produto On EstoqueConsolidado.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And
                                       EstoqueConsolidado.Cd_Produto = Produto.Cd_Produto
                 INNER JOIN GrupoProduto On GrupoProduto.Cd_GrupoProduto = Produto.Cd_GrupoProduto
        WHERE    EstoqueConsolidado.Cd_PessoaUsuaria = {} And
                 EstoqueConsolidado.Dt_Referencia = {}
        ORDER BY {})",
            company(), day(Dt_Referencia),
            by_group ? "GrupoProduto.Nm_GrupoProduto, Produto.Nm_Produto" : "EstoqueConsolidado.Cd_Produto"));
  });
}

}  // namespace posto
