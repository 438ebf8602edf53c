// An empty database with settings over it, for tests of classes on the engine.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "posto/ado/recordset.h"
#include "posto/core/sistema.h"
#include "tests/support/test_database.h"

namespace posto {

class DatabaseTest : public ::testing::Test {
 protected:
  static constexpr std::int32_t kTenant = 1;

  DatabaseTest() {
    settings_->ObConnection = Connection::create();
    settings_->ObConnection->Use(database_.open());
    settings_->ObVOEmpresaUsuaria->Cd_PessoaUsuaria = kTenant;
    settings_->on_routine = [this](bool entering, std::string_view routine) {
      routines_.push_back((entering ? "+" : "-") + std::string(routine));
    };
  }

  Connection& connection() { return *settings_->ObConnection; }
  void run(std::string_view statements) { connection().Execute(statements); }

  // Rows as one text: columns separated by commas, rows by line feeds, "-" for null.
  std::string rows(std::string_view query) { return text_of(connection().Execute(query)); }
  static std::string text_of(Recordset rows) {
    std::string text;
    for (; !rows.EOF(); rows.MoveNext()) {
      for (std::size_t i = 0; i < rows.field_count(); ++i) {
        const Variant value = rows[i].Value();
        text += (i > 0 ? "," : "") + (value.is_null() ? "-" : value.as<std::string>());
      }
      text += '\n';
    }
    return text;
  }

  // The statements that `body` runs, in their order, with "|" for carriage returns.
  template <class Body>
  std::vector<std::string> statements_of(Body&& body) {
    std::vector<std::string> statements;
    connection().observe([&](const StatementReport& report) {
      statements.emplace_back(report.statement);
      std::ranges::replace(statements.back(), '\r', '|');
    });
    body();
    connection().observe({});
    return statements;
  }

  testing::TestDatabase database_;
  std::shared_ptr<VOSistema> settings_ = std::make_shared<VOSistema>();
  std::vector<std::string>
      routines_;  // what the settings were told: "+" and the name for EntrarRotina, "-" for SairRotina
};

}  // namespace posto
