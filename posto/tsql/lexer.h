// Reads statement text: finds the literals for the shape of a statement, and splits it into tokens for the parser.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace posto::tsql {

// Short decimals have at most four decimals, as money has. An integer beyond 32 bits is a decimal. A wild text begins
// with a wild card of Like, so that one that does not can use an index.
enum class LiteralKind : char { integer = 1, decimal, long_decimal, floating, text, wild_text };
inline bool is_text(LiteralKind kind) { return kind == LiteralKind::text || kind == LiteralKind::wild_text; }

// A literal as it stands in the text. Of a text: what is between the quotes, with quotes inside still doubled.
struct Literal {
  LiteralKind kind;
  std::string_view raw;
  std::string text() const;  // of a text literal: its value
};

// What remains of a statement when its literals are taken out: statements of one shape differ only in values. A shape's
// text holds a control character in the place of each literal, which tells the literal's kind.
struct Shape {
  std::string text;
  std::vector<std::uint32_t> places;  // of the literals in the text
  std::vector<Literal> literals;      // views into the statement

  // One pass over the statement; keeps the memory of earlier calls.
  void read(std::string_view statement);
  // Reads the literals of a statement whose shape is likely to be `known`: what stands between them is compared, not
  // read. False when it is another shape, for `read` to find out.
  bool read_as(const Shape& known, std::string_view statement);
};

enum class TokenKind : std::uint8_t { end, identifier, literal, symbol, marker };

struct Token {
  TokenKind kind = TokenKind::end;
  bool quoted = false;       // an identifier in brackets or double quotes: never a keyword
  std::size_t literal = 0;   // of a literal: its position in Shape::literals; of a marker: which one
  std::size_t position = 0;  // of the first byte, from 0
  std::string_view text{};   // as it stands, without brackets
};

// Splits a statement; the last token is `end`. Raises 0x80040E14 for a character that begins no token, a text or a
// quoted name without its end.
std::vector<Token> tokenize(std::string_view statement);

// A text as far as a message shows it.
std::string shortened(std::string_view text);

// The syntax failure at a place of a statement, counted in characters from 1 for the message.
[[noreturn]] void raise_syntax(std::string_view statement, std::size_t position, const std::string& what);

}  // namespace posto::tsql
