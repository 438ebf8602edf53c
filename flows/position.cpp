#include "flows/position.h"

#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/forecourt/DALBomba.h"
#include "posto/types/rounding.h"

namespace posto::flows {
namespace {

// A float32 quantity has no more than millilitres to tell.
double exact_litres(float litres) { return Currency(static_cast<double>(litres)).as_double(); }

void add_deliveries(const Station& station, NozzlePosition& position, Date first, Date last) {
  const std::string from = format_date(first, station.settings->Ds_FormatoData);
  const std::string to = format_date(last, station.settings->Ds_FormatoData);
  Recordset rows = station.connection().Execute(sql(R"(
      SELECT   Qt_Litros, Vl_Total
      FROM     Abastecimento
      WHERE    Cd_PessoaUsuaria = {} And
               De_EnderecoLogicoBico = '{}' And
               Dt_Termino Between '{} 00:00:00' And '{} 23:59:59')",
                                                    station.tenant(), position.address, from, to));
  Currency litres;
  for (; !rows.EOF(); rows.MoveNext()) {
    litres += Currency(exact_litres(rows["Qt_Litros"].value_or(0.0f)));
    position.sales += rows["Vl_Total"].value_or(Currency());
    ++position.deliveries;
  }
  position.litres = litres.as_double();
}

}  // namespace

std::vector<NozzlePosition> nozzle_positions(const Station& station, Date first, Date last) {
  std::vector<NozzlePosition> positions;
  DALBombas all(station.settings);
  DALBomba nozzle(station.settings);
  for (Recordset rows = all.ConsultarTodasRs(); !rows.EOF(); rows.MoveNext()) {
    nozzle.ObVO->De_EnderecoLogicoBico = rows["De_EnderecoLogicoBico"].as<std::string>();
    NozzlePosition p{.address = nozzle.ObVO->De_EnderecoLogicoBico,
                     .description = rows["Ds_Bico"].value_or(std::string())};
    const double initial = rows["No_EncerranteInicial"].value_or(0.0);
    auto or_initial = [&](double totaliser) { return totaliser > 0 ? totaliser : initial; };
    p.opening = or_initial(nozzle.EncerranteAnteriorAoDia(first));
    p.closing = or_initial(nozzle.EncerranteAnteriorAoDia(last.plus_days(1)));
    add_deliveries(station, p, first, last);
    positions.push_back(std::move(p));
  }
  return positions;
}

std::vector<ProductPosition> product_positions(const Station& station, Date first, Date last) {
  std::vector<ProductPosition> positions;
  Recordset rows = station.connection().Execute(sql(R"(
      SELECT   A.Cd_Produto, A.Cd_CodBarras, A.Nm_Produto, A.Qt_Estoque, A.Vl_CustoMedio, A.Vl_CredIcmsMedio,
               Sum(Case When B.No_Tipo < 20 Then B.Qt_Unidade Else 0 End) As Qt_Entrada,
               Sum(Case When B.No_Tipo >= 20 Then B.Qt_Unidade Else 0 End) As Qt_Saida
      FROM     Produto A
               LEFT JOIN Cardex B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And
                                     A.Cd_Produto = B.Cd_Produto And
                                     B.Dt_Emissao Between {} And {}
      WHERE    A.Cd_PessoaUsuaria = {} And
               A.No_Tipo <> 2
      GROUP BY A.Cd_Produto, A.Cd_CodBarras, A.Nm_Produto, A.Qt_Estoque, A.Vl_CustoMedio, A.Vl_CredIcmsMedio
      ORDER BY A.Cd_Produto)",
                                                    DateSemHoraToSql(first, *station.settings),
                                                    DateSemHoraToSql(last, *station.settings), station.tenant()));
  for (; !rows.EOF(); rows.MoveNext()) {
    positions.push_back({.code = rows["Cd_Produto"].as<std::int32_t>(),
                         .bar_code = rows["Cd_CodBarras"].value_or(std::string()),
                         .name = rows["Nm_Produto"].value_or(std::string()),
                         .in = rows["Qt_Entrada"].value_or(0.0),
                         .out = rows["Qt_Saida"].value_or(0.0),
                         .stock = rows["Qt_Estoque"].value_or(0.0),
                         .cost = rows["Vl_CustoMedio"].value_or(0.0),
                         .icms_credit = rows["Vl_CredIcmsMedio"].value_or(0.0)});
  }
  return positions;
}

}  // namespace posto::flows
