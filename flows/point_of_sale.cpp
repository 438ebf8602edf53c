#include "flows/point_of_sale.h"

#include "flows/lookup.h"
#include "flows/sale_steps.h"
#include "posto/core/sql.h"
#include "posto/fiscal/catalogue.h"

namespace posto::flows {
namespace {

constexpr std::int32_t kFirstCode = 1;
constexpr const char* kFirstName = "PRINCIPAL";

}  // namespace

std::int32_t PointsOfSale::find(std::int32_t code) {
  if (code == 0) return lowest_ != 0 ? lowest_ : lowest_ = lowest();
  if (!standing_.contains(code)) require(code);
  return code;
}

std::int32_t PointsOfSale::lowest() {
  Recordset lowest = station_.connection().Execute(sql(R"(
      SELECT Min(Cd_PonVen) As MinDeCd_PonVen
      FROM   PonVen
      WHERE  Cd_PessoaUsuaria = {})",
                                                       station_.tenant()));
  if (!lowest["MinDeCd_PonVen"].is_null()) return lowest["MinDeCd_PonVen"].as<std::int32_t>();
  DALPonVen first(station_.settings);
  first.ObVO->Cd_PessoaUsuaria = station_.tenant();
  first.ObVO->Cd_PonVen = kFirstCode;
  first.ObVO->Nm_PonVen = kFirstName;
  first.Incluir();
  return kFirstCode;
}

void PointsOfSale::require(std::int32_t code) {
  DALPonVen place(station_.settings);
  place.ObVO->Cd_PessoaUsuaria = station_.tenant();
  place.ObVO->Cd_PonVen = code;
  if (!stands([&] { place.Consultar(); })) refuse_sale("não há o ponto de venda " + std::to_string(code));
  standing_.insert(code);
}

}  // namespace posto::flows
