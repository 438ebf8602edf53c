#include "posto/stock/DALProdutoTransferencia.h"

#include "posto/core/sql.h"

namespace posto {

std::int32_t DALProdutoTransferencia::QuantidadeProdutoTransferencia() {
  return routine("QuantidadeProdutoTransferencia", [&] {
    Recordset rs = read(sql(R"(
        SELECT   Count(*) As Qt_ProdutoTransferencia
        FROM     ProdutoTransferencia
        WHERE    Cd_PessoaUsuaria = {} And
                 Cd_ProdutoBaixa = {})",
                            ObVO->Cd_PessoaUsuaria, ObVO->Cd_ProdutoBaixa));
    return rs["Qt_ProdutoTransferencia"].as<std::int32_t>();
  });
}

void DALProdutoTransferencia::LimparTransferenciaAutomaticaProduto() {
  routine("LimparTransferenciaAutomaticaProduto", [&] {
    execute(sql(R"(
        Update ProdutoTransferencia
        Set    Ic_TransferenciaAutomatica = 0
        WHERE  Cd_ProdutoBaixa = {} Or
               Cd_ProdutoEntrada = {})",
                ObVO->Cd_ProdutoBaixa, ObVO->Cd_ProdutoEntrada));
  });
}

}  // namespace posto
