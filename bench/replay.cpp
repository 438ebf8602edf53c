#include "replay.h"

#include <benchmark/benchmark.h>

#include <cctype>
#include <charconv>
#include <cstdlib>
#include <map>

#include "posto/types/text.h"

namespace posto::bench {
namespace {

std::vector<RawStatement>* recording = nullptr;

// Where a quoted text that begins at `at` ends.
std::size_t end_of_text(const std::string& sql, std::size_t at) {
  const char quote = sql[at];
  for (++at; at < sql.size(); ++at) {
    if (sql[at] != quote) continue;
    if (at + 1 < sql.size() && sql[at + 1] == quote) {
      ++at;
    } else {
      break;
    }
  }
  return at + 1;
}

RawValue value_of(const std::string& literal) {
  if (literal == "NULL") return {};
  if (literal.front() == '\'') {
    std::string text;
    for (std::size_t i = 1; i + 1 < literal.size(); ++i) {
      text += literal[i];
      if (literal[i] == '\'') ++i;
    }
    return text;
  }
  if (literal.find_first_of(".eE") != std::string::npos) return std::stod(literal);
  std::int64_t number = 0;
  std::from_chars(literal.data(), literal.data() + literal.size(), number);
  return number;
}

std::string literal_at(const std::string& expanded, std::size_t at) {
  std::size_t end = at;
  if (expanded[at] == '\'') {
    end = end_of_text(expanded, at);
  } else {
    while (end < expanded.size() &&
           (std::isalnum(expanded[end]) != 0 || expanded[end] == '.' || expanded[end] == '-' || expanded[end] == '+')) {
      ++end;
    }
  }
  return expanded.substr(at, end - at);
}

// The values that stand in `expanded` where `sql` has its parameters "?", "?1", ..
std::vector<RawValue> values_of(const std::string& sql, const std::string& expanded) {
  std::vector<RawValue> values;
  std::size_t there = 0;
  for (std::size_t at = 0; at < sql.size();) {
    if (sql[at] == '?') {
      std::size_t place = values.size() + 1;
      std::size_t end = at + 1;
      while (end < sql.size() && is_digit(sql[end])) ++end;
      if (end > at + 1) std::from_chars(sql.data() + at + 1, sql.data() + end, place);
      const std::string literal = literal_at(expanded, there);
      if (values.size() < place) values.resize(place);
      values[place - 1] = value_of(literal);
      at = end;
      there += literal.size();
      continue;
    }
    const std::size_t end = sql[at] == '\'' || sql[at] == '"' ? end_of_text(sql, at) : at + 1;
    there += end - at;
    at = end;
  }
  return values;
}

bool is_of_transaction(const std::string& sql) {
  for (const char* word : {"BEGIN", "COMMIT", "ROLLBACK", "PRAGMA", "--"}) {
    if (sql.starts_with(word)) return true;
  }
  return false;
}

int record(unsigned, void*, void* statement, void*) {
  auto* prepared = static_cast<sqlite3_stmt*>(statement);
  const std::string sql = sqlite3_sql(prepared);
  if (recording == nullptr || is_of_transaction(sql)) return 0;
  char* expanded = sqlite3_expanded_sql(prepared);
  recording->push_back({sql, values_of(sql, expanded)});
  sqlite3_free(expanded);
  return 0;
}

int trace_connection(sqlite3* database, const char**, const void*) {
  return sqlite3_trace_v2(database, SQLITE_TRACE_STMT, record, nullptr);
}

void bind(sqlite3_stmt* statement, int place, const RawValue& value) {
  if (const auto* number = std::get_if<std::int64_t>(&value)) {
    sqlite3_bind_int64(statement, place, *number);
  } else if (const auto* real = std::get_if<double>(&value)) {
    sqlite3_bind_double(statement, place, *real);
  } else if (const auto* text = std::get_if<std::string>(&value)) {
    sqlite3_bind_text(statement, place, text->data(), static_cast<int>(text->size()), SQLITE_STATIC);
  } else {
    sqlite3_bind_null(statement, place);
  }
}

void read(sqlite3_stmt* statement, int column) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
      benchmark::DoNotOptimize(sqlite3_column_int64(statement, column));
      break;
    case SQLITE_FLOAT:
      benchmark::DoNotOptimize(sqlite3_column_double(statement, column));
      break;
    default:
      benchmark::DoNotOptimize(sqlite3_column_text(statement, column));
      break;
  }
}

}  // namespace

std::vector<RawStatement> recorded(const std::function<void()>& body) {
  std::vector<RawStatement> statements;
  const auto extension = reinterpret_cast<void (*)()>(trace_connection);
  sqlite3_auto_extension(extension);
  recording = &statements;
  body();
  recording = nullptr;
  sqlite3_cancel_auto_extension(extension);
  return statements;
}

Replay::Replay(RawDatabase& database, const std::vector<RawStatement>& statements) {
  std::map<std::string, sqlite3_stmt*> kept;
  for (const RawStatement& s : statements) {
    sqlite3_stmt*& prepared = kept[s.sql];
    if (prepared == nullptr) prepared = database.prepare(s.sql);
    steps_.push_back({prepared, &s.values});
  }
}

void Replay::run() {
  for (const Step& step : steps_) {
    int place = 0;
    for (const RawValue& value : *step.values) bind(step.statement, ++place, value);
    int code = sqlite3_step(step.statement);
    for (; code == SQLITE_ROW; code = sqlite3_step(step.statement)) {
      for (int i = 0; i < sqlite3_column_count(step.statement); ++i) read(step.statement, i);
    }
    if (code != SQLITE_DONE) std::abort();
    sqlite3_reset(step.statement);
  }
}

}  // namespace posto::bench
