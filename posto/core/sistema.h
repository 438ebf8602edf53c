// The settings object that every class receives: the open connection, the formats, the user company and the tracing
// calls.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "posto/ado/connection.h"
#include "posto/core/enumerations.h"
#include "posto/schema/masterdata.h"

namespace posto {

// The revision of the library that the order of some queries depends on.
inline constexpr std::int32_t kRevisao = 500;

struct VOSistema {
  std::shared_ptr<Connection> ObConnection;  // the caller's; no class opens or closes it
  std::shared_ptr<VOEmpresaUsuaria> ObVOEmpresaUsuaria = std::make_shared<VOEmpresaUsuaria>();
  std::int32_t Cursor = 1;    // cursor type of record sets; keyset
  std::int32_t LockType = 3;  // lock type of record sets; optimistic; 0 leaves the default
  std::int32_t Cd_BD = BancoDadosSqlServer2000;
  std::string Ds_FormatoData = "yyyy-mm-dd";  // the date pattern of literals
  std::string Nm_Computador;                  // the name of this computer
  std::int32_t No_Revisao = kRevisao;

  // The tenant of the user company.
  std::int32_t tenant() const { return ObVOEmpresaUsuaria->Cd_PessoaUsuaria; }

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
