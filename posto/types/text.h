// Text: UTF-8 in memory, where a character is a code point; Windows-1252 in files.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace posto {

bool is_valid_utf8(std::string_view text);
// How many characters (code points) the text has. Bytes that are not UTF-8 count one each.
std::size_t char_count(std::string_view text);
// The first `count` characters; a view into `text`.
std::string_view first_chars(std::string_view text, std::size_t count);
// `count` characters from the 1-based position `start`; a view into `text`, empty when it lies outside.
std::string_view mid_chars(std::string_view text, std::size_t start, std::size_t count);
// Blanks (character 32) taken off: at both ends, at the end.
std::string_view trim(std::string_view text);
std::string_view trim_end(std::string_view text);

constexpr bool is_digit(char c) { return c >= '0' && c <= '9'; }
constexpr char ascii_lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }
// Equal without regard to the case of the ASCII letters: for names of columns, keys and properties.
bool equal_names(std::string_view a, std::string_view b);
std::string ascii_lower(std::string_view text);
std::string ascii_upper(std::string_view text);

// Orders text as the database does: letters by their base letter first, then by accent, never by case; symbols before
// digits before letters; trailing blanks do not count. Negative, zero (equal) or positive.
int compare_text(std::string_view a, std::string_view b);
// Feeds a hash so that texts that compare equal hash equal.
std::size_t hash_text(std::string_view text);
// The pattern language of Like: % any run, _ one character, [a-f] [xyz] [^...] one of a set. Blind to case, not to
// accents; trailing blanks of the text count.
bool like_text(std::string_view text, std::string_view pattern);

struct Encoded {
  std::string bytes;
  std::size_t replaced = 0;  // how many characters had no place and were written as "?"
};
// UTF-8 to Windows-1252 and back. Of the bytes that Windows-1252 leaves undefined each becomes the control character of
// the same code.
Encoded to_windows_1252(std::string_view utf8);
std::string from_windows_1252(std::string_view bytes);

}  // namespace posto
