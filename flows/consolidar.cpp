#include "flows/consolidar.h"

#include "flows/conflict.h"
#include "posto/masterdata/DALEmpresaUsuaria.h"

namespace posto::flows {

namespace {

ConsolidatedStock consolidated(Station& station, Date day, LateBound& form, bool without_zero) {
  DALEmpresaUsuaria company(station.settings);
  company.PreparaEstoqueConsolidadoFechado(day, form);
  if (without_zero) company.ApagaEstoqueConsolidadoIgualZero(day);
  ConsolidatedStock stock;
  Recordset rows = company.rsEstoqueConsolidado(day, orderByEstoqueConsolidadoNm_GrupoENm_Produto);
  for (; !rows.EOF(); rows.MoveNext()) {
    ConsolidatedProduct product{.group = rows["Nm_GrupoProduto"].value_or(std::string()),
                                .name = rows["Nm_Produto"].value_or(std::string()),
                                .code = rows["Cd_Produto"].as<std::int32_t>(),
                                .quantity = rows["Qt_Estoque"].value_or(0.0),
                                .cost = rows["Vl_CustoMedio"].value_or(0.0),
                                .total = rows["Vl_Total"].value_or(Currency())};
    stock.total += product.total;
    stock.products.push_back(std::move(product));
  }
  return stock;
}

}  // namespace

ConsolidatedStock consolidar(Station& station, Date day, LateBound& form, bool without_zero) {
  ConsolidatedStock stock;
  in_transaction(station, [&] { stock = consolidated(station, day, form, without_zero); });
  return stock;
}

}  // namespace posto::flows
