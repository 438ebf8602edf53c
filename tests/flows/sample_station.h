// A station registered from the sample, in a folder that goes with the test.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "flows/registration.h"
#include "flows/station.h"
#include "posto/ado/recordset.h"

namespace posto::flows {

inline const std::string kSample = std::string(POSTO_SOURCE_DIR) + "/sample";

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "posto-XXXXXX").string();
    path_ = mkdtemp(name.data());
  }
  ~TemporaryFolder() { std::filesystem::remove_all(path_); }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  std::string operator/(const std::string& name) const { return path_ + "/" + name; }
  std::string write(const std::string& name, const std::string& content) const {
    std::ofstream(*this / name, std::ios::binary) << content;
    return *this / name;
  }

 private:
  std::string path_;
};

// An open database with the sample's master data and purchases.
inline Station registered_station(const std::string& file) {
  Connection::create()->Create(file);
  Station station = open_station(file);
  register_station(station, kSample + "/cadastro");
  return station;
}

// Rows as one text: columns separated by commas, rows by line feeds.
inline std::string rows_of(Connection& connection, const std::string& query) {
  std::string text;
  for (Recordset rows = connection.Execute(query); !rows.EOF(); rows.MoveNext()) {
    for (std::size_t i = 0; i < rows.field_count(); ++i) {
      Variant value = rows[i].Value();
      text += (i > 0 ? "," : "") + (value.is_null() ? "-" : value.as<std::string>());
    }
    text += '\n';
  }
  return text;
}

// Everything that an import changes.
inline std::string state_of(Connection& connection) {
  return rows_of(connection, "SELECT * FROM Abastecimento ORDER BY Cd_Abastecimento") +
         rows_of(connection, "SELECT * FROM Cardex ORDER BY Cd_LancamentoCardex") +
         rows_of(connection, "SELECT * FROM Produto ORDER BY Cd_Produto") +
         rows_of(connection, "SELECT * FROM Bomba ORDER BY Cd_Bomba") +
         rows_of(connection, "SELECT * FROM SequenciadorGeral ORDER BY Nm_Atributo");
}

}  // namespace posto::flows
