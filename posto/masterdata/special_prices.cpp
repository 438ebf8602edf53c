#include "posto/masterdata/special_prices.h"

#include <algorithm>
#include <string>

#include "posto/ado/recordset.h"
#include "posto/core/enumerations.h"
#include "posto/core/sql.h"
#include "posto/types/erro.h"
#include "posto/types/number_pattern.h"
#include "posto/types/rounding.h"

namespace posto {
namespace {

constexpr int kDecimals = 3;
constexpr std::int64_t kOneHundredPercent = 100 * Currency::kScale;

// So many per cent of an amount, rounded once: both are counts of ten-thousandths, the product is exact.
Currency percent_of(Currency amount, std::int64_t scaled_percent) {
  constexpr std::int64_t kThousandths = Currency::kScale * kOneHundredPercent / 1000;
  std::int64_t product = 0;
  if (__builtin_mul_overflow(amount.scaled(), scaled_percent, &product)) {
    throw Erro(erro::kOverflow, "special_price", "Preço fora do intervalo");
  }
  const std::int64_t half = product < 0 ? -kThousandths / 2 : kThousandths / 2;
  return Currency::of_scaled((product + half) / kThousandths * (Currency::kScale / 1000));
}

Currency changed_price(std::int32_t condition, Currency price, Currency change) {
  switch (condition) {
    case Tp_CondicaoDescontoPercentual:
      return percent_of(price, kOneHundredPercent - change.scaled());
    case Tp_CondicaoAcrescimoPercentual:
      return percent_of(price, kOneHundredPercent + change.scaled());
    case Tp_CondicaoDescontoValor:
      return price - change;
    case Tp_CondicaoAcrescimoValor:
      return price + change;
    case Tp_CondicaoPrecoFixo:
      return change;
    default:
      return price;
  }
}

}  // namespace

Currency special_price(std::int32_t Tp_Condicao, Currency Vl_UnitTabela, Currency Vl_Alteracao) {
  const Currency price = changed_price(Tp_Condicao, Vl_UnitTabela, Vl_Alteracao);
  return std::max(Currency(), round_half_away(price, kDecimals));
}

void update_special_prices(Connection& connection, std::int32_t Cd_PessoaUsuaria, std::int32_t Cd_Cliente) {
  Recordset rows = connection.Execute(sql(R"(
      SELECT CondEspecialPreco.*, Produto.Vl_Preco As Vl_UnitTabela
      FROM   CondEspecialPreco
             INNER JOIN Produto On CondEspecialPreco.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And
                                   CondEspecialPreco.Cd_Produto = Produto.Cd_Produto
      WHERE  CondEspecialPreco.Cd_PessoaUsuaria = {}{})",
                                          Cd_PessoaUsuaria,
                                          Cd_Cliente == 0 ? std::string()
                                                          : sql(R"( And
             CondEspecialPreco.Cd_Cliente = {})",
                                                                Cd_Cliente)));
  for (; !rows.EOF(); rows.MoveNext()) {
    const Currency price =
        special_price(rows["Tp_Condicao"].value_or(std::int32_t{0}), rows["Vl_UnitTabela"].value_or(Currency()),
                      rows["Vl_Alteracao"].value_or(Currency()));
    connection.Execute(sql(R"(
        Update CondEspecialPreco
        Set    Vl_Preco = {}
        WHERE  Cd_PessoaUsuaria = {} And
               Cd_Cliente = {} And
               Cd_Produto = {})",
                           format_number(price, "#########0.00#", kPointLocale), Cd_PessoaUsuaria,
                           rows["Cd_Cliente"].as<std::int32_t>(), rows["Cd_Produto"].as<std::int32_t>()));
  }
}

}  // namespace posto
