#include "program/command.h"

#include <fmt/format.h>
#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <memory>

namespace posto::program {
namespace {

std::string on_one_line(std::string_view text) {
  std::string line;
  bool blank = false;
  for (char c : text) {
    bool is_blank = c == ' ' || c == '\r' || c == '\n' || c == '\t';
    if (is_blank && !blank && !line.empty()) line += ' ';
    if (!is_blank) line += c;
    blank = is_blank;
  }
  return line;
}

}  // namespace

StatementObserver Session::observer() const {
  if (!trace) return {};
  return [](const StatementReport& report) {
    fmt::print(stderr, "[{:9.3f} ms {:6} linhas] {}\n", static_cast<double>(report.duration.count()) / 1e6, report.rows,
               on_one_line(report.statement));
  };
}

flows::Station Session::open() const { return flows::open_station(database, company, observer()); }

CLI::App* add_command(CLI::App& app, Session& session, const char* name, const char* description,
                      std::function<void()> run) {
  CLI::App* command = app.add_subcommand(name, description)->group("Comandos");
  command->add_option("banco", session.database, "arquivo do banco, ou texto de conexão")->required();
  command->add_option("--empresa", session.company, "código da empresa usuária, quando há mais de uma")
      ->check(whole_number());
  command->add_flag("--trace", session.trace, "mostra cada comando com o tempo e as linhas");
  command->callback(std::move(run));
  return command;
}

void add_form(CLI::App* command, Form& form) {
  auto* csv = command->add_flag_callback(
      "--csv", [&form] { form = Form::csv; }, "resposta em CSV");
  command
      ->add_flag_callback(
          "--json", [&form] { form = Form::json; }, "resposta em JSON")
      ->excludes(csv);
}

void add_day(CLI::App* command, const char* name, Date& day, const char* description) {
  auto read = [&day](const std::string& text) {
    auto date = text.size() == 10 ? Date::parse_iso(text) : std::nullopt;
    if (date) day = *date;
    return date.has_value();
  };
  auto check = [](const std::string& text) {
    bool good = text.size() == 10 && Date::parse_iso(text).has_value();
    return good ? std::string() : "'" + text + "' não é uma data (aaaa-mm-dd)";
  };
  command->add_option_function<std::string>(name, read, description)->check(check)->type_name("DATA");
}

void require_period(Date first, Date last) {
  if (first.empty() || last.empty() || first <= last) return;
  throw CLI::ValidationError(fmt::format("o período termina ({}) antes de começar ({})",
                                         format_date(last, "dd/mm/yyyy"), format_date(first, "dd/mm/yyyy")));
}

// The command-line library's own check goes by floating point and tells the range in it.
CLI::Validator whole_number(std::int32_t least, std::int32_t most) {
  return {[least, most](const std::string& text) {
            std::int32_t number = 0;
            const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
            const bool whole = error == std::errc() && end == text.data() + text.size();
            if (whole && number >= least && number <= most) return std::string();
            return fmt::format("'{}' não é um número inteiro de {} a {}", text, least, most);
          },
          ""};
}

CLI::Validator existing_file() { return CLI::Validator(CLI::ExistingFile).description(""); }

CLI::Validator existing_folder() { return CLI::Validator(CLI::ExistingDirectory).description(""); }

ProgressLine::ProgressLine(std::string what) : what_(std::move(what)), terminal_(isatty(STDERR_FILENO) == 1) {}

ProgressLine::~ProgressLine() {
  if (shown_ >= 0) fmt::print(stderr, "\r\x1b[K");
}

void ProgressLine::show(std::size_t done, std::size_t total, std::string_view detail) {
  if (!terminal_) return;
  const int percent = total == 0 ? 100 : static_cast<int>(100 * done / total);
  if (percent == shown_ && detail == detail_) return;
  shown_ = percent;
  detail_ = detail;
  fmt::print(stderr, "\r\x1b[K{}: {} % {}", what_, percent, detail);
  std::fflush(stderr);
}

}  // namespace posto::program
