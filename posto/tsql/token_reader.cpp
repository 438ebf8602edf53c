#include "posto/tsql/token_reader.h"

#include <algorithm>
#include <charconv>

#include "posto/types/text.h"

namespace posto::tsql {
namespace {

// Words that are never a name unless they are quoted.
constexpr std::string_view kReserved[] = {
    "ALL",    "AND",  "AS",    "ASC",  "BETWEEN", "BY",    "CASE",   "CREATE", "CROSS",  "DELETE", "DESC",  "DISTINCT",
    "DROP",   "ELSE", "END",   "EXEC", "EXISTS",  "FROM",  "FULL",   "GROUP",  "HAVING", "IN",     "INNER", "INSERT",
    "INTO",   "IS",   "JOIN",  "LEFT", "LIKE",    "NOT",   "NULL",   "ON",     "OR",     "ORDER",  "OUTER", "RIGHT",
    "SELECT", "SET",  "TABLE", "THEN", "TOP",     "UNION", "UPDATE", "USE",    "VALUES", "WHEN",   "WHERE"};

bool is_reserved(std::string_view word) {
  return std::any_of(std::begin(kReserved), std::end(kReserved), [&](auto r) { return equal_names(r, word); });
}

}  // namespace

const Token& TokenReader::peek(std::size_t ahead) const { return tokens_[std::min(next_ + ahead, tokens_.size() - 1)]; }

const Token& TokenReader::advance() {
  const Token& token = peek();
  if (next_ + 1 < tokens_.size()) ++next_;
  return token;
}

bool TokenReader::is_word(const Token& token, std::string_view word) const {
  return token.kind == TokenKind::identifier && !token.quoted && equal_names(token.text, word);
}

bool TokenReader::accept_word(std::string_view word) {
  if (!at_word(word)) return false;
  advance();
  return true;
}

bool TokenReader::accept_symbol(std::string_view symbol) {
  if (!at_symbol(symbol)) return false;
  advance();
  return true;
}

void TokenReader::expect_word(std::string_view word) {
  if (!accept_word(word)) fail_here();
}

void TokenReader::expect_symbol(std::string_view symbol) {
  if (!accept_symbol(symbol)) fail_here();
}

bool TokenReader::at_name() const {
  const Token& token = peek();
  return token.kind == TokenKind::identifier && (token.quoted || !is_reserved(token.text));
}

std::string TokenReader::expect_name(std::string_view what) {
  if (!at_name()) fail("Esperado " + std::string(what));
  return std::string(advance().text);
}

std::int64_t TokenReader::expect_pinned_integer(std::string_view what) {
  const Token& token = peek();
  if (token.kind != TokenKind::literal || literal(token).kind != LiteralKind::integer) {
    fail("Esperado " + std::string(what));
  }
  pin(token);
  std::int64_t value = 0;
  std::string_view raw = literal(token).raw;
  std::from_chars(raw.data(), raw.data() + raw.size(), value);
  advance();
  return value;
}

void TokenReader::fail_here() const {
  if (at_end()) fail("Comando incompleto");
  fail("Sintaxe incorreta próximo a '" + std::string(peek().text) + "'");
}

void TokenReader::fail(const std::string& what) const { raise_syntax(batch_, peek().position, what); }

}  // namespace posto::tsql
