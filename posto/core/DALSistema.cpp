#include "posto/core/DALSistema.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "posto/core/criptografia.h"
#include "posto/core/error_vocabulary.h"
#include "posto/core/text_routines.h"
#include "posto/services/files.h"
#include "posto/types/text.h"

namespace posto {
namespace {

// What the settings file holds in place of the connection source text.
constexpr std::string_view kSeeSourceFile = "veja arquivo source";

Erro no_value() { return {erro::kTypeMismatch, {}, "LerRegistro"}; }

// Leaves out what a former release left beside the program.
void delete_leftover(const std::string& folder) {
  const std::string path = file_in(folder, "Vr5.txt");
  if (std::error_code unreachable; !std::filesystem::is_regular_file(path, unreachable)) return;
  std::error_code refused;
  std::filesystem::remove(path, refused);
  if (refused) throw platform_erro(erro::kPathFileAccess, path);
}

// What a setting's text has to be, as it is said to a person.
const char* demand(const Setting& setting) {
  switch (setting.property->type) {
    case SqlType::bit:
      return "Verdadeiro nem Falso";
    case SqlType::byte:
      return "um número de 0 a 255";
    case SqlType::int16:
      return "um número de -32768 a 32767";
    case SqlType::int32:
      return "um número de -2147483648 a 2147483647";
    case SqlType::date:
      return "uma data (dd/mm/aaaa hh:mm:ss)";
    default:
      return setting.enciphered()
                 ? "um texto de até 158 caracteres (os acentuados contam dois)"
                 : "um texto de uma linha em Windows-1252, até 254 caracteres, sem brancos ou aspas em volta";
  }
}

// Numbers of failures that lie in the text.
bool is_about_text(std::int32_t number) {
  return number == erro::kTypeMismatch || number == erro::kOverflow || number == erro::kInvalidCall;
}

// A text that the source file can hold.
bool is_one_line(std::string_view text) {
  return text.find_first_of(std::string_view("\r\n\0", 3)) == std::string_view::npos;
}

}  // namespace

DALSistema::DALSistema(std::string folder) : folder_(std::move(folder)) {
  guarded("DALSistema", "Class_Initialize", [&] { delete_leftover(folder_); });
}

std::string DALSistema::settings_path() const { return file_in(folder_, ObVO->Nm_ArquivoIni); }
std::string DALSistema::source_path() const { return file_in(folder_, "Source"); }

std::string DALSistema::Encriptar(std::string& entrada) {
  if (entrada.empty()) entrada = " ";
  return Criptografia::Encriptar(*ObCrypt, entrada);
}

std::string DALSistema::Desencriptar(std::string_view entrada) { return Criptografia::Desencriptar(*ObCrypt, entrada); }

// The text of a setting as it is stored. Raises 13 when there is none. Blanks before it inside of quotes do not count,
// those behind it do.
std::string DALSistema::LerRegistro(const ProfileText& file, const Setting& setting) const {
  std::string text = file.read(setting.section, setting.key);
  text.erase(0, text.find_first_not_of(' '));
  if (text.empty()) throw no_value();
  return text;
}

std::string DALSistema::clear_text(const Setting& setting, std::string text) {
  if (setting.kept == Kept::enciphered) return Desencriptar(text);
  if (setting.kept == Kept::enciphered_by_module) return Criptografia::Desencriptar(text);
  return text;
}

std::string DALSistema::kept_text(const Setting& setting, std::string text) {
  if (setting.kept == Kept::source_file) {
    if (!is_one_line(text)) throw platform_erro(erro::kInvalidCall, setting.name());
    return std::string(kSeeSourceFile);
  }
  if (setting.kept == Kept::enciphered) text = Encriptar(text);
  if (setting.kept == Kept::enciphered_by_module) text = Criptografia::Encriptar(text);
  if (setting.enciphered() && text.size() > ProfileText::kLongestValue) {
    throw platform_erro(erro::kOverflow, setting.name());
  }
  return text;
}

Variant DALSistema::stored_value(const ProfileText& file, const Setting& setting) {
  if (setting.kept == Kept::source_file) return LeLinhaArquivoTexto(source_path());
  return setting_value(setting, clear_text(setting, LerRegistro(file, setting)));
}

VOSistema& DALSistema::Consultar(bool /*Ic_RestaurarDefaulSeNaoEcontrarRegistro*/) {
  try {
    const ProfileText file = load_profile(settings_path());
    for (const Setting& setting : all_settings()) {
      try {
        ObVO->settings().let(*setting.property, stored_value(file, setting));
      } catch (const Erro& failure) {
        if (failure.number() != erro::kTypeMismatch && failure.number() != erro::kInvalidUseOfNull) throw;
      }
    }
  } catch (const Erro& failure) {
    throw failure.with_step(", DALSistema.Consultar");
  }
  return *ObVO;
}

void DALSistema::GravarRegistro(ProfileText& file, const Setting& setting, std::string text) {
  text = kept_text(setting, std::move(text));
  if (file.write(setting.written_section, setting.written_key, text) > 0) replaced_.push_back(&setting);
}

// The routine writes beside the file, so that the text is never half there.
std::size_t DALSistema::write_source(std::string_view text) const {
  std::size_t lost = 0;
  replace_file(source_path(), [&](const std::string& temporary) { lost = GravaLinhaArquivoTexto(temporary, text); });
  return lost;
}

Variant DALSistema::Salvar() {
  replaced_.clear();
  try {
    change_profile(settings_path(), [&](ProfileText& file) {
      for (const Setting& setting : all_settings()) {
        GravarRegistro(file, setting, setting_text(ObVO->settings().get(*setting.property)));
      }
    });
    if (write_source(ObVO->Source) > 0) replaced_.push_back(find_setting("Persistencia", "Source"));
  } catch (const Erro& failure) {
    throw failure.with_step(", DALSistema.Salvar");
  }
  return {};
}

StoredSetting DALSistema::inspect(const ProfileText& file, const Setting& setting) {
  SettingState step = SettingState::missing;
  try {
    std::string text =
        setting.kept == Kept::source_file ? LeLinhaArquivoTexto(source_path()) : LerRegistro(file, setting);
    step = SettingState::not_deciphered;
    text = clear_text(setting, std::move(text));
    if (trim(text).empty()) return {&setting, SettingState::missing, Null{}};
    step = SettingState::not_converted;
    return {&setting, SettingState::good, setting_value(setting, text)};
  } catch (const Erro& failure) {
    if (failure.number() == erro::kPathFileAccess) throw;
    return {&setting, step, Null{}};
  }
}

std::vector<StoredSetting> DALSistema::inspect() {
  const ProfileText file = load_profile(settings_path());
  std::vector<StoredSetting> found;
  for (const Setting& setting : all_settings()) found.push_back(inspect(file, setting));
  return found;
}

void DALSistema::change(ProfileText& file, const Setting& setting, std::string_view text) {
  const std::string wanted = text.empty() ? std::string() : setting_text(setting_value(setting, text));
  const bool in_source_file = setting.kept == Kept::source_file;
  file.write(setting.section, setting.key, wanted.empty() && !in_source_file ? wanted : kept_text(setting, wanted));
  const bool read_again = in_source_file ? to_windows_1252(wanted).replaced == 0
                                         : wanted.empty() || setting_text(stored_value(file, setting)) == wanted;
  if (!read_again) throw platform_erro(erro::kInvalidCall);
}

void DALSistema::change(std::span<const SettingChange> changes) {
  const SettingChange* source = nullptr;
  change_profile(settings_path(), [&](ProfileText& file) {
    for (const SettingChange& wanted : changes) {
      try {
        change(file, *wanted.setting, wanted.text);
      } catch (const Erro& failure) {
        if (!is_about_text(failure.number())) throw;
        throw Erro(erro::kRuleViolation, "DALSistema.change",
                   wanted.setting->name() + ": o valor não é " + demand(*wanted.setting));
      }
      if (wanted.setting->kept == Kept::source_file) source = &wanted;
    }
  });
  if (source != nullptr) write_source(source->text);
}

}  // namespace posto
