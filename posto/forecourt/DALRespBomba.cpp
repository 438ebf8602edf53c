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
    rs["Qt_Venda"] =
        rs["No_EncerranteEletronicoFechamento"].value_or(0.0) - rs["No_EncerranteEletronicoAbertura"].value_or(0.0);
    rs.Update();
    rs.Close();
  });
}

}  // namespace posto
