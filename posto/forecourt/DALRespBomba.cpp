#include "posto/forecourt/DALRespBomba.h"

namespace posto {

void DALRespBomba::FecharResponsabilidade() {
  routine("FecharResponsabilidade", [&] {
    constexpr std::string_view kKey[] = {"Cd_PessoaUsuaria", "Cd_Caixa", "Cd_Bomba"};
    constexpr std::string_view kOrder[] = {"Dt_RespBomba"};
    if (!has_values(kKey)) raise(erro::kMissingKey);
    Recordset rs = open(sqlSelect(*ObVOSistema, "RespBomba", vo(), {}, kKey, {}, {}, kOrder));
    rs.MoveLast();
    rs["No_EncerranteEletronicoFechamento"] = ObVO->No_EncerranteEletronicoFechamento;
    rs["No_EncerranteMecanicoFechamento"] = ObVO->No_EncerranteMecanicoFechamento;
    const Field opening = rs["No_EncerranteEletronicoAbertura"];
    const double closing = ObVO->No_EncerranteEletronicoFechamento;
    rs["Qt_Venda"] = opening.is_null() ? Variant(Null{}) : Variant(closing - opening.as<double>());
    rs.Update();
    rs.Close();
  });
}

}  // namespace posto
