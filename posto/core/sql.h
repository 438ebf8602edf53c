// Statements written as SQL in the code.
#pragma once

#include <charconv>
#include <concepts>
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

// The text of a statement, checked while compiling to have a hole {} for each part.
template <class... Parts>
class SqlText {
 public:
  consteval SqlText(const char* raw) : raw_(raw) {
    std::size_t holes = 0;
    for (std::size_t i = 0; i + 1 < raw_.size(); ++i) holes += raw_[i] == '{' && raw_[i + 1] == '}';
    if (holes != sizeof...(Parts)) throw "a statement needs one part for each {}";
  }
  std::string_view raw() const { return raw_; }

 private:
  std::string_view raw_;
};

std::string compose_sql(std::string_view raw, std::span<const SqlPart> parts);

// Makes a statement of a raw string: one clause a line, the first line's indentation taken off each, the line ends
// turned into carriage returns, the holes {} filled in their order.
//
//   sql(R"(
//       SELECT   Nm_Bairro
//       FROM     Bairro
//       WHERE    Cd_Bairro = {})", Cd_Bairro)
template <class... Parts>
std::string sql(SqlText<std::type_identity_t<Parts>...> text, const Parts&... parts) {
  if constexpr (sizeof...(Parts) == 0) {
    return compose_sql(text.raw(), {});
  } else {
    const SqlPart list[] = {SqlPart(parts)...};
    return compose_sql(text.raw(), list);
  }
}

}  // namespace posto
