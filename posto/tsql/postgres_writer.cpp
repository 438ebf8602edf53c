#include "posto/tsql/postgres_writer.h"

#include <algorithm>

#include "posto/tsql/postgres_ddl.h"
#include "posto/tsql/statement_writer.h"

namespace posto::tsql {
namespace {

class PostgresWriter final : public StatementWriter {
 private:
  void place(std::size_t number) override { put("${}", number); }
  std::string_view collation() const override { return "::bpchar COLLATE posto"; }
  std::string_view null_order(bool descending) const override { return descending ? " NULLS LAST" : " NULLS FIRST"; }
  bool outputs_compare() const override { return true; }
  std::string create_temporary(const Table& table) const override { return postgres_create_table(table, true); }

  // A column among texts would make the comparison one of the type text, which sees trailing blanks.
  void compared_text(const Inner& inner) override { wrapped("", inner, "::bpchar"); }
  // As text a column loses its trailing blanks.
  void whole_text(const Expr& e) override {
    if (is_text_column(e)) {
      wrapped(
          "posto_whole(", [&] { value(e); }, ")");
    } else {
      StatementWriter::whole_text(e);
    }
  }

  void whole_number(const Inner& inner) override { wrapped("(", inner, ")::bigint"); }
  void to_bit(const Inner& inner) override { wrapped("(", inner, " <> 0)::int"); }
  void integer_to_money(const Inner& inner) override { wrapped("(", inner, ")::numeric"); }
  void money_to_float(const Inner& inner) override { wrapped("(", inner, ")::float8"); }
  void integer_to_float(const Inner& inner) override { wrapped("(", inner, ")::float8"); }
  void single_to_double(const Inner& inner) override { wrapped("(", inner, ")::float8"); }
  void text_of(const Type& from, std::uint16_t width, bool padded, int style, const Inner& inner) override {
    out_ += "posto_text((";
    inner();
    put(")::{}, {}, {}, {})", name_of(from.base), width, padded, style);
  }
  static std::string_view name_of(SqlType type) {
    switch (type) {
      case SqlType::money:
        return "numeric";
      case SqlType::float32:
      case SqlType::float64:
        return "float8";
      case SqlType::date:
        return "timestamp";
      case SqlType::text:
        return "text";
      default:
        return "bigint";
    }
  }
  void exact_average(const Expr& e) override {
    out_ += e.type.base == SqlType::money ? "posto_divide_money(" : "posto_divide_int(";
    aggregate("sum", e, e.type);
    out_ += e.type.base == SqlType::money ? ", " : "::bigint, ";
    aggregate("count", e, e.type);
    out_ += ')';
  }

  // A number that was given must not be generated again.
  void returning(const Statement& s) override {
    const Table& table = *s.target->table;
    const Column* generated = table.identity();
    if (generated == nullptr) return;
    const bool given = std::find(s.target_columns.begin(), s.target_columns.end(), generated) != s.target_columns.end();
    const std::string column = quoted_name(generated->name);
    out_ += " RETURNING ";
    given ? put("posto_given('{}', '{}', {})", quoted_name(table.name), generated->name, column) : put("{}", column);
  }
};

}  // namespace

CompiledStatement write_postgres(const Statement& statement) { return PostgresWriter().run(statement); }

}  // namespace posto::tsql
