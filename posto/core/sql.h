// Statements written as SQL in the code.
#pragma once

#include <algorithm>
#include <charconv>
#include <concepts>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

namespace posto {

// A value that fills a hole of a statement: text as it stands (a literal, a name, a condition), a whole number in plain
// digits. Money, floats, dates and booleans go through their literal routine first.
class SqlPart {
 public:
  SqlPart(std::string_view text) : text_(text) {}
  SqlPart(const std::string& text) : text_(text) {}
  SqlPart(const char* text) : text_(text) {}
  template <std::integral T>
  requires(!std::same_as<T, bool> && !std::same_as<T, char>) SqlPart(T number) {
    auto end = std::to_chars(digits_, digits_ + sizeof digits_, number).ptr;
    length_ = static_cast<std::size_t>(end - digits_);
  }
  std::string_view text() const { return length_ > 0 ? std::string_view(digits_, length_) : text_; }

 private:
  std::string_view text_;
  char digits_[20];
  std::size_t length_ = 0;
};

// The text of a statement as pieces that are taken over as they stand, found while compiling. Behind each comes a line
// end, a hole or the end of the text. Small, because each call of sql() makes one.
class SqlPieces {
 public:
  struct Piece {
    std::uint16_t begin = 0, size = 0;
  };

  // Each line loses the blanks that begin the first.
  consteval explicit SqlPieces(std::string_view raw) {
    if (raw.ends_with('\n')) raw.remove_suffix(1);
    std::size_t at = raw.starts_with('\n') ? 1 : 0;
    const std::size_t indent = blanks(raw, at);
    std::size_t begin = at + indent;
    for (at = begin; at < raw.size();) {
      if (raw[at] == '\n') {
        add(begin, at);
        begin = at + 1 + std::min(indent, blanks(raw, at + 1));
        at = begin;
      } else if (raw.substr(at).starts_with("{}")) {
        add(begin, at);
        ++holes_;
        begin = at += 2;
      } else {
        ++at;
      }
    }
    add(begin, raw.size());
    raw_ = raw;
  }

  std::string_view raw() const { return raw_; }
  std::span<const Piece> pieces() const { return {pieces_, count_}; }
  constexpr std::size_t holes() const { return holes_; }

 private:
  static constexpr std::size_t kMost = 64;

  static consteval std::size_t blanks(std::string_view raw, std::size_t from) {
    std::size_t n = 0;
    while (from + n < raw.size() && raw[from + n] == ' ') ++n;
    return n;
  }
  consteval void add(std::size_t begin, std::size_t end) {
    if (count_ == kMost) throw "a statement has at most 64 lines and holes";
    pieces_[count_++] = {static_cast<std::uint16_t>(begin), static_cast<std::uint16_t>(end - begin)};
  }

  std::string_view raw_;
  std::size_t count_ = 0, holes_ = 0;
  Piece pieces_[kMost];
};

// A statement's text, checked while compiling to have a hole {} for each part. The pieces are a member and no base,
// because clang 14 and 16 lay out a constant with a base otherwise than its type, and break.
template <class... Parts>
class SqlText {
 public:
  consteval SqlText(const char* raw) : pieces_(raw) {
    if (pieces_.holes() != sizeof...(Parts)) throw "a statement needs one part for each {}";
  }
  const SqlPieces& pieces() const { return pieces_; }

 private:
  SqlPieces pieces_;
};

std::string compose_sql(const SqlPieces& text, std::span<const SqlPart> parts);

// Makes a statement of a raw string: one clause a line, the first line's indentation taken off each, the line ends
// turned into carriage returns, the holes {} filled in their order.
//
//   sql(R"(
//       SELECT   Nm_Bairro
//       FROM     Bairro
//       WHERE    Cd_Bairro = {})", Cd_Bairro)
template <class... Parts>
std::string sql(const SqlText<std::type_identity_t<Parts>...>& text, const Parts&... parts) {
  if constexpr (sizeof...(Parts) == 0) {
    return compose_sql(text.pieces(), {});
  } else {
    const SqlPart list[] = {SqlPart(parts)...};
    return compose_sql(text.pieces(), list);
  }
}

}  // namespace posto
