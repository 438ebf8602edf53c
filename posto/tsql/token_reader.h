// Walks the tokens of a batch: what the parser's two halves have in common.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "posto/tsql/lexer.h"

namespace posto::tsql {

class TokenReader {
 public:
  TokenReader(std::string_view batch, const std::vector<Literal>& literals, std::vector<std::size_t>& pinned)
      : batch_(batch), literals_(literals), pinned_(pinned), tokens_(tokenize(batch)) {}

 protected:
  // Nesting that no statement of a person reaches, and no stack is exhausted by.
  static constexpr int kMaxDepth = 100;
  class Nesting {
   public:
    explicit Nesting(TokenReader& reader) : reader_(reader) {
      if (++reader_.depth_ > kMaxDepth) reader_.fail("Expressão aninhada demais");
    }
    ~Nesting() { --reader_.depth_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

   private:
    TokenReader& reader_;
  };

  const Token& peek(std::size_t ahead = 0) const;
  const Token& advance();
  bool at_end() const { return peek().kind == TokenKind::end; }

  bool is_word(const Token& token, std::string_view word) const;
  bool at_word(std::string_view word) const { return is_word(peek(), word); }
  bool at_symbol(std::string_view symbol) const { return peek().kind == TokenKind::symbol && peek().text == symbol; }
  bool accept_word(std::string_view word);
  bool accept_symbol(std::string_view symbol);
  void expect_word(std::string_view word);
  void expect_symbol(std::string_view symbol);
  // A name that is no keyword; `what` tells a person what was missing.
  std::string expect_name(std::string_view what);
  bool at_name() const;

  // An integer whose value belongs to the form of the statement.
  std::int64_t expect_pinned_integer(std::string_view what);
  const Literal& literal(const Token& token) const { return literals_[token.literal]; }
  void pin(const Token& token) { pinned_.push_back(token.literal); }

  [[noreturn]] void fail_here() const;                    // "incorrect syntax near ..."
  [[noreturn]] void fail(const std::string& what) const;  // at the next token
  [[noreturn]] void fail(const std::string& what, std::size_t position) const { raise_syntax(batch_, position, what); }

 private:
  std::string_view batch_;
  const std::vector<Literal>& literals_;
  std::vector<std::size_t>& pinned_;
  std::vector<Token> tokens_;
  std::size_t next_ = 0;
  int depth_ = 0;
};

}  // namespace posto::tsql
