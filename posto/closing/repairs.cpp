// What is mended before a day is examined. Each selects by what it mends, so that it can run again.
#include <cmath>

#include "posto/closing/DALFecDiario.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/types/number_pattern.h"

namespace posto {
namespace {

constexpr std::int32_t kTyped = 3;  // of Tp_OrigemRegistro
constexpr double kTolerance = 1;    // litres that two readings may be off
constexpr float kFirst = 1;         // a running reading below this has not begun

}  // namespace

Recordset DALFecDiario::Rs_BaixaAbastecimentoDuplicidade(Date Dt_Fechamento, std::string&) {
  return routine("VerificarBaixaAbastecimentoDuplicidade", [&] {
    execute(sql(R"(
        Update ItemCupomFiscal
        Set    Cd_Abastecimento = Null
        WHERE  Cd_PessoaUsuaria = {} And
               Cd_Produto > 5 And
               (Not Cd_Abastecimento Is Null) And
               (SELECT Fl_VendBomba
                FROM   Produto
                WHERE  Produto.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria And
                       Produto.Cd_Produto = ItemCupomFiscal.Cd_Produto) = 0)",
                tenant()));
    return detached(sql(R"(
        SELECT   Cd_Abastecimento, Count(*) As Qt_BaixasDoAbastecimento
        FROM     ItemCupomFiscal
        WHERE    Cd_PessoaUsuaria = {} And
                 Dt_Emissao <= {} And
                 (Not Cd_Abastecimento Is Null)
        GROUP BY Cd_Abastecimento
        HAVING   Count(*) > 1)",
                        tenant(), day_literal(Dt_Fechamento)));
  });
}

bool DALFecDiario::CorrigeProblemaAbastecimentoZerado() {
  return routine("CorrigeProblemaAbastecimentoZerado", [&] {
    const std::string day = format_date(ObVO->Dt_FecDiario, ObVOSistema->Ds_FormatoData);
    Recordset rows = detached(sql(R"(
        SELECT A.Cd_PessoaUsuaria, A.Cd_Abastecimento, B.Qt_Unidade
        FROM   Abastecimento A
               INNER JOIN ItemCupomFiscal B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And
                                               A.Cd_Abastecimento = B.Cd_Abastecimento
        WHERE  A.Cd_PessoaUsuaria = {} And
               (A.Dt_Termino  Between '{} 00:00:00' and '{} 23:59:59' or B.Dt_Emissao = '{}') And
               A.Qt_Litros = 0 And
               B.Qt_Unidade > 0)",
                                  ObVO->Cd_PessoaUsuaria, day, day, day));
    for (; !rows.EOF(); rows.MoveNext()) {
      execute(sql(R"(
          Update Abastecimento
          SET    Qt_Litros = {}
          WHERE  Cd_PessoaUsuaria = {} And
                 Cd_Abastecimento = {})",
                  format_number(rows["Qt_Unidade"].as<double>(), "########0.0#####", kPointLocale),
                  ObVO->Cd_PessoaUsuaria, rows["Cd_Abastecimento"].as<std::int32_t>()));
    }
    return true;
  });
}

bool DALFecDiario::CorrigeProblemaIntervaloNosAbastecimentosDigitados() {
  return routine("CorrigeProblemaIntervaloNosAbastecimentosDigitados", [&] {
    const std::string since = "'" + format_date(ObVO->Dt_FecDiario, ObVOSistema->Ds_FormatoData) + " 00:00:00'";
    Recordset nozzles = detached(sql(R"(
        SELECT   Bomba.Cd_Bomba, Bomba.De_EnderecoLogicoBico
        FROM     Bomba
                 INNER JOIN Abastecimento On Bomba.Cd_PessoaUsuaria = Abastecimento.Cd_PessoaUsuaria And
                                             Bomba.De_EnderecoLogicoBico = Abastecimento.De_EnderecoLogicoBico
        WHERE    Bomba.Cd_PessoaUsuaria = {} And
                 Abastecimento.Tp_OrigemRegistro = 3 And
                 Dt_Termino >= {}
        GROUP BY Bomba.Cd_Bomba, Bomba.De_EnderecoLogicoBico)",
                                     ObVO->Cd_PessoaUsuaria, since));
    for (; !nozzles.EOF(); nozzles.MoveNext()) {
      put_fuellings_in_sequence(nozzles["Cd_Bomba"].as<std::int32_t>(),
                                nozzles["De_EnderecoLogicoBico"].as<std::string>(), since);
    }
    return true;
  });
}

void DALFecDiario::put_fuellings_in_sequence(std::int32_t nozzle, const std::string& address,
                                             const std::string& since) {
  float reading = 0;
  Recordset fuellings = detached(sql(R"(
      SELECT   *
      FROM     Abastecimento
      WHERE    Cd_PessoaUsuaria = {} And
               De_EnderecoLogicoBico = '{}' And
               Dt_Termino >= {}
      ORDER BY Dt_Termino, No_Contador, Cd_Abastecimento)",
                                     ObVO->Cd_PessoaUsuaria, address, since));
  for (; !fuellings.EOF(); fuellings.MoveNext()) {
    const double stored = fuellings["No_EncerranteFechamento"].value_or(0.0);
    const float litres = fuellings["Qt_Litros"].value_or(0.0f);
    if (reading < kFirst) reading = static_cast<float>(stored - static_cast<double>(litres));
    const float expected = reading + litres;
    const bool is_off = std::abs(stored - static_cast<double>(expected)) > kTolerance;
    if (is_off && fuellings["Tp_OrigemRegistro"].value_or(std::int32_t{0}) == kTyped) {
      execute(sql(R"(
          Update Abastecimento
          Set    No_EncerranteFechamento = {}
          WHERE  Cd_Abastecimento = {})",
                  RealToSql(expected, 4), fuellings["Cd_Abastecimento"].as<std::int32_t>()));
      reading = expected;
    } else {
      reading = static_cast<float>(stored);
    }
  }
  execute(sql(R"(
      Update Bomba
      SET    No_UltEncerrante = {},
             No_UltEncerranteAutomacao = {}
      WHERE  Cd_PessoaUsuaria = {} And
             Cd_Bomba = {})",
              FloatToSql(reading, 3), FloatToSql(reading, 3), ObVO->Cd_PessoaUsuaria, nozzle));
}

}  // namespace posto
