#include "posto/engines/odbc/kept_statement.h"

#include <fmt/format.h>

#include <charconv>
#include <utility>

#include "posto/tsql/types.h"

namespace posto::odbc {
namespace {

// The written text with `write(place, from 0)` in place of each "$1".
template <class Write>
std::string with_each_place(std::string_view written, Write write) {
  std::string text;
  text.reserve(written.size() * 2);
  bool in_name = false;
  const char* const end = written.data() + written.size();
  for (const char* at = written.data(); at != end;) {
    const char c = *at++;
    if (c == '"') in_name = !in_name;
    if (c != '$' || in_name) {
      text += c;
      continue;
    }
    std::size_t number = 0;
    at = std::from_chars(at, end, number).ptr;
    text += write(number - 1);
  }
  return text;
}

}  // namespace

KeptStatement::Running::Running(const Link& link, const ResultShape* shape) : command(link) {
  if (shape != nullptr) rows = std::make_unique<RowBlock>(*shape, command);
}

KeptStatement::KeptStatement(tsql::CompiledStatement compiled, const TemporaryTables& temporary, const Link& link)
    : compiled_(std::move(compiled)), link_(&link) {
  if (compiled_.kind == tsql::StatementKind::select) shape_ = shape_of(compiled_, temporary);
  std::size_t places = 0;
  with_each_place(compiled_.text, [&](std::size_t) {
    ++places;
    return "";
  });
  repeats_place_ = !link.server().to_the_letter && places != compiled_.parameters.size();
}

std::string KeptStatement::with_places() const {
  return with_each_place(
      compiled_.text, [&](std::size_t place) { return fmt::format("?::{}", sent_type(compiled_.parameters[place])); });
}

std::string KeptStatement::with_values(const Values& values) const {
  return with_each_place(compiled_.text, [&](std::size_t place) {
    const Values::Value& value = values.all()[place];
    const tsql::Parameter& parameter = compiled_.parameters[place];
    const bool fraction = value.c_type == SQL_C_DOUBLE && !tsql::is_float(parameter.type);
    const std::string_view type = fraction ? "float8" : sent_type(parameter);
    if (value.null) return fmt::format("NULL::{}", type);
    std::string quoted;
    for (char c : value.text()) {
      quoted += c;
      if (c == '\'') quoted += c;
    }
    return fmt::format("'{}'::{}", quoted, type);
  });
}

KeptStatement::Running& KeptStatement::run(std::string_view text, const Values& values, std::int32_t timeout_seconds) {
  const bool single = values.has_fraction() || repeats_place_;
  std::unique_ptr<Running>& place = single ? single_ : kept_;
  if (place == nullptr || single) place = std::make_unique<Running>(*link_, shape_.get());
  place->command.set_timeout(timeout_seconds);
  if (link_->server().to_the_letter) {
    run_to_the_letter(*place, text, values);
  } else if (single || tsql::defines_table(compiled_.kind)) {
    place->command.execute(with_values(values), text);
  } else {
    run_as_written(*place, text, values);
  }
  return *place;
}

void KeptStatement::run_as_written(Running& running, std::string_view text, const Values& values) {
  if (!running.prepared) running.command.prepare(with_places(), text);
  running.prepared = true;
  running.parameters.fill(running.command, values);
  running.command.execute_prepared(text);
}

// A text that is all values goes as it stands: a server of this kind keeps the plans of such texts itself, and gives
// their values types as only it can. One with "?" is prepared.
void KeptStatement::run_to_the_letter(Running& running, std::string_view text, const Values& values) {
  if (values.all().empty()) return running.command.execute(text, text);
  if (!running.prepared) running.command.prepare(text, text);
  running.prepared = true;
  running.parameters.fill(running.command, values);
  running.command.execute_prepared(text);
}

}  // namespace posto::odbc
