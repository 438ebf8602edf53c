// The settings object that every class receives: the open connection, the workstation's settings, the user company and
// the tracing calls.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "posto/ado/connection.h"
#include "posto/core/settings.h"
#include "posto/schema/masterdata.h"

namespace posto {

// The revision of the library that the order of some queries depends on.
inline constexpr std::int32_t kRevisao = 500;

// Its base holds the settings that DALSistema reads and writes (settings.def), Cursor, LockType, Cd_BD and
// Ds_FormatoData among them.
struct VOSistema : StoredSettings {
  std::shared_ptr<Connection> ObConnection;  // the caller's; no class opens or closes it
  std::shared_ptr<VOEmpresaUsuaria> ObVOEmpresaUsuaria = std::make_shared<VOEmpresaUsuaria>();
  std::string Nm_ArquivoIni = "posto.ini";  // the name of the settings file
  std::string Nm_Computador;                // the name of this computer
  std::int32_t No_Revisao = kRevisao;

  // The tenant of the user company.
  std::int32_t tenant() const { return ObVOEmpresaUsuaria->Cd_PessoaUsuaria; }

  // The stored settings by name, and all of them back to their defaults; everything else stays.
  Variant get(std::string_view property) const { return settings().get(property); }
  void let(std::string_view property, const Variant& value) { settings().let(property, value); }
  void RestaurarDefault() { settings().RestaurarDefault(); }
  ValueObject settings() const {
    return by_name(const_cast<StoredSettings&>(static_cast<const StoredSettings&>(*this)));
  }

  // The routines in course, for diagnosis. SairRotina takes the innermost off when it has that name, also behind
  // "Class."; any other name only tells the observer where a failure passed.
  void EntrarRotina(std::string_view routine);
  void SairRotina(std::string_view routine);
  const std::vector<std::string>& routines() const { return routines_; }

  // Told of each call, `entering` true for EntrarRotina.
  std::function<void(bool entering, std::string_view routine)> on_routine;

 private:
  std::vector<std::string> routines_;
};

}  // namespace posto
