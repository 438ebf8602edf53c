#include "posto/fiscal/DALItemNotaSaida.h"

#include "posto/core/mapper.h"

namespace posto {

VOItemNotaSaida& DALItemNotaSaida::ConsultarProduto(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro) {
  routine("ConsultarProduto", [&] {
    static constexpr std::string_view kProduct[] = {"Cd_PessoaUsuaria", "Cd_Produto"};
    const bool reset = Ic_RestaurarDefaulSeNaoEcontrarRegistro;
    Recordset product = open_by_key("Produto", has_values(kProduct) ? Names(kProduct) : Names(), reset);
    require_record(product, "ItemNotaSaida", reset);
    read_record(product, vo());
    product.Close();
  });
  return *ObVO;
}

}  // namespace posto
