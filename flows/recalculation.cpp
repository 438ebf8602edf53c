#include "flows/recalculation.h"

#include <algorithm>

#include "flows/conflict.h"
#include "posto/closing/DALFecDiario.h"
#include "posto/stock/DALProduto.h"

namespace posto::flows {
namespace {

std::vector<std::int32_t> products_moved_since(DALFecDiario& closing, Date since) {
  std::string unused;
  std::vector<std::int32_t> codes;
  Recordset rows = closing.Rs_TodosProdutosVendidosAPartirDaData(since, unused);
  for (; !rows.EOF(); rows.MoveNext()) {
    if (!rows["Cd_Produto"].is_null()) codes.push_back(rows["Cd_Produto"].as<std::int32_t>());
  }
  std::ranges::sort(codes);
  return codes;
}

// Walks and proves until it holds or the attempts are used up.
void walk_and_prove(DALFecDiario& closing, DALProduto& product, Date since, std::int16_t most,
                    RecalculatedProduct& result) {
  for (std::int16_t attempt = 0; attempt < most && !result.proved; ++attempt) {
    float quantity = 0, cost = 0, icms_credit = 0;
    product.UltimoEstoqueDeKardexAtualizado(since, quantity, cost, icms_credit);
    closing.AtualizaEstoqueCardex(since, result.code, quantity, cost, icms_credit);
    result.quantity = static_cast<double>(quantity);
    result.cost = static_cast<double>(cost);
    result.icms_credit = static_cast<double>(icms_credit);
    result.reason.clear();
    result.proved = closing.ConferirCalculoEstoque(since, result.code, result.reason, attempt);
    result.attempts = attempt + 1;
  }
  if (result.proved) {
    result.reason.clear();
  } else if (result.reason.empty()) {
    result.reason = "O último lançamento do cardex não tem o estoque do produto";
  }
}

RecalculatedProduct recalculate_product(Station& station, DALFecDiario& closing, const VOProduto& record, Date since,
                                        std::int16_t attempts) {
  DALProduto product(station.settings);
  *product.ObVO = record;
  RecalculatedProduct result;
  in_transaction(station, [&] {
    result = {.code = record.Cd_Produto, .name = record.Nm_Produto};
    walk_and_prove(closing, product, since, attempts, result);
  });
  return result;
}

VOProduto product_record(Station& station, std::int32_t code) {
  DALProduto product(station.settings);
  product.ObVO->Cd_PessoaUsuaria = station.tenant();
  product.ObVO->Cd_Produto = code;
  return product.Consultar(false, false);
}

}  // namespace

std::vector<RecalculatedProduct> recalculate(Station& station, Date since, const RecalculationOptions& options) {
  DALFecDiario closing(station.settings);
  closing.ObVO->Cd_PessoaUsuaria = station.tenant();
  const std::vector<std::int32_t> codes =
      options.product != 0 ? std::vector{options.product} : products_moved_since(closing, since);
  std::vector<RecalculatedProduct> results;
  for (const std::int32_t code : codes) {
    const VOProduto record = product_record(station, code);
    if (options.progress) options.progress(results.size(), codes.size(), record.Nm_Produto);
    results.push_back(recalculate_product(station, closing, record, since, options.attempts));
  }
  return results;
}

}  // namespace posto::flows
