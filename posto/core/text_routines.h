// Text brought into the form of a field, and the text file of one line. A failure keeps its number and gets the step
// " -> <module>.<routine>, " on its source. A character is a code point.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "posto/types/variant.h"

namespace posto {

// Trims the text's blanks and brings it to `width` characters with the first character of `pad`: it is cut at the
// right, or padded at the right (alignment 0), at the left (1), at both sides, the left getting the half rounded to
// even (2), or not at all (any other). The result is stored in `text` too; a null counts as the empty text. Module
// DALModulo. Raises 5 for a negative width or where there is nothing to pad with, 6 above 32767 characters.
std::string FixaTamanhoVariavel(std::string& text, std::int16_t width, std::string_view pad, std::int32_t alignment);
std::string FixaTamanhoVariavel(Variant& text, std::int16_t width, std::string_view pad, std::int32_t alignment);
// The same, appended to `out`.
void FixaTamanhoVariavel(std::string& out, std::string_view text, std::int16_t width, std::string_view pad,
                         std::int32_t alignment);

// The text's digits. Module DALModulo. Raises 6 for a text of 255 characters or more.
std::string RetiraCaracteresNaoNumericos(std::string_view value);

namespace DALModulo {
// The text's ASCII letters and digits. Raises 6 for a text of 255 characters or more.
std::string RetiraCaracteresEspeciais(std::string_view value);
}  // namespace DALModulo

namespace BOModulo {
// The text's ASCII letters, digits, blanks and the punctuation of codes 33 to 47, for the fiscal printer.
std::string RetiraCaracteresEspeciais(std::string_view value);
}  // namespace BOModulo

// Creates the file at `path`, or replaces it, with one line in Windows-1252. Gives the number of characters that have
// no place there and were written as "?". Module String. Raises 75 when the file cannot be created or written, 76 when
// its folder does not exist.
std::size_t GravaLinhaArquivoTexto(const std::string& path, std::string_view line);

// The first line of the file, which is Windows-1252; the empty text when there is no file or it is empty.
// Module String. Raises 75 when the file cannot be opened.
std::string LeLinhaArquivoTexto(const std::string& path);

}  // namespace posto
