// The cases of cases/*.sql: a statement, what the database gets and what comes back. A file is
//
//   -- setup                     (optional, first: statements that all its cases find done)
//   CREATE TABLE #Conta (..)
//
//   -- name of a case
//   SELECT ..                    (line ends become carriage returns)
//   => sqlite                    (optional: the written text)
//   => types money int32         (optional: of the result's columns)
//   => rows                      (what is read, a row a line: 12, 12.5000, 'text', NULL, 2009-04-03 00:00:00, true)
//   => error 0x80040E14 words    (the number and a part of the description)
//
// An empty line ends a case. Each runs in a transaction that is rolled back, at 2009-04-03 14:05:06.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>

#include "posto/engines/engine.h"
#include "posto/services/clock.h"
#include "posto/types/erro.h"
#include "tests/support/test_database.h"

namespace posto {
namespace {

struct Case {
  std::string name, statement;
  std::map<std::string, std::string>
      expected;  // "rows", "sqlite": lines; "types", "error": what stands behind the word
};

struct CaseFile {
  std::string setup;
  std::vector<Case> cases;
};

CaseFile read_cases(const std::string& path) {
  CaseFile read;
  std::ifstream file(path);
  EXPECT_TRUE(file) << path;
  Case* current = nullptr;
  std::string* lines = nullptr;  // what the next lines belong to
  for (std::string line; std::getline(file, line);) {
    if (line.empty()) {
      current = nullptr;
    } else if (current == nullptr) {
      read.cases.push_back({.name = line.substr(3), .statement = {}, .expected = {}});
      current = &read.cases.back();
      lines = &current->statement;
    } else if (line.starts_with("=> ")) {
      std::size_t blank = std::min(line.find(' ', 3), line.size());
      lines = &current->expected[line.substr(3, blank - 3)];
      if (blank < line.size()) *lines = line.substr(blank + 1);
    } else {
      *lines += line + (lines == &current->statement ? '\r' : '\n');
    }
  }
  if (!read.cases.empty() && read.cases.front().name == "setup") {
    read.setup = read.cases.front().statement;
    read.cases.erase(read.cases.begin());
  }
  return read;
}

std::string shown(const Variant& value) {
  switch (value.kind()) {
    case VariantKind::Null:
      return "NULL";
    case VariantKind::Boolean:
      return value.held<bool>() ? "true" : "false";
    case VariantKind::Currency:
      return value.held<Currency>().text();
    case VariantKind::Text:
      return "'" + value.held<std::string>() + "'";
    default:
      return value.as<std::string>();
  }
}

std::string rows_of(Cursor& cursor) {
  const auto& columns = cursor.shape().columns();
  std::vector<Cell> row(columns.size());
  std::string rows;
  while (cursor.next(row)) {
    for (std::size_t i = 0; i < row.size(); ++i)
      rows += (i > 0 ? ", " : "") + shown(cell_value(row[i], columns[i].type));
    rows += '\n';
  }
  return rows;
}

std::string types_of(const Cursor& cursor) {
  std::string types;
  for (const ResultColumn& column : cursor.shape().columns())
    types += (types.empty() ? "" : " ") + std::string(type_name(column.type));
  return types;
}

class Dialect : public ::testing::TestWithParam<std::string> {
 protected:
  Dialect() {
    engine_->set_observer([this](const StatementReport& report) { written_ = std::string(report.engine_text) + "\n"; });
  }

  void run(const Case& c) {
    const auto error = c.expected.find("error");
    const auto expect = [&](const char* what, const std::string& actual) {
      if (auto wanted = c.expected.find(what); wanted != c.expected.end()) {
        EXPECT_EQ(wanted->second, actual) << what;
      }
    };
    try {
      Outcome outcome = engine_->execute(c.statement);
      if (outcome.cursor) {
        expect("types", types_of(*outcome.cursor));
        expect("rows", rows_of(*outcome.cursor));
        outcome.cursor.reset();
      } else {
        expect("rows", "");
      }
      expect(engine_->name() == "SQLite" ? "sqlite" : "postgresql", written_);
      EXPECT_EQ(error, c.expected.end()) << "nothing was raised";
    } catch (const Erro& e) {
      if (error == c.expected.end()) {
        ADD_FAILURE() << e.what();
        return;
      }
      const std::string expected = error->second;
      EXPECT_EQ(expected.substr(0, expected.find(' ')), number_text(e.number())) << e.what();
      if (expected.find(' ') != std::string::npos) {
        EXPECT_NE(e.description().find(expected.substr(expected.find(' ') + 1)), std::string::npos) << e.what();
      }
    }
  }

  ClockOverride clock_{Date::of_moment(2009, 4, 3, 14, 5, 6)};
  testing::TestDatabase database_;
  std::shared_ptr<Engine> engine_ = database_.open();
  std::string written_;  // what the database got last
};

TEST_P(Dialect, AnswersAsTheServer) {
  const CaseFile file = read_cases(GetParam());
  if (!file.setup.empty()) engine_->execute(file.setup);
  ASSERT_FALSE(file.cases.empty());
  for (const Case& c : file.cases) {
    SCOPED_TRACE(c.name);
    EXPECT_FALSE(c.expected.empty()) << "a case that expects nothing";
    engine_->begin();
    run(c);
    if (engine_->in_transaction()) engine_->rollback();
    engine_->execute("SET DATEFORMAT ymd");
  }
}

std::vector<std::string> case_files() {
  std::vector<std::string> files;
  for (const auto& file : std::filesystem::directory_iterator(POSTO_SOURCE_DIR "/tests/dialect/cases")) {
    files.push_back(file.path().string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

INSTANTIATE_TEST_SUITE_P(Cases, Dialect, ::testing::ValuesIn(case_files()),
                         [](const auto& file) { return std::filesystem::path(file.param).stem().string(); });

}  // namespace
}  // namespace posto
