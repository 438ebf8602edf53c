#include "program/wrong_use.h"

#include <string_view>
#include <utility>

namespace posto::program {
namespace {

constexpr std::string_view kNoCommand = "A subcommand is required";

// The library's phrases, as far as the commands can meet them. Longer ones stand before what they begin with.
constexpr std::pair<std::string_view, std::string_view> kPhrases[] = {
    {kNoCommand, "falta o comando"},
    {" is required", ": falta"},
    {" requires ", " pede "},
    {" excludes ", " não vai com "},
    {"The following arguments were not expected:", "não se espera:"},
    {"The following argument was not expected:", "não se espera:"},
    {"Could not convert: ", "não se entende: "},
    {"Directory does not exist: ", "não há a pasta "},
    {"Directory is actually a file: ", "não é uma pasta: "},
    {"File does not exist: ", "não há o arquivo "},
    {"File is actually a directory: ", "não é um arquivo: "},
    {" required ", " falta: "},
    {" missing", ""},
    {"Value ", ""}};

std::string translated(std::string text) {
  for (const auto& [english, portuguese] : kPhrases) {
    if (const std::size_t at = text.find(english); at != std::string::npos)
      text.replace(at, english.size(), portuguese);
  }
  return text;
}

constexpr std::pair<const char*, const char*> kLabels[] = {{"Usage", "Uso"},
                                                           {"Options", "Opções"},
                                                           {"Positionals", "Argumentos"},
                                                           {"Subcommands", "Comandos"},
                                                           {"OPTIONS", "OPÇÕES"},
                                                           {"SUBCOMMAND", "COMANDO"},
                                                           {"SUBCOMMANDS", "COMANDOS"},
                                                           {"REQUIRED", "obrigatório"},
                                                           {"TEXT", "TEXTO"},
                                                           {"INT", "NÚMERO"},
                                                           {"UINT", "NÚMERO"},
                                                           {"Excludes", "não com"},
                                                           {"Needs", "pede"}};

// The library looks up a label for some of its headings only.
class Formatter : public CLI::Formatter {
  std::string make_group(std::string group, bool is_positional,
                         std::vector<const CLI::Option*> options) const override {
    return CLI::Formatter::make_group(get_label(group), is_positional, std::move(options));
  }
};

std::string what_is_wrong(const CLI::App& app, const CLI::Error& wrong) {
  const std::vector<std::string> unknown = app.remaining();
  if (wrong.what() == kNoCommand && !unknown.empty()) return "não há o comando " + unknown.front();
  return translated(wrong.what());
}

}  // namespace

void speak_portuguese(CLI::App& app) {
  app.formatter(std::make_shared<Formatter>());
  for (const auto& [english, portuguese] : kLabels) app.get_formatter()->label(english, portuguese);
  app.set_help_flag("-h,--help", "mostra esta ajuda");
  app.failure_message([](const CLI::App* failed, const CLI::Error& wrong) {
    return what_is_wrong(*failed, wrong) + "\nA ajuda está em --help.\n";
  });
}

}  // namespace posto::program
