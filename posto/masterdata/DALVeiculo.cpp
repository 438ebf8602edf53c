#include "posto/masterdata/DALVeiculo.h"

#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/masterdata/sums.h"
#include "posto/services/clock.h"

namespace posto {
namespace {

struct Period {
  Date first, last;
};

Period month_of(Date day) {
  const Date::Parts parts = day.parts();
  const bool december = parts.month == 12;
  const Date next = Date::of_day(december ? parts.year + 1 : parts.year, december ? 1 : parts.month + 1, 1);
  return {Date::of_day(parts.year, parts.month, 1), next.plus_days(-1)};
}

}  // namespace

VOVeiculo& DALVeiculo::Consultar(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro) {
  consult(Ic_RestaurarDefaulSeNaoEcontrarRegistro, [&] {
    if (Ic_CalculadoAcumuloNaConsulta) VerificarAcumulos();
  });
  return *ObVO;
}

void DALVeiculo::VerificarAcumulos() {
  routine("VerificarAcumulos", [&] {
    ObVO->Vl_AcumuloAFaturar = AcumulosAFaturarPeriodoAtual();
    ObVO->Qt_ConsumoMedio = ConsumoMedio();
  });
}

Currency DALVeiculo::AcumulosAFaturarPeriodoAtual() {
  return routine("AcumulosAFaturarPeriodoAtual", [&] {
    const Period month = month_of(clock_now());
    return sum_of_rows(read(sql(R"(
        SELECT   Sum(CupomFiscal.Vl_TotalLiquido) AS SomaDeVl_TotalLiquido
        FROM     CupomFiscal
        WHERE    CupomFiscal.Cd_Veiculo = '{}' And
                 CupomFiscal.Dt_Fechamento Between {} And {}
        GROUP BY CupomFiscal.Cd_PessoaUsuaria, CupomFiscal.Fl_Fechada, CupomFiscal.Tp_Venda
        HAVING   CupomFiscal.Cd_PessoaUsuaria = {} And
                 CupomFiscal.Fl_Fechada = 'N' And
                 CupomFiscal.Tp_Venda Between 10 And 19)",
                                ObVO->Cd_Veiculo, DateSemHoraToSql(month.first, *ObVOSistema),
                                DateSemHoraToSql(month.last, *ObVOSistema), ObVO->Cd_PessoaUsuaria)),
                       "SomaDeVl_TotalLiquido");
  });
}

double DALVeiculo::ConsumoMedio() {
  return routine("ConsumoMedio", [&] {
    return read(sql(R"(
        SELECT Avg(Qt_KmPorLitro) As Qt_ConsumoMedio
        FROM   ItemCupomFiscal
               INNER JOIN CupomFiscal On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria And
                                         ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora And
                                         ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal And
                                         ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
        WHERE  CupomFiscal.Cd_PessoaUsuaria = {} And
               CupomFiscal.Cd_Veiculo = '{}')",
                    ObVO->Cd_PessoaUsuaria, ObVO->Cd_Veiculo))["Qt_ConsumoMedio"]
        .value_or(0.0);
  });
}

Recordset DALVeiculo::Rs_AbastecimentosVeiculoNoDia(Date Dt_Pesquisa) {
  return routine("Rs_AbastecimentosVeiculoNoDia", [&] {
    return open(sql(R"(
        SELECT CupomFiscal.*
        FROM   CupomFiscal
        WHERE  CupomFiscal.Cd_PessoaUsuaria = {} AND
               CupomFiscal.Cd_Veiculo = '{}' AND
               CupomFiscal.Dt_Emissao = {})",
                    ObVO->Cd_PessoaUsuaria, ObVO->Cd_Veiculo, DateSemHoraToSql(Dt_Pesquisa, *ObVOSistema)));
  });
}

}  // namespace posto
