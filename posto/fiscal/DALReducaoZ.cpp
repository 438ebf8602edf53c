#include "posto/fiscal/DALReducaoZ.h"

#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"

namespace posto {

void DALReducaoZ::take_latest(std::int32_t company, std::int32_t printer, std::string_view period,
                              bool reset_when_missing) {
  Recordset record = open(sql(R"(
      SELECT A.*
      FROM ReducaoZ A
      WHERE A.Cd_PessoaUsuaria = {}
      And A.No_Impressora = {}
      And A.Dt_Movimento = (Select MAX(B.Dt_Movimento)
      From ReducaoZ B
      WHERE B.Cd_PessoaUsuaria = {}
      And B.No_Impressora = {}{});)",
                              company, printer, company, printer, period));
  take(record, reset_when_missing);
}

VOReducaoZ& DALReducaoZ::ConsultarUltimaNoPeriodo(std::int32_t Cd_PessoaUsuaria, std::int32_t No_Impressora,
                                                  Date Dt_MovimentoInicial, Date Dt_MovimentoFinal,
                                                  bool Ic_RestaurarDefaulSeNaoEcontrarRegistro) {
  routine("ConsultarUltimaNoPeriodo", [&] {
    const std::string period = "\rAnd B.Dt_Movimento Between " + DateSemHoraToSql(Dt_MovimentoInicial, *ObVOSistema) +
                               " and " + DateSemHoraToSql(Dt_MovimentoFinal, *ObVOSistema);
    take_latest(Cd_PessoaUsuaria, No_Impressora, period, Ic_RestaurarDefaulSeNaoEcontrarRegistro);
  });
  return *ObVO;
}

VOReducaoZ& DALReducaoZ::ConsultarUltima(std::int32_t Cd_PessoaUsuaria, std::int32_t No_Impressora) {
  routine("ConsultarUltima", [&] { take_latest(Cd_PessoaUsuaria, No_Impressora, {}, false); });
  return *ObVO;
}

}  // namespace posto
