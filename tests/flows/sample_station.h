// A station registered from the sample, on the engine of the tests; its files and its database go with the test.
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
#include "tests/support/test_database.h"

namespace posto::flows {

inline const std::string kSample = std::string(POSTO_SOURCE_DIR) + "/sample";
inline const Date kFirstDay = Date::of_day(2026, 11, 23);

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

// The database of a station, with all tables and nothing in them. It is opened as often as a test asks: what a second
// workstation sees, or what stands there behind a cut.
class StationDatabase {
 public:
  // The company is read where one is registered.
  Station open() const { return open_station(database_.address()); }
  // What a test wraps an engine around.
  std::shared_ptr<Engine> engine() { return database_.open(); }
  // Opened, with the sample's master data and purchases.
  Station registered() const {
    Station station = open();
    register_station(station, kSample + "/cadastro");
    return station;
  }

 private:
  testing::TestDatabase database_{true};
};

// An open station with the sample's master data and purchases. On SQLite it stands in `file`; on a server it has a
// database that goes with it. A test that opens it again holds a StationDatabase itself.
inline Station registered_station(const std::string& file) {
  if (testing::provider() == "SQLite") {
    Connection::create()->Create(file);
    Station station = open_station(file);
    register_station(station, kSample + "/cadastro");
    return station;
  }
  struct Kept {
    StationDatabase database;
    Station station = database.registered();
  };
  auto kept = std::make_shared<Kept>();
  return {std::shared_ptr<VOSistema>(kept, kept->station.settings.get())};
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
