#include "flows/lookup.h"

#include "posto/stock/DALProduto.h"

namespace posto::flows {

std::int32_t product_of(Station& station, const std::string& bar_code) {
  DALProduto product(station.settings);
  product.ObVO->Cd_CodBarras = bar_code;
  return stands([&] { product.Consultar(false, false); }) ? product.ObVO->Cd_Produto : 0;
}

}  // namespace posto::flows
