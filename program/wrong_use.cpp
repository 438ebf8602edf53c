#include "program/wrong_use.h"

#include <string_view>
#include <utility>

namespace posto::program {
namespace {

// The library's phrases, as far as the commands can meet them. Longer ones stand before what they begin with.
constexpr std::pair<std::string_view, std::string_view> kPhrases[] = {
    {"A subcommand is required", "falta o comando"},
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
    {"Value ", ""},
    {" not in range ", " não está no intervalo de "},
    {"Number less or equal to 0", "não é positivo"},
    {" to ", " a "}};

std::string translated(std::string text) {
  for (const auto& [english, portuguese] : kPhrases) {
    if (const std::size_t at = text.find(english); at != std::string::npos)
      text.replace(at, english.size(), portuguese);
  }
  return text;
}

constexpr std::pair<const char*, const char*> kLabels[] = {
    {"Usage", "Uso"},      {"Options", "Opções"},     {"Positionals", "Argumentos"}, {"Subcommands", "Comandos"},
    {"OPTIONS", "OPÇÕES"}, {"SUBCOMMAND", "COMANDO"}, {"SUBCOMMANDS", "COMANDOS"},   {"REQUIRED", "obrigatório"},
    {"TEXT", "TEXTO"},     {"INT", "NÚMERO"},         {"Excludes", "não com"},       {"Needs", "pede"}};

}  // namespace

void speak_portuguese(CLI::App& app) {
  for (const auto& [english, portuguese] : kLabels) app.get_formatter()->label(english, portuguese);
  app.set_help_flag("-h,--help", "mostra esta ajuda");
  app.failure_message([](const CLI::App*, const CLI::Error& wrong) {
    return translated(wrong.what()) + "\nA ajuda está em --help.\n";
  });
}

}  // namespace posto::program
