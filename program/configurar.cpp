#include <fmt/format.h>

#include <cstdio>
#include <filesystem>

#include "posto/core/DALSistema.h"
#include "posto/core/error_vocabulary.h"
#include "program/answer.h"
#include "program/command.h"

namespace posto::program {
namespace {

constexpr std::int32_t kPathNotFound = 76;

struct ConfigurarOptions {
  std::vector<std::string> changes;
  bool secrets = false;
  bool check = false;
  Form form = Form::aligned;
};

// The folder whose settings are meant: the given one, or that of a file in it.
std::string folder_of(const std::string& path) {
  std::error_code unreachable;
  if (std::filesystem::is_directory(path, unreachable)) return path;
  if (std::filesystem::exists(path, unreachable)) return std::filesystem::absolute(path).parent_path();
  throw Erro(kPathNotFound, {}, "Não há pasta nem arquivo " + path);
}

// "Secao.Chave=valor". Raises 0x80040660 when there is no such setting; the value is told nowhere.
SettingChange read_change(const std::string& text) {
  const std::size_t equals = text.find('=');
  const std::string name = text.substr(0, equals);
  const std::size_t point = name.find('.');
  if (equals == std::string::npos || point == std::string::npos) {
    throw Erro(erro::kRuleViolation, {}, "Uma configuração se escreve Secao.Chave=valor");
  }
  const Setting* setting = find_setting(name.substr(0, point), name.substr(point + 1));
  if (setting == nullptr) throw Erro(erro::kRuleViolation, {}, "Não há a configuração " + name);
  return {setting, text.substr(equals + 1)};
}

// Writes all changes or, with the status that says so, none.
void change(DALSistema& store, const ConfigurarOptions& options, Session& session) {
  try {
    std::vector<SettingChange> changes;
    for (const std::string& text : options.changes) changes.push_back(read_change(text));
    store.change(changes);
  } catch (const Erro& failure) {
    if (failure.number() != erro::kRuleViolation) throw;
    fmt::print(stderr, "{}\nNada foi gravado.\n", failure.description());
    session.status = kWrongUse;
    return;
  }
  if (options.form == Form::aligned) fmt::print("Gravado em {}\n", store.settings_path());
}

void show(DALSistema& store, const ConfigurarOptions& options) {
  Answer answer({{"Seção", "Secao"}, {"Chave", "Chave"}, {"Valor", "Valor"}});
  std::size_t without = 0;
  for (const StoredSetting& found : store.inspect()) {
    const Setting& setting = *found.setting;
    const bool good = found.state == SettingState::good;
    if (!good) ++without;
    const Variant value = !good                                  ? Variant(Null{})
                          : setting.secret() && !options.secrets ? Variant("********")
                                                                 : Variant(setting_text(found.value));
    answer.add({setting.section, setting.key, value});
  }
  answer.print(options.form);
  std::fflush(stdout);
  if (without > 0) fmt::print(stderr, "{} sem valor que se leia: veja --verificar\n", without);
}

const char* told(SettingState state) {
  switch (state) {
    case SettingState::missing:
      return "falta";
    case SettingState::not_deciphered:
      return "não se decifra";
    case SettingState::not_converted:
      return "não é do tipo da chave";
    case SettingState::good:
      break;
  }
  return "";
}

void check(DALSistema& store, const ConfigurarOptions& options, Session& session) {
  Answer answer({{"Seção", "Secao"}, {"Chave", "Chave"}, {"Situação", "Situacao"}});
  for (const StoredSetting& found : store.inspect()) {
    if (found.state != SettingState::good) answer.add({found.setting->section, found.setting->key, told(found.state)});
  }
  if (answer.size() > 0) session.status = kRefused;
  if (answer.size() > 0 || options.form != Form::aligned) return answer.print(options.form);
  fmt::print("Nenhuma configuração falta.\n");
}

void run(Session& session, const ConfigurarOptions& options) {
  DALSistema store(folder_of(session.database));
  if (!options.changes.empty()) change(store, options, session);
  if (session.status != kDone) return;
  if (options.check) return check(store, options, session);
  if (options.changes.empty()) show(store, options);
}

}  // namespace

void add_configurar(CLI::App& app, Session& session) {
  auto options = std::make_shared<ConfigurarOptions>();
  CLI::App* command =
      add_command(app, session, "configurar", "Mostra, grava e verifica as configurações da estação de trabalho",
                  [&session, options] { run(session, *options); });
  command->get_option("banco")->description("a pasta das configurações, ou um arquivo nela");
  command->remove_option(command->get_option("--empresa"));
  command->add_option("configuracoes", options->changes,
                      "Secao.Chave=valor: o que gravar; sem valor, a chave fica vazia. Tudo se grava, ou nada");
  command->add_flag("--segredos", options->secrets, "mostra também senhas e o que se guarda cifrado");
  command->add_flag("--verificar", options->check, "diz o que falta e o que não se lê; termina com 1 se houver");
  add_form(command, options->form);
}

}  // namespace posto::program
