#include "posto/masterdata/DALEmpresaUsuaria.h"

#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"

namespace posto {
namespace {

// Values of No_TipoControleResponsabilidade.
constexpr int kByShift = 1, kByRelease = 2;

}  // namespace

std::string DALEmpresaUsuaria::day(Date date) const { return DateSemHoraToSql(date, *ObVOSistema); }

std::string DALEmpresaUsuaria::days(Date first, Date last) const { return day(first) + " And " + day(last); }

std::string DALEmpresaUsuaria::moments(Date first, Date last) const {
  return "'" + format_date(first, ObVOSistema->Ds_FormatoData) + " 00:00:00' And '" +
         format_date(last, ObVOSistema->Ds_FormatoData) + " 23:59:59'";
}

bool DALEmpresaUsuaria::has_nozzles_under(std::string_view operation, int control) {
  return routine(operation, [&] {
    Recordset rs = read(sql(R"(
        SELECT Count(*) As Qt_Bombas
        FROM   Bomba
        WHERE  Cd_PessoaUsuaria = {} And
               No_TipoControleResponsabilidade = {})",
                            company(), control));
    return rs["Qt_Bombas"].as<std::int32_t>() > 0;
  });
}

bool DALEmpresaUsuaria::ExisteControleResponsabilidadePorTrocaTurno() {
  return has_nozzles_under("ExisteControleResponsabilidadePorTrocaTurno", kByShift);
}

bool DALEmpresaUsuaria::ExisteControleResponsabilidadePorDesbloqueioDeBico() {
  return has_nozzles_under("ExisteControleResponsabilidadePorDesbloqueioDeBico", kByRelease);
}

Date DALEmpresaUsuaria::ObterDataUltimoLmc() {
  return routine("ObterDataUltimoLmc", [&] {
    Recordset rs = read(sql(R"(
        SELECT Max(Dt_Lmc) As Dt_Lmc
        FROM   Lmc
        WHERE  Cd_PessoaUsuaria = {})",
                            company()));
    return rs["Dt_Lmc"].value_or(Date());
  });
}

}  // namespace posto
