// The commands that open, close and check cash shifts, and their list.
#include <fmt/format.h>

#include <charconv>
#include <cmath>

#include "posto/core/enumerations.h"
#include "posto/services/clock.h"
#include "program/answer.h"
#include "program/caixa_commands.h"

namespace posto::program {
namespace {

struct CaixaOperationsOptions {
  std::int32_t shift = 0, employee = 0, kind = 0;
  std::vector<flows::NozzleReading> nozzles;
  flows::CashDrops drops;
  Currency amount;
  std::string description;
  bool accept = false;
  Date first, last;
  Form form = Form::aligned;
};

// --- what is typed

// Plain digits with a comma or a point.
template <class Number>
std::optional<Number> number_of(std::string text) {
  if (const std::size_t comma = text.find(','); comma != std::string::npos) text[comma] = '.';
  Number number{};
  const char* last = text.data() + text.size();
  std::from_chars_result read{};
  if constexpr (std::is_floating_point_v<Number>) {
    read = std::from_chars(text.data(), last, number, std::chars_format::fixed);
    if (!std::isfinite(number)) return std::nullopt;
  } else {
    read = std::from_chars(text.data(), last, number);
  }
  if (read.ec != std::errc() || read.ptr != last) return std::nullopt;
  return number;
}

// "3" or "3=1284561,327".
flows::NozzleReading reading_of(const std::string& text) {
  flows::NozzleReading reading;
  const std::size_t sign = text.find('=');
  const auto nozzle = number_of<std::int32_t>(text.substr(0, sign));
  if (sign != std::string::npos) reading.electronic = number_of<double>(text.substr(sign + 1));
  if (!nozzle || (sign != std::string::npos && !reading.electronic)) {
    throw CLI::ValidationError("'" + text + "' não é BICO nem BICO=ENCERRANTE");
  }
  reading.nozzle = *nozzle;
  return reading;
}

Currency amount_of(const std::string& text) {
  std::string plain = text;
  if (const std::size_t comma = plain.find(','); comma != std::string::npos) plain[comma] = '.';
  try {
    return Currency::parse(plain);
  } catch (const Erro&) {
    throw CLI::ValidationError("'" + text + "' não é um valor");
  }
}

void add_employee(CLI::App* command, CaixaOperationsOptions& options, const char* description) {
  command->add_option("--funcionario", options.employee, description)
      ->required()
      ->check(whole_number())
      ->type_name("CÓDIGO");
}

CLI::Option* add_nozzles(CLI::App* command, CaixaOperationsOptions& options, const char* description) {
  return command
      ->add_option_function<std::vector<std::string>>(
          "--bico",
          [&options](const std::vector<std::string>& texts) {
            for (const std::string& text : texts) options.nozzles.push_back(reading_of(text));
          },
          description)
      ->type_name("BICO[=ENCERRANTE]")
      ->expected(1)
      ->take_all();
}

void add_drops(CLI::App* command, CaixaOperationsOptions& options) {
  const auto add = [&](const char* name, std::optional<Currency>& amount, const char* description) {
    command
        ->add_option_function<std::string>(
            name, [&amount](const std::string& text) { amount = amount_of(text); }, description)
        ->type_name("VALOR");
  };
  add("--falta", options.drops.missing, "o que faltou nas sangrias contadas");
  add("--sobra", options.drops.surplus, "o que sobrou nas sangrias contadas");
}

// --- what is done

void open(flows::Station& station, const CaixaOperationsOptions& options) {
  const VOCaixa shift = flows::open_shift(station, options.employee, options.nozzles);
  fmt::print("{}\n", shift_title(papers_of(station, shift)));
}

void close(flows::Station& station, const CaixaOperationsOptions& options) {
  const VOCaixa shift = flows::close_shift(station, options.shift, options.nozzles, options.drops);
  print_settlement(papers_of(station, shift));
}

void print_findings(const flows::CheckedShift& result) {
  if (!result.coupons.empty()) {
    fmt::print("\nCupons cujos recebimentos não são o total\n");
    Answer answer({{"Impressora", {}},
                   {"Cupom", {}},
                   {"Data", {}, "dd/mm/yyyy"},
                   {"Total", {}, kMoney},
                   {"Recebido", {}, kMoney}});
    for (const flows::CouponMismatch& c : result.coupons) {
      Variant received = Null{};
      if (c.receipts) received = *c.receipts;
      answer.add({c.printer, c.number, c.day, c.total, received});
    }
    answer.print(Form::aligned);
  }
  if (!result.fuellings.empty()) {
    fmt::print("\nAbastecimentos sem cupom\n");
    Answer answer(
        {{"Abastecimento", {}}, {"Bico", {}}, {"Término", {}}, {"Litros", {}, "###,##0.000"}, {"Total", {}, kMoney}});
    for (const flows::PendingFuelling& f : result.fuellings) {
      answer.add({f.code, f.address, f.end, f.litres, f.total});
    }
    answer.print(Form::aligned);
  }
}

void check(flows::Station& station, const CaixaOperationsOptions& options, Session& session) {
  const flows::CheckedShift result =
      flows::check_shift(station, options.shift, options.employee, options.accept, options.drops);
  print_settlement(papers_of(station, result.shift));
  print_findings(result);
  if (result.checked) return;
  fmt::print("\nO caixa {} não foi conferido. O que não puder ser corrigido é aceito com --aceitar.\n", options.shift);
  session.status = kRefused;
}

std::string_view state_text(std::int32_t state) {
  switch (state) {
    case Cd_SituacaoAberto:
      return "aberto";
    case Cd_SituacaoFechado:
      return "fechado";
    case Cd_SituacaoConferido:
      return "conferido";
    default:
      return "-";
  }
}

void list(flows::Station& station, const CaixaOperationsOptions& options) {
  require_period(options.first, options.last);
  const Date last = options.last.empty() ? (options.first.empty() ? clock_now().day() : options.first) : options.last;
  print_shifts(flows::shifts_between(station, options.first.empty() ? last : options.first, last), options.form);
}

}  // namespace

void print_shifts(const std::vector<flows::ShiftLine>& shifts, Form form) {
  Answer answer({{"Caixa", "Cd_Caixa"},
                 {"Dia", "Dt_Abertura", "dd/mm/yyyy"},
                 {"Turno", "No_Sequencial"},
                 {"Funcionário", "Nm_Pessoa"},
                 {"Aberto às", "Hr_Abertura"},
                 {"Situação", "Ds_Situacao"},
                 {"Débitos", "Vl_SomaDebitos", kMoney},
                 {"Créditos", "Vl_SomaCreditos", kMoney},
                 {"Diferença", "Vl_Diferenca", kMoney}});
  for (const auto& [s, employee] : shifts) {
    answer.add({s.Cd_Caixa, s.Dt_Abertura, s.No_Sequencial, employee, s.Hr_Abertura,
                std::string(state_text(s.Cd_Situacao)), s.Vl_SomaDebitos, s.Vl_SomaCreditos, s.Vl_Diferenca});
  }
  answer.print(form);
}

CLI::Option* add_shift(CLI::App* command, std::int32_t& shift) {
  return command->add_option("--caixa", shift, "código do caixa")
      ->required()
      ->check(whole_number())
      ->type_name("CÓDIGO");
}

void add_shift_operations(CLI::App& app, Session& session) {
  const auto options = std::make_shared<CaixaOperationsOptions>();
  const auto add = [&](const char* name, const char* description, auto run) {
    return add_command(app, session, name, description, [&session, options, run] {
      flows::Station station = session.open();
      run(station, *options);
    });
  };

  CLI::App* opens = add("abrir-caixa", "Abre um caixa para um funcionário, com os bicos por que responde", open);
  add_employee(opens, *options, "código do funcionário");
  add_nozzles(opens, *options, "bico, e o encerrante se não for o do último abastecimento; pode repetir-se");

  CLI::App* closes = add("fechar-caixa", "Fecha um caixa com o seu acerto", close);
  add_shift(closes, options->shift);
  add_nozzles(closes, *options, "bico com o seu encerrante, se não for o do último abastecimento; pode repetir-se");
  add_drops(closes, *options);

  CLI::App* checks =
      add("conferir-caixa", "Confere um caixa fechado; termina com 1 quando há o que corrigir",
          [&session](flows::Station& station, const CaixaOperationsOptions& o) { check(station, o, session); });
  add_shift(checks, options->shift);
  add_employee(checks, *options, "código de quem confere");
  add_drops(checks, *options);
  checks->add_flag("--aceitar", options->accept, "confere mesmo com o que foi encontrado");

  CLI::App* takes = add("assumir-bico", "Passa bicos a um caixa aberto",
                        [](flows::Station& station, const CaixaOperationsOptions& o) {
                          flows::take_nozzles(station, o.shift, o.nozzles);
                        });
  CLI::App* leaves =
      add("deixar-bico", "Tira bicos de um caixa aberto", [](flows::Station& station, const CaixaOperationsOptions& o) {
        flows::leave_nozzles(station, o.shift, o.nozzles);
      });
  for (CLI::App* command : {takes, leaves}) {
    add_shift(command, options->shift);
    add_nozzles(command, *options, "bico, e o encerrante se não for o do último abastecimento; pode repetir-se")
        ->required();
  }

  CLI::App* divergence = add("divergencia", "Grava a divergência de um tipo em um caixa",
                             [](flows::Station& station, const CaixaOperationsOptions& o) {
                               flows::set_divergence(station, o.shift, o.kind, o.amount, o.description);
                             });
  add_shift(divergence, options->shift);
  divergence->add_option("--tipo", options->kind, "tipo de divergência")
      ->required()
      ->check(whole_number())
      ->type_name("CÓDIGO");
  divergence
      ->add_option_function<std::string>(
          "--valor", [options](const std::string& text) { options->amount = amount_of(text); }, "valor; 0 retira-a")
      ->required()
      ->type_name("VALOR");
  divergence->add_option("--descricao", options->description, "o que houve");

  CLI::App* lists = add("caixas", "Lista os caixas abertos em um período (sem datas, hoje)", list);
  add_day(lists, "--de", options->first, "primeiro dia");
  add_day(lists, "--ate", options->last, "último dia");
  add_form(lists, options->form);
}

}  // namespace posto::program
