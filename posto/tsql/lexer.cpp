#include "posto/tsql/lexer.h"

#include <array>
#include <charconv>
#include <cstring>

#include "posto/types/erro.h"
#include "posto/types/text.h"

namespace posto::tsql {
namespace {

// The characters of a name come first.
enum CharClass : std::uint8_t { name, digit, other, quote, dash, bracket, double_quote, point };

constexpr std::array<std::uint8_t, 256> kClasses = [] {
  std::array<std::uint8_t, 256> c{};
  c.fill(other);
  for (int i = 'a'; i <= 'z'; ++i) c[static_cast<std::size_t>(i)] = name;
  for (int i = 'A'; i <= 'Z'; ++i) c[static_cast<std::size_t>(i)] = name;
  for (int i = 128; i < 256; ++i) c[static_cast<std::size_t>(i)] = name;
  for (int i = '0'; i <= '9'; ++i) c[static_cast<std::size_t>(i)] = digit;
  c['_'] = c['#'] = c['@'] = c['$'] = name;
  c['\''] = quote;
  c['-'] = dash;
  c['['] = bracket;
  c['"'] = double_quote;
  c['.'] = point;
  return c;
}();

std::uint8_t class_of(char c) { return kClasses[static_cast<unsigned char>(c)]; }
bool is_name_char(char c) { return class_of(c) <= digit; }
bool is_line_end(char c) { return c == '\r' || c == '\n'; }

const char* skip_name(const char* p, const char* end) {
  while (p < end && is_name_char(*p)) ++p;
  return p;
}

// A comment ends at a carriage return as well as at a line feed.
const char* skip_comment(const char* p, const char* end) {
  while (p < end && !is_line_end(*p)) ++p;
  return p;
}

// Behind the closing character, which stands doubled where it is meant; null when it is missing.
const char* skip_quoted(const char* p, const char* end, char close) {
  for (++p; p < end; ++p) {
    if (*p != close) continue;
    if (p + 1 < end && p[1] == close) {
      ++p;
    } else {
      return p + 1;
    }
  }
  return nullptr;
}

bool fits_int32(std::string_view digits) {
  if (digits.size() < 10) return true;
  std::int32_t value;
  auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return result.ec == std::errc{};
}

// Reads the number that begins at `p` with a digit, or with a point and a digit behind it.
Literal read_number(const char* p, const char* end) {
  const char* start = p;
  while (p < end && is_digit(*p)) ++p;
  const char* point_at = p;
  std::size_t decimals = 0;
  if (p < end && *p == '.') {
    ++p;
    while (p < end && is_digit(*p)) ++p;
    decimals = static_cast<std::size_t>(p - point_at) - 1;
  }
  auto kind = LiteralKind::integer;
  if (p > point_at) kind = decimals <= 4 ? LiteralKind::decimal : LiteralKind::long_decimal;
  if (p < end && (*p == 'e' || *p == 'E')) {
    const char* exponent = p + 1;
    if (exponent < end && (*exponent == '+' || *exponent == '-')) ++exponent;
    if (exponent < end && is_digit(*exponent)) {
      while (exponent < end && is_digit(*exponent)) ++exponent;
      return {LiteralKind::floating, {start, static_cast<std::size_t>(exponent - start)}};
    }
  }
  std::string_view raw(start, static_cast<std::size_t>(p - start));
  if (kind == LiteralKind::integer && !fits_int32(raw)) kind = LiteralKind::decimal;
  return {kind, raw};
}

bool begins_number(const char* p, const char* end) {
  return is_digit(*p) || (*p == '.' && p + 1 < end && is_digit(p[1]));
}

// Reads the text that begins at the quote `p`; false when its closing quote is missing.
bool read_text(const char* p, const char* end, Literal& literal) {
  const char* behind = skip_quoted(p, end, '\'');
  if (behind == nullptr) return false;
  const bool wild = p[1] == '%' || p[1] == '_' || p[1] == '[';
  literal = {wild ? LiteralKind::wild_text : LiteralKind::text, {p + 1, static_cast<std::size_t>(behind - p) - 2}};
  return true;
}

const char* behind(const Literal& literal) { return literal.raw.data() + literal.raw.size() + is_text(literal.kind); }

}  // namespace

std::string Literal::text() const {
  std::string value;
  value.reserve(raw.size());
  for (std::size_t i = 0; i < raw.size(); ++i) {
    value += raw[i];
    if (raw[i] == '\'') ++i;
  }
  return value;
}

void Shape::read(std::string_view statement) {
  literals.clear();
  places.clear();
  text.resize(statement.size());  // never longer than the statement
  char* out = text.data();
  const char* p = statement.data();
  const char* const end = p + statement.size();
  const char* copied = p;  // everything before this is in the shape
  auto take_out = [&](const Literal& literal) {
    const auto plain = static_cast<std::size_t>(p - copied);
    std::memcpy(out, copied, plain);
    out += plain;
    places.push_back(static_cast<std::uint32_t>(out - text.data()));
    *out++ = static_cast<char>(literal.kind);
    literals.push_back(literal);
    copied = p = behind(literal);
  };
  Literal literal{};
  while (p < end) {
    switch (class_of(*p)) {
      case name:
        p = skip_name(p + 1, end);
        break;
      case digit:
        take_out(read_number(p, end));
        break;
      case point:
        if (begins_number(p, end) && (p == statement.data() || !is_name_char(p[-1]))) {
          take_out(read_number(p, end));
        } else {
          ++p;
        }
        break;
      case quote:
        if (read_text(p, end, literal)) {
          take_out(literal);
        } else {
          p = end;
        }
        break;
      case dash:
        p = p + 1 < end && p[1] == '-' ? skip_comment(p, end) : p + 1;
        break;
      case bracket:
      case double_quote: {
        const char* closed = skip_quoted(p, end, *p == '[' ? ']' : '"');
        p = closed == nullptr ? end : closed;
        break;
      }
      default:
        do ++p;
        while (p < end && class_of(*p) == other);
    }
  }
  std::memcpy(out, copied, static_cast<std::size_t>(end - copied));
  out += end - copied;
  text.resize(static_cast<std::size_t>(out - text.data()));
}

// A token between two literals ends where it ended in the known statement: the bytes are the same, and behind them
// begins a literal of the same kind. A point alone would be part of the number behind it.
bool Shape::read_as(const Shape& known, std::string_view statement) {
  literals.clear();
  const char* p = statement.data();
  const char* const end = p + statement.size();
  const char* const known_text = known.text.data();
  std::size_t from = 0;
  auto same_up_to = [&](std::size_t to) {
    const std::size_t size = to - from;
    if (static_cast<std::size_t>(end - p) < size || std::memcmp(p, known_text + from, size) != 0) return false;
    p += size;
    from = to + 1;
    return true;
  };
  for (const std::uint32_t place : known.places) {
    if (!same_up_to(place) || p == end) return false;
    const auto kind = static_cast<LiteralKind>(known_text[place]);
    Literal literal{};
    if (is_text(kind)) {
      if (*p != '\'' || !read_text(p, end, literal)) return false;
    } else {
      if (!begins_number(p, end) || (p > statement.data() && p[-1] == '.')) return false;
      literal = read_number(p, end);
    }
    if (literal.kind != kind) return false;
    literals.push_back(literal);
    p = behind(literal);
  }
  return same_up_to(known.text.size()) && p == end;
}

std::string shortened(std::string_view text) {
  constexpr std::size_t kMostCharacters = 200;
  std::string_view head = first_chars(text, kMostCharacters);
  return head.size() == text.size() ? std::string(text) : std::string(head) + "...";
}

void raise_syntax(std::string_view statement, std::size_t position, const std::string& what) {
  std::size_t character = char_count(statement.substr(0, position)) + 1;
  throw Erro(erro::kSyntax, "tsql", shortened(what) + " (posição " + std::to_string(character) + ")");
}

namespace {

class Tokenizer {
 public:
  explicit Tokenizer(std::string_view statement)
      : statement_(statement), p_(statement.data()), end_(p_ + statement.size()) {}

  std::vector<Token> run() {
    while (skip_blank()) tokens_.push_back(next());
    tokens_.push_back({.kind = TokenKind::end, .position = statement_.size()});
    return std::move(tokens_);
  }

 private:
  std::size_t offset(const char* p) const { return static_cast<std::size_t>(p - statement_.data()); }

  // False at the end of the statement.
  bool skip_blank() {
    while (p_ < end_) {
      if (*p_ == ' ' || *p_ == '\t' || is_line_end(*p_)) {
        ++p_;
      } else if (*p_ == '-' && p_ + 1 < end_ && p_[1] == '-') {
        p_ = skip_comment(p_, end_);
      } else {
        return true;
      }
    }
    return false;
  }

  Token token(TokenKind kind, const char* first, const char* behind) {
    p_ = behind;
    return {.kind = kind, .position = offset(first), .text = {first, static_cast<std::size_t>(behind - first)}};
  }

  Token literal(const char* behind) {
    Token t = token(TokenKind::literal, p_, behind);
    t.literal = literals_++;
    return t;
  }

  Token quoted_name(char close) {
    const char* first = p_;
    const char* behind = skip_quoted(p_, end_, close);
    if (behind == nullptr) raise_syntax(statement_, offset(first), "Nome sem o fecho " + std::string(1, close));
    Token t = token(TokenKind::identifier, first, behind);
    t.text = t.text.substr(1, t.text.size() - 2);
    t.quoted = true;
    return t;
  }

  Token next() {
    const char* p = p_;
    bool behind_name = p > statement_.data() && is_name_char(p[-1]);
    if (class_of(*p) == name) return token(TokenKind::identifier, p, skip_name(p, end_));
    if (is_digit(*p) || (!behind_name && begins_number(p, end_))) return literal(p + read_number(p, end_).raw.size());
    switch (*p) {
      case '\'': {
        const char* behind = skip_quoted(p, end_, '\'');
        if (behind == nullptr) raise_syntax(statement_, offset(p), "Texto sem o apóstrofo final");
        return literal(behind);
      }
      case '[':
        return quoted_name(']');
      case '"':
        return quoted_name('"');
      case '?': {
        Token t = token(TokenKind::marker, p, p + 1);
        t.literal = markers_++;
        return t;
      }
      default:
        return symbol(p);
    }
  }

  Token symbol(const char* p) {
    static constexpr std::string_view kPairs[] = {"<>", "<=", ">=", "!=", "!<", "!>"};
    static constexpr std::string_view kSingles = "=<>+-*/(),.;";
    for (std::string_view pair : kPairs) {
      if (std::string_view(p, static_cast<std::size_t>(end_ - p)).starts_with(pair)) {
        return token(TokenKind::symbol, p, p + 2);
      }
    }
    if (kSingles.find(*p) != std::string_view::npos) return token(TokenKind::symbol, p, p + 1);
    raise_syntax(statement_, offset(p), "Caractere inesperado '" + std::string(1, *p) + "'");
  }

  std::string_view statement_;
  const char* p_;
  const char* end_;
  std::size_t literals_ = 0;
  std::size_t markers_ = 0;
  std::vector<Token> tokens_;
};

}  // namespace

std::vector<Token> tokenize(std::string_view statement) { return Tokenizer(statement).run(); }

}  // namespace posto::tsql
