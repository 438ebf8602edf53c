// Expressions: conditions and values.
#pragma once

#include "posto/tsql/ast.h"
#include "posto/tsql/token_reader.h"

namespace posto::tsql {

class ExpressionParser : public TokenReader {
 public:
  using TokenReader::TokenReader;

 protected:
  virtual ~ExpressionParser() = default;
  ExprPtr expression();  // a condition or a value
  Type data_type(bool* padded = nullptr);
  virtual std::unique_ptr<Select> select() = 0;

 private:
  ExprPtr make(ExprKind kind) const;
  // Makes `child` an operand of `parent`; refuses a tree too deep to be walked.
  void adopt(Expr& parent, ExprPtr child) const;
  ExprPtr infix(ExprKind kind, Op op, ExprPtr left, ExprPtr (ExpressionParser::*right)());
  ExprPtr and_terms();
  ExprPtr not_term();
  ExprPtr predicate();
  ExprPtr sum();
  ExprPtr product();
  ExprPtr unary();
  ExprPtr primary();
  ExprPtr word();
  ExprPtr literal_value();
  ExprPtr parenthesised();
  ExprPtr in_tail(ExprPtr left, bool inverted);
  ExprPtr between_tail(ExprPtr left, bool inverted);
  ExprPtr case_when();
  ExprPtr cast();
  ExprPtr convert();
  ExprPtr call(Function function);
  ExprPtr column();
  bool at_select() const { return at_symbol("(") && is_word(peek(1), "SELECT"); }
};

}  // namespace posto::tsql
