#include <fmt/format.h>

#include "flows/lookup.h"
#include "flows/purchase_cancel.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/fiscal/DALNotaEntrada.h"
#include "posto/fiscal/DALNotaSaida.h"
#include "program/answer.h"
#include "program/command.h"

namespace posto::program {
namespace {

struct NotaOptions {
  std::int32_t entry = 0, kind = 0, number = 0;
  bool issued = false, cancel = false, physical = false;
  Date from = Date::of_day(1900, 1, 1), to = Date::of_day(9999, 12, 31);
  Form form = Form::aligned;
};

void print_columns(Recordset rows, const std::vector<AnswerColumn>& columns, Form form) {
  Answer answer(columns);
  for (; !rows.EOF(); rows.MoveNext()) {
    std::vector<Variant> values;
    values.reserve(columns.size());
    for (const AnswerColumn& column : columns) values.push_back(rows[column.name].Value());
    answer.add(std::move(values));
  }
  answer.print(form);
}

// Purchase notes by day of delivery, issued invoices by day of issue.
void list(const flows::Station& station, const NotaOptions& o) {
  const std::string from = DateSemHoraToSql(o.from, *station.settings), to = DateSemHoraToSql(o.to, *station.settings);
  if (o.issued) {
    print_columns(station.connection().Execute(sql(R"(
        SELECT   Cd_TipoNF, No_Nota, Dt_Emissao, Nm_Pessoa, Vl_TotalLiquido, Ic_Cancelada
        FROM     NotaSaida
                 LEFT JOIN Pessoa ON NotaSaida.Cd_Pessoa = Pessoa.Cd_Pessoa
        WHERE    NotaSaida.Cd_PessoaUsuaria = {} And
                 Dt_Emissao Between {} And {}
        ORDER BY Dt_Emissao, Cd_TipoNF, No_Nota)",
                                                   station.tenant(), from, to)),
                  {{"Tipo", "Cd_TipoNF"},
                   {"Nota", "No_Nota"},
                   {"Emissão", "Dt_Emissao", "dd/mm/yyyy"},
                   {"Destinatário", "Nm_Pessoa"},
                   {"Total", "Vl_TotalLiquido", kMoney},
                   {"Cancelada", "Ic_Cancelada"}},
                  o.form);
    return;
  }
  print_columns(station.connection().Execute(sql(R"(
      SELECT   No_Entrada, Cd_TipoNF, No_Nota, Nm_Pessoa, NotaEntrada.Dt_Emissao, Dt_Entrega, Vl_TotalNota,
               Ic_Concluido
      FROM     NotaEntrada
               LEFT JOIN Pessoa ON NotaEntrada.Cd_Fornecedor = Pessoa.Cd_Pessoa
      WHERE    NotaEntrada.Cd_PessoaUsuaria = {} And
               Dt_Entrega Between {} And {}
      ORDER BY Dt_Entrega, No_Entrada)",
                                                 station.tenant(), from, to)),
                {{"Entrada", "No_Entrada"},
                 {"Tipo", "Cd_TipoNF"},
                 {"Nota", "No_Nota"},
                 {"Fornecedor", "Nm_Pessoa"},
                 {"Emissão", "Dt_Emissao", "dd/mm/yyyy"},
                 {"Entrega", "Dt_Entrega", "dd/mm/yyyy"},
                 {"Total", "Vl_TotalNota", kMoney},
                 {"Concluída", "Ic_Concluido"}},
                o.form);
}

void show_purchase(const flows::Station& station, const NotaOptions& o) {
  DALNotaEntrada note(station.settings);
  note.ObVO->Cd_PessoaUsuaria = station.tenant();
  note.ObVO->No_Entrada = o.entry;
  note.Consultar();
  print_columns(note.ItensRs(),
                {{"Item", "No_Item"},
                 {"Produto", "Cd_ProdutoItem"},
                 {"Nome", "Nm_Produto"},
                 {"CFOP", "Cd_CfopItem"},
                 {"Quantidade", "Qt_UnidadeItem", kQuantity},
                 {"Unitário", "Vl_UnitNota", "###,##0.0000"},
                 {"Total", "Vl_TotalItem", kMoney},
                 {"Custo unitário", "Vl_UnitFinal", "###,##0.0000"},
                 {"Crédito ICMS", "Vl_CredIcms", kMoney}},
                o.form);
  if (o.form != Form::aligned) return;  // a program reads one table
  Recordset deliveries = note.DescargasRs();
  if (deliveries.EOF()) return;
  fmt::print("\n");
  print_columns(std::move(deliveries),
                {{"Tanque", "No_Tanque"}, {"Produto", "Nm_Produto"}, {"Litros", "Qt_UnidadeDescarga", kQuantity}},
                o.form);
}

void show_invoice(const flows::Station& station, const NotaOptions& o) {
  DALNotaSaida invoice(station.settings);
  invoice.ObVO->Cd_PessoaUsuaria = station.tenant();
  invoice.ObVO->Cd_TipoNF = o.kind;
  invoice.ObVO->No_Nota = o.number;
  invoice.Consultar();
  print_columns(invoice.Rs_ItensTodos(),
                {{"Item", "No_Item"},
                 {"Produto", "Cd_Produto"},
                 {"Nome", "Nm_Produto"},
                 {"CFOP", "Cd_CfopItem"},
                 {"Quantidade", "Qt_Unidade", kQuantity},
                 {"Unitário", "Vl_UnitVenda", "###,##0.0000"}},
                o.form);
}

void cancel(flows::Station& station, Session& session, const NotaOptions& o) {
  const flows::Cancelled done =
      o.entry != 0
          ? flows::cancel_purchase(station, o.entry)
          : flows::cancel_invoice(station, o.kind, o.number, o.physical ? CdTipoExclusaoFisica : CdTipoExclusaoLogica);
  Answer answer({{"Linhas", "Qt_Linhas"}, {"Movimentos", "Qt_Movimentos"}, {"Descargas", "Qt_Descargas"}});
  if (!done.refused.empty()) {
    fmt::print(stderr, "Recusado: {}\n", done.refused);
    session.status = kRefused;
    return;
  }
  auto count = [](std::size_t n) { return static_cast<std::int32_t>(n); };
  answer.add({count(done.lines), count(done.movements), count(done.deliveries)});
  answer.print(o.form);
}

void run(Session& session, const NotaOptions& o) {
  const bool one = o.entry != 0 || o.number != 0;
  if (o.cancel && !one) throw CLI::ValidationError("--cancelar", "pede --entrada, ou --tipo e --numero");
  require_period(o.from, o.to);
  flows::Station station = session.open();
  if (!one) return list(station, o);
  if (o.cancel) return cancel(station, session, o);
  o.entry != 0 ? show_purchase(station, o) : show_invoice(station, o);
}

}  // namespace

void add_nota(CLI::App& app, Session& session) {
  auto o = std::make_shared<NotaOptions>();
  CLI::App* command = add_command(app, session, "nota", "Lista, mostra ou cancela notas de compra e notas emitidas",
                                  [&session, o] { run(session, *o); });
  auto* entry = command->add_option("--entrada", o->entry, "número de entrada de uma nota de compra");
  auto* kind = command->add_option("--tipo", o->kind, "tipo de uma nota emitida");
  auto* number = command->add_option("--numero", o->number, "número de uma nota emitida");
  for (CLI::Option* option : {entry, kind, number}) option->check(whole_number());
  kind->needs(number)->excludes(entry);
  number->needs(kind);
  command->add_flag("--saidas", o->issued, "lista as notas emitidas, e não as de compra")->excludes(entry);
  add_day(command, "--de", o->from, "primeiro dia da lista (entrega, ou emissão das emitidas)");
  add_day(command, "--ate", o->to, "último dia da lista");
  auto* cancel = command->add_flag("--cancelar", o->cancel, "cancela a nota e devolve o estoque");
  command->add_flag("--fisica", o->physical, "apaga a nota emitida em vez de só cancelar")
      ->needs(cancel)
      ->needs(number);
  add_form(command, o->form);
}

}  // namespace posto::program
