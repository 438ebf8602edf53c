// Every statement of the library gives the same on SQLite and on the server of POSTO_TEST_SERVER, over random rows and
// with random values. POSTO_TEST_SEED repeats a run, POSTO_TEST_ROUNDS makes it longer.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <numeric>
#include <regex>

#include "posto/engines/engine.h"
#include "posto/services/clock.h"
#include "posto/types/erro.h"
#include "posto/types/text.h"
#include "tests/dialect/corpus.h"
#include "tests/dialect/random_station.h"
#include "tests/support/test_database.h"

namespace posto {
namespace {

using Row = std::vector<std::string>;

// Sums of floats depend on the order in which an engine adds.
std::string compared(const Variant& value) {
  switch (value.kind()) {
    case VariantKind::Null:
      return "NULL";
    case VariantKind::Float32:
      return fmt::format("{:.5g}", value.held<float>());
    case VariantKind::Float64:
      return fmt::format("{:.10g}", value.held<double>());
    default:
      return value.as<std::string>();
  }
}

struct Answer {
  std::int32_t failure = 0;
  std::string said;     // of the failure
  std::string columns;  // names and types
  std::vector<std::string> names;
  std::vector<Row> rows;
  std::int64_t affected = 0;
};

Answer ask(Engine& engine, const std::string& batch) {
  Answer answer;
  try {
    Outcome outcome = engine.execute(batch);
    answer.affected = outcome.affected;
    if (!outcome.cursor) return answer;
    const auto& columns = outcome.cursor->shape().columns();
    for (const ResultColumn& column : columns) {
      answer.names.push_back(column.name);
      answer.columns += fmt::format("{} {} {} ", column.name, type_name(column.type), column.width);
    }
    std::vector<Cell> cells(columns.size());
    while (outcome.cursor->next(cells)) {
      Row& row = answer.rows.emplace_back();
      for (std::size_t i = 0; i < cells.size(); ++i) row.push_back(compared(cell_value(cells[i], columns[i].type)));
    }
  } catch (const Erro& failure) {
    answer.failure = failure.number();
    answer.said = failure.description();
    answer.rows.clear();
  }
  return answer;
}

// The columns of the result by which it is ordered, as far as they are in it.
std::vector<std::size_t> order_of(const std::string& statement, const Answer& answer) {
  static const std::regex kOrder(R"re(ORDER\s+BY\s+([^()]*)$)re", std::regex::icase);
  static const std::regex kItem(R"re(\s*(?:\w+\.)?(\w+)(?:\s+(?:asc|desc))?[\s;]*)re", std::regex::icase);
  std::vector<std::size_t> order;
  std::smatch clause;
  if (!std::regex_search(statement, clause, kOrder)) return order;
  const std::string list = clause[1];
  for (std::size_t at = 0; at <= list.size();) {
    const std::size_t comma = std::min(list.find(',', at), list.size());
    std::smatch item;
    const std::string text = list.substr(at, comma - at);
    if (!std::regex_match(text, item, kItem)) break;
    const auto named = [&](const std::string& name) { return equal_names(name, item[1].str()); };
    const auto found = std::find_if(answer.names.begin(), answer.names.end(), named);
    if (found == answer.names.end()) break;
    order.push_back(static_cast<std::size_t>(found - answer.names.begin()));
    at = comma + 1;
  }
  return order;
}

// Whether two rows are equal in these columns, as the order and a group see them.
bool level(const Row& a, const Row& b, const std::vector<std::size_t>& columns) {
  return std::all_of(columns.begin(), columns.end(), [&](std::size_t i) { return compare_text(a[i], b[i]) == 0; });
}

std::string text_of(const std::vector<Row>& rows) {
  std::string text;
  for (const Row& row : rows) text += fmt::format("{}\n", fmt::join(row, " | "));
  return text;
}

std::vector<Row> sorted(std::vector<Row> rows) {
  std::sort(rows.begin(), rows.end(), [&](const Row& a, const Row& b) {
    const auto folded = [](const std::string& x, const std::string& y) { return compare_text(x, y) < 0; };
    if (std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), folded)) return true;
    if (std::lexicographical_compare(b.begin(), b.end(), a.begin(), a.end(), folded)) return false;
    return a < b;
  });
  return rows;
}

class Differential : public ::testing::Test {
 protected:
  void SetUp() override {
    if (server_database_.embedded()) GTEST_SKIP() << "POSTO_TEST_SERVER names the server to compare with";
    std::cout << "POSTO_TEST_SEED=" << seed_ << '\n';
    RecordProperty("seed", std::to_string(seed_));
    server_ = server_database_.open();
  }

  // A row that SQLite refuses is asked of the server only where no generated number is lost by it.
  void fill(int rows) {
    std::size_t stored = 0, refused = 0;
    for (const Table& table : all_tables()) {
      for (const std::string& insert : random_.rows_for(table, rows)) {
        const Answer here = ask(*sqlite_, insert);
        here.failure == 0 ? ++stored : ++refused;
        if (here.failure != 0 && table.identity() != nullptr) continue;
        EXPECT_EQ(ask(*server_, insert).failure, here.failure) << insert << '\n' << here.said;
      }
    }
    EXPECT_GT(stored, refused);
  }

  // Runs a batch on both and undoes it; the answers, and what its tables hold then, are the same.
  void compare(const std::string& statement) {
    for (Engine* engine : {sqlite_.get(), server_.get()}) engine->begin();
    const Answer here = ask(*sqlite_, statement), there = ask(*server_, statement);
    EXPECT_EQ(there.failure, here.failure) << here.said << "\n" << there.said;
    if (here.failure == 0 && there.failure == 0) {
      EXPECT_EQ(there.columns, here.columns);
      EXPECT_EQ(there.affected, here.affected);
      compare_rows(statement, here, there);
      found_ += here.rows.empty() && here.affected == 0 ? 0 : 1;
      compare_tables(statement);
    }
    for (Engine* engine : {sqlite_.get(), server_.get()}) {
      if (engine->in_transaction()) engine->rollback();
      engine->execute("SET DATEFORMAT ymd");
    }
  }

  static void compare_rows(const std::string& statement, const Answer& here, const Answer& there) {
    ASSERT_EQ(there.rows.size(), here.rows.size());
    if (here.columns != there.columns) return;
    const std::vector<std::size_t> order = order_of(statement, here);
    for (std::size_t i = 0; i < here.rows.size(); ++i) {
      EXPECT_TRUE(level(here.rows[i], there.rows[i], order)) << text_of({here.rows[i], there.rows[i]});
    }
    static const std::regex kTop(R"re(\bTOP\s+\d)re", std::regex::icase);
    if (std::regex_search(statement, kTop)) return;  // which of equal ones come is the engine's
    expect_same(statement, there.rows, here.rows);
  }

  // Of texts that are equal ("A" and "a") a group shows one or the other, and may write it.
  static void expect_same(const std::string& statement, const std::vector<Row>& there, const std::vector<Row>& here) {
    static const std::regex kGroup(R"re(\b(DISTINCT|GROUP\s+BY|UNION)\b|\b(Min|Max)\s*\()re", std::regex::icase);
    const std::vector<Row> given = sorted(there), wanted = sorted(here);
    if (std::regex_search(statement, kGroup)) {
      const auto same = [](const Row& a, const Row& b) {
        std::vector<std::size_t> all(a.size());
        std::iota(all.begin(), all.end(), 0);
        return level(a, b, all);
      };
      if (std::equal(given.begin(), given.end(), wanted.begin(), wanted.end(), same)) return;
    }
    EXPECT_EQ(text_of(given), text_of(wanted));
  }

  // The tables that a batch writes to, without their generated columns: a number that is given back is not the same.
  void compare_tables(const std::string& batch) {
    static const std::regex kWritten(R"re((?:INSERT\s+INTO|UPDATE|DELETE\s+(?:FROM\s+)?)\s*(\w+))re",
                                     std::regex::icase);
    for (std::sregex_iterator match(batch.begin(), batch.end(), kWritten), end; match != end; ++match) {
      const Table* table = find_table(match->str(1));
      if (table == nullptr) continue;
      std::string columns;
      for (const Column& column : table->columns) {
        if (!column.identity) columns += (columns.empty() ? "" : ", ") + std::string(column.name);
      }
      const std::string all = fmt::format("SELECT {} FROM {}", columns, table->name);
      SCOPED_TRACE(table->name);
      expect_same(batch, ask(*server_, all).rows, ask(*sqlite_, all).rows);
    }
  }

  ClockOverride clock_{Date::of_moment(2009, 4, 3, 14, 5, 6)};
  std::uint32_t seed_ = testing::random_seed();
  testing::RandomStation random_{seed_};
  testing::TestDatabase server_database_;
  std::shared_ptr<Engine> sqlite_ = create_database(":memory:", 5);
  std::shared_ptr<Engine> server_;
  std::size_t found_ = 0;  // statements that gave or touched rows
};

TEST_F(Differential, EveryStatementGivesTheSameOnBothEngines) {
  const char* given = std::getenv("POSTO_TEST_ROUNDS");
  const int rounds = given != nullptr ? std::atoi(given) : 2;
  fill(12);
  const auto entries = testing::read_corpus();
  ASSERT_GT(entries.size(), 600u);
  for (const auto& entry : entries) {
    for (int round = 0; round <= rounds; ++round) {
      const std::string statement = round == 0 ? entry.statement : random_.with_other_values(entry.statement);
      std::string lines = statement;
      std::replace(lines.begin(), lines.end(), '\r', '\n');
      SCOPED_TRACE(fmt::format("POSTO_TEST_SEED={} {}: {}\n{}", seed_, entry.file, entry.name, lines));
      compare(statement);
    }
  }
  EXPECT_GT(found_, entries.size() / 2);
}

}  // namespace
}  // namespace posto
