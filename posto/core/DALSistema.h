// Reads and writes the workstation's settings: a profile file of the name ObVO->Nm_ArquivoIni and the one-line file
// "Source" with the connection source text, both in the program's folder. Which setting stands where, and which are
// enciphered, is said in settings.def. It is no table class and has no connection.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "posto/core/sistema.h"
#include "posto/services/cipher.h"
#include "posto/services/files.h"
#include "posto/services/profile_file.h"

namespace posto {

// How a setting stands in the files.
enum class SettingState : std::uint8_t { good, missing, not_deciphered, not_converted };

struct StoredSetting {
  const Setting* setting;
  SettingState state;
  Variant value;  // null unless the state is good
};

// A new text for a setting, as a person writes it; the empty one leaves the setting without a value.
struct SettingChange {
  const Setting* setting;
  std::string text;
};

class DALSistema {
 public:
  // `folder`: where the files stand. A file "Vr5.txt" there is deleted. A failure has the source
  // " -> DALSistema.Class_Initialize, ".
  explicit DALSistema(std::string folder = application_folder());

  std::shared_ptr<VOSistema> ObVO = std::make_shared<VOSistema>();
  std::shared_ptr<ActiveCrypt> ObCrypt = std::make_shared<ActiveCrypt>();

  // Fills ObVO. A setting that is missing or empty, or whose text does not read as its type, leaves its property as it
  // was (errors 13 and 94 are cleared); a missing source file makes Source the empty text. Any other failure ends the
  // reading with ", DALSistema.Consultar" behind its source: 0x80040201 for a text that does not decipher, 6 for a
  // number that does not fit. The argument has no effect.
  VOSistema& Consultar(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro = false);

  // Writes all of ObVO, the empty value as its result. Each of the two files is replaced in one step, and what else
  // stands in the settings file stays. Before anything is written, it fails with ", DALSistema.Salvar" behind the
  // source: 0x80040201 when the cipher fails, 5 for a text with a line end, 6 for an enciphered text that is too long
  // to be read again (158 bytes are not); later 75 when a file cannot be written. Two settings are written under other
  // names than they are read from: Nm_RLDll as "RLDll", so that it does not come back, and Ds_FormaPagamentoTecban in
  // "TecBan", which is "Tecban".
  Variant Salvar();

  // Settings of the last Salvar of which a character has no place in Windows-1252 and was written as "?".
  const std::vector<const Setting*>& replaced() const { return replaced_; }

  // The enciphered text; an empty text becomes one blank, also in the caller's variable. The text of an enciphered one.
  // A failure of the cipher is 0x80040201 with the routine's name as its source.
  std::string Encriptar(std::string& entrada);
  std::string Desencriptar(std::string_view entrada);

  // Every setting as it stands in the files; fails only when a file cannot be read.
  std::vector<StoredSetting> inspect();

  // Writes some settings under the names from which they are read, and nothing else. Raises 0x80040660 for a text that
  // does not convert to its setting's type or that would not be read again as it is given, with a description that
  // names the setting and says what it takes; then nothing is written. 75 when a file cannot be written.
  void change(std::span<const SettingChange> changes);

  std::string settings_path() const;
  std::string source_path() const;

 private:
  std::string LerRegistro(const ProfileText& file, const Setting& setting) const;
  std::string clear_text(const Setting& setting, std::string text);
  std::string kept_text(const Setting& setting, std::string text);
  Variant stored_value(const ProfileText& file, const Setting& setting);
  StoredSetting inspect(const ProfileText& file, const Setting& setting);
  void GravarRegistro(ProfileText& file, const Setting& setting, std::string text);
  void change(ProfileText& file, const Setting& setting, std::string_view text);
  std::size_t write_source(std::string_view text) const;

  std::string folder_;
  std::vector<const Setting*> replaced_;
};

}  // namespace posto
