#include "posto/tsql/parser.h"

#include <algorithm>

#include "posto/tsql/expression_parser.h"
#include "posto/types/text.h"

namespace posto::tsql {
namespace {

class StatementParser : public ExpressionParser {
 public:
  using ExpressionParser::ExpressionParser;

  std::vector<Statement> batch() {
    std::vector<Statement> statements;
    while (accept_symbol(";")) continue;
    while (!at_end()) {
      statements.push_back(statement());
      statements.back().end = peek().position;
      while (accept_symbol(";")) continue;
    }
    if (statements.empty()) fail("Comando vazio");
    return statements;
  }

 private:
  Statement make(StatementKind kind) {
    Statement s;
    s.kind = kind;
    s.position = peek().position;
    return s;
  }

  Statement statement() {
    if (at_word("SELECT")) {
      Statement s = make(StatementKind::select);
      s.select = select();
      return s;
    }
    if (at_word("INSERT")) return insert();
    if (at_word("UPDATE")) return update();
    if (at_word("DELETE")) return remove();
    if (at_word("CREATE")) return create_table();
    if (at_word("DROP")) return drop_table();
    if (at_word("SET")) return set_date_format();
    fail_here();
  }

  // A table's name; database and owner in front of it do not matter.
  std::unique_ptr<Source> table_name() {
    auto source = std::make_unique<Source>();
    source->position = peek().position;
    source->name = expect_name("um nome de tabela");
    while (accept_symbol(".")) source->name = expect_name("um nome de tabela");
    return source;
  }

  std::unique_ptr<Select> select() override {
    Nesting nesting(*this);
    auto s = std::make_unique<Select>();
    s->parts.push_back(core());
    while (accept_word("UNION")) {
      bool all = accept_word("ALL");
      if (s->parts.size() > 1 && s->unique == all) fail("UNION e UNION ALL não se misturam num comando");
      s->unique = !all;
      s->parts.push_back(core());
    }
    if (accept_word("ORDER")) order_by(*s);
    return s;
  }

  void order_by(Select& s) {
    expect_word("BY");
    do {
      OrderItem item;
      const Token& token = peek();
      if (token.kind == TokenKind::literal && literal(token).kind == LiteralKind::integer) {
        item.output = static_cast<std::size_t>(expect_pinned_integer("uma posição"));
        if (item.output == 0) fail("Posição de ordenação inválida", token.position);
      } else {
        item.expr = expression();
      }
      if (accept_word("DESC")) {
        item.descending = true;
      } else {
        accept_word("ASC");
      }
      s.order_by.push_back(std::move(item));
    } while (accept_symbol(","));
  }

  SelectCore core() {
    SelectCore c;
    expect_word("SELECT");
    c.distinct = accept_word("DISTINCT");
    if (!c.distinct) accept_word("ALL");
    if (accept_word("TOP")) c.top = expect_pinned_integer("a quantidade de TOP");
    do {
      c.items.push_back(item());
    } while (accept_symbol(","));
    if (accept_word("FROM")) {
      do {
        c.from.push_back(joined());
      } while (accept_symbol(","));
    }
    if (accept_word("WHERE")) c.where = expression();
    if (accept_word("GROUP")) {
      expect_word("BY");
      do {
        c.group_by.push_back(expression());
      } while (accept_symbol(","));
    }
    if (accept_word("HAVING")) c.having = expression();
    return c;
  }

  SelectItem item() {
    SelectItem i;
    i.position = peek().position;
    if (accept_symbol("*")) return i;
    bool star_of = at_name() && is_symbol(peek(1), ".") && is_symbol(peek(2), "*");
    if (star_of) {
      i.star_of = std::string(advance().text);
      advance();
      advance();
      return i;
    }
    i.expr = expression();
    if (accept_word("AS")) {
      i.alias = expect_name("um nome de coluna");
    } else if (at_name()) {
      i.alias = std::string(advance().text);
    }
    return i;
  }

  static bool is_symbol(const Token& token, std::string_view symbol) {
    return token.kind == TokenKind::symbol && token.text == symbol;
  }

  std::unique_ptr<From> joined() {
    Nesting nesting(*this);
    static constexpr int kMaxJoins = 100;
    std::unique_ptr<From> left = table();
    for (int joins = 0;; ++joins) {
      auto kind = join_kind();
      if (!kind) return left;
      if (joins == kMaxJoins) fail("Junções demais");
      auto join = std::make_unique<From>();
      join->join = *kind;
      join->left = std::move(left);
      join->right = table();
      if (*kind != JoinKind::cross) {
        expect_word("ON");
        join->on = expression();
      }
      left = std::move(join);
    }
  }

  std::optional<JoinKind> join_kind() {
    if (accept_word("JOIN")) return JoinKind::inner;
    static constexpr std::pair<std::string_view, JoinKind> kKinds[] = {{"INNER", JoinKind::inner},
                                                                       {"LEFT", JoinKind::left},
                                                                       {"RIGHT", JoinKind::right},
                                                                       {"FULL", JoinKind::full},
                                                                       {"CROSS", JoinKind::cross}};
    for (const auto& [word, kind] : kKinds) {
      if (!accept_word(word)) continue;
      if (kind == JoinKind::left || kind == JoinKind::right || kind == JoinKind::full) accept_word("OUTER");
      expect_word("JOIN");
      return kind;
    }
    return std::nullopt;
  }

  std::unique_ptr<From> table() {
    Nesting nesting(*this);
    if (accept_symbol("(")) {
      auto inner = joined();
      expect_symbol(")");
      return inner;
    }
    auto from = std::make_unique<From>();
    from->source = table_name();
    if (accept_word("AS")) {
      from->source->alias = expect_name("um apelido de tabela");
    } else if (at_name()) {
      from->source->alias = std::string(advance().text);
    }
    return from;
  }

  Statement insert() {
    Statement s = make(StatementKind::insert);
    advance();
    accept_word("INTO");
    s.target = table_name();
    if (accept_symbol("(")) {
      do {
        s.column_positions.push_back(peek().position);
        s.columns.push_back(expect_name("um nome de coluna"));
      } while (accept_symbol(","));
      expect_symbol(")");
    }
    if (at_word("SELECT")) {
      s.select = select();
      return s;
    }
    expect_word("VALUES");
    expect_symbol("(");
    do {
      s.values.push_back(expression());
    } while (accept_symbol(","));
    expect_symbol(")");
    return s;
  }

  Statement update() {
    Statement s = make(StatementKind::update);
    advance();
    s.target = table_name();
    expect_word("SET");
    do {
      Assignment a;
      a.position = peek().position;
      a.name = expect_name("um nome de coluna");
      while (accept_symbol(".")) {
        a.qualifier = std::move(a.name);
        a.name = expect_name("um nome de coluna");
      }
      expect_symbol("=");
      a.value = expression();
      s.assignments.push_back(std::move(a));
    } while (accept_symbol(","));
    if (accept_word("WHERE")) s.where = expression();
    return s;
  }

  Statement remove() {
    Statement s = make(StatementKind::remove);
    advance();
    accept_word("FROM");
    s.target = table_name();
    if (accept_word("WHERE")) s.where = expression();
    return s;
  }

  std::unique_ptr<Source> temporary_name(const char* otherwise) {
    auto name = table_name();
    if (!name->name.starts_with('#')) fail(otherwise, name->position);
    return name;
  }

  Statement drop_table() {
    Statement s = make(StatementKind::drop_table);
    advance();
    expect_word("TABLE");
    s.target = temporary_name("Só se excluem tabelas temporárias (#)");
    return s;
  }

  Statement create_table() {
    Statement s = make(StatementKind::create_table);
    advance();
    expect_word("TABLE");
    s.target = temporary_name("Só se criam tabelas temporárias (#)");
    expect_symbol("(");
    do {
      if (at_word("PRIMARY")) {
        table_key(s);
      } else {
        s.specs.push_back(column_spec());
      }
    } while (accept_symbol(","));
    expect_symbol(")");
    return s;
  }

  ColumnSpec column_spec() {
    ColumnSpec c;
    c.name = expect_name("um nome de coluna");
    c.type = data_type();
    for (;;) {
      if (accept_word("NOT")) {
        expect_word("NULL");
        c.nullable = false;
      } else if (accept_word("NULL")) {
        c.nullable = true;
      } else if (accept_word("PRIMARY")) {
        expect_word("KEY");
        c.key = true;
        c.nullable = false;
      } else if (accept_word("IDENTITY")) {
        identity_of(c);
      } else {
        return c;
      }
    }
  }

  void identity_of(ColumnSpec& c) {
    c.identity = true;
    c.nullable = false;
    if (!accept_symbol("(")) return;
    std::int64_t seed = expect_pinned_integer("o início da sequência");
    expect_symbol(",");
    std::int64_t step = expect_pinned_integer("o passo da sequência");
    if (seed != 1 || step != 1) fail("A sequência começa em 1 e anda de 1 em 1");
    expect_symbol(")");
  }

  void table_key(Statement& s) {
    advance();
    expect_word("KEY");
    expect_symbol("(");
    do {
      std::string name = expect_name("um nome de coluna");
      auto found =
          std::find_if(s.specs.begin(), s.specs.end(), [&](const auto& c) { return equal_names(c.name, name); });
      if (found == s.specs.end()) fail("Coluna desconhecida '" + name + "'");
      found->key = true;
      found->nullable = false;
    } while (accept_symbol(","));
    expect_symbol(")");
  }

  Statement set_date_format() {
    Statement s = make(StatementKind::set_date_format);
    advance();
    expect_word("DATEFORMAT");
    std::size_t at = peek().position;
    s.date_format = ascii_lower(expect_name("a ordem da data"));
    static constexpr std::string_view kOrders[] = {"mdy", "dmy", "ymd", "ydm", "myd", "dym"};
    if (std::find(std::begin(kOrders), std::end(kOrders), s.date_format) == std::end(kOrders)) {
      fail("Ordem de data desconhecida '" + s.date_format + "'", at);
    }
    return s;
  }
};

}  // namespace

std::vector<Statement> parse(std::string_view batch, const std::vector<Literal>& literals,
                             std::vector<std::size_t>& pinned) {
  return StatementParser(batch, literals, pinned).batch();
}

}  // namespace posto::tsql
