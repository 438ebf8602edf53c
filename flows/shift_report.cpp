// What stands about shifts: their list, and the summary of one.
#include <algorithm>

#include "flows/lookup.h"
#include "flows/shift.h"
#include "posto/core/mapper.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/masterdata/DALPessoa.h"
#include "posto/treasury/DALCaixa.h"

namespace posto::flows {
namespace {

SummaryGroup group_of(Recordset& rows) {
  auto text = [&](std::string_view column) { return rows[column].value_or(std::string()); };
  return {.code = rows["Cd_Grupo"].as<Currency>(),
          .name = text("Nm_Grupo"),
          .heads = {text("Label1"), text("Label2"), text("Label3"), text("Label4")},
          .rows = {}};
}

SummaryRow row_of(Recordset& rows) {
  SummaryRow row{
      .item = rows["Cd_Item"].value_or(std::int32_t{0}), .name = rows["Nm_Item"].value_or(std::string()), .values = {}};
  for (std::size_t i = 0; i < row.values.size(); ++i) {
    const Field value = rows["Valor" + std::to_string(i + 1)];
    if (!value.is_null()) row.values[i] = value.as<Currency>();
  }
  return row;
}

}  // namespace

std::vector<ShiftLine> shifts_between(Station& station, Date first, Date last) {
  const VOSistema& settings = *station.settings;
  Recordset rows = station.connection().Execute(sql(R"(
      SELECT   Caixa.*, Pessoa.Nm_Pessoa
      FROM     Caixa
               LEFT JOIN Pessoa On Caixa.Cd_Funcionario = Pessoa.Cd_Pessoa
      WHERE    Caixa.Cd_PessoaUsuaria = {} And
               Caixa.Dt_Abertura Between {} And {}
      ORDER BY Caixa.Dt_Abertura, Caixa.No_Sequencial, Pessoa.Nm_Pessoa, Caixa.Cd_Caixa)",
                                                    station.tenant(), DateSemHoraToSql(first, settings),
                                                    DateSemHoraToSql(last, settings)));
  std::vector<ShiftLine> shifts;
  for (; !rows.EOF(); rows.MoveNext()) {
    ShiftLine& line = shifts.emplace_back();
    read_record(rows, by_name(line.shift));
    line.employee = rows["Nm_Pessoa"].value_or(std::string());
  }
  return shifts;
}

std::string person_name(Station& station, std::int32_t code) {
  DALPessoa person(station.settings);
  person.ObVO->Cd_Pessoa = code;
  if (code == 0 || !stands([&] { person.Consultar(); })) return {};
  return person.ObVO->Nm_Pessoa;
}

std::vector<SummaryGroup> shift_summary(Station& station, const VOCaixa& settled) {
  DALCaixa shift(station.settings);
  *shift.ObVO = settled;
  std::vector<SummaryGroup> groups;
  Transaction undone(station.settings->ObConnection);
  shift.GerarDadosParaResumoDeCaixa();
  Recordset rows =
      station.connection().Execute("SELECT * FROM TempRelCaixa14 ORDER BY Cd_Grupo, Cd_Item, Nm_Item, Valor2");
  for (; !rows.EOF(); rows.MoveNext()) {
    if (groups.empty() || groups.back().code != rows["Cd_Grupo"].as<Currency>()) groups.push_back(group_of(rows));
    groups.back().rows.push_back(row_of(rows));
  }
  // The result's two rows are of one item: what is owed stands first, and below zero.
  std::ranges::sort(groups.front().rows, {}, [](const SummaryRow& row) { return row.values[2]; });
  return groups;
}

}  // namespace posto::flows
