#include "posto/core/text_routines.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <limits>

#include "posto/core/error_vocabulary.h"
#include "posto/types/text.h"

namespace posto {
namespace {

constexpr std::int32_t kPathNotFound = 76;

bool is_letter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool is_blank_or_mark(char c) { return c >= ' ' && c <= '/'; }

// Every test keeps ASCII only, so that a byte of a longer character is never kept.
template <class Test>
std::string kept(std::string_view value, Test test) {
  std::string out;
  std::ranges::copy_if(value, std::back_inserter(out), test);
  return out;
}

// The 8-bit counter that walks the text has to pass its last character.
void require_short(std::string_view value) {
  if (char_count(value) >= std::numeric_limits<std::uint8_t>::max()) throw platform_erro(erro::kOverflow);
}

// How many characters of padding go to the left.
std::size_t left_padding(std::size_t padding, std::int32_t alignment) {
  if (alignment == 1) return padding;
  if (alignment != 2) return 0;
  const std::size_t half = padding / 2;
  return padding % 2 == 1 && half % 2 == 1 ? half + 1 : half;
}

void append_padding(std::string& out, std::size_t count, std::string_view pad) {
  if (count > 0 && pad.empty()) throw platform_erro(erro::kInvalidCall);
  for (; count > 0; --count) out += first_chars(pad, 1);
}

void append_fixed_width(std::string& out, std::string_view text, std::int16_t width, std::string_view pad,
                        std::int32_t alignment) {
  text = trim(text);
  const std::size_t length = char_count(text);
  if (length > std::numeric_limits<std::int16_t>::max()) throw platform_erro(erro::kOverflow);
  if (width < 0) throw platform_erro(erro::kInvalidCall);
  const auto wanted = static_cast<std::size_t>(width);
  if (length > wanted) {
    out += first_chars(text, wanted);
    return;
  }
  const std::size_t padding = alignment >= 0 && alignment <= 2 ? wanted - length : 0;
  const std::size_t left = left_padding(padding, alignment);
  append_padding(out, left, pad);
  out += text;
  append_padding(out, padding - left, pad);
}

}  // namespace

void FixaTamanhoVariavel(std::string& out, std::string_view text, std::int16_t width, std::string_view pad,
                         std::int32_t alignment) {
  guarded("DALModulo", "FixaTamanhoVariavel", [&] { append_fixed_width(out, text, width, pad, alignment); });
}

std::string FixaTamanhoVariavel(std::string& text, std::int16_t width, std::string_view pad, std::int32_t alignment) {
  std::string field;
  FixaTamanhoVariavel(field, text, width, pad, alignment);
  return text = field;
}

std::string FixaTamanhoVariavel(Variant& text, std::int16_t width, std::string_view pad, std::int32_t alignment) {
  std::string field = text.is_null() ? std::string() : text.as<std::string>();
  FixaTamanhoVariavel(field, width, pad, alignment);
  text = field;
  return field;
}

std::string RetiraCaracteresNaoNumericos(std::string_view value) {
  return guarded("DALModulo", "RetiraCaracteresNaoNumericos", [&] {
    require_short(value);
    return kept(value, is_digit);
  });
}

std::string DALModulo::RetiraCaracteresEspeciais(std::string_view value) {
  return guarded("DALModulo", "RetiraCaracteresEspeciais", [&] {
    require_short(value);
    return kept(value, [](char c) { return is_digit(c) || is_letter(c); });
  });
}

std::string BOModulo::RetiraCaracteresEspeciais(std::string_view value) {
  return kept(value, [](char c) { return is_blank_or_mark(c) || is_digit(c) || is_letter(c); });
}

std::size_t GravaLinhaArquivoTexto(const std::string& path, std::string_view line) {
  return guarded("String", "GravaLinhaArquivoTexto", [&] {
    std::error_code unreachable;
    const auto folder = std::filesystem::path(path).parent_path();
    if (!folder.empty() && !std::filesystem::is_directory(folder, unreachable)) {
      throw Erro(kPathNotFound, {}, "Path not found: " + path);
    }
    const Encoded encoded = to_windows_1252(line);
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << encoded.bytes << "\r\n";
    file.close();
    if (!file) throw platform_erro(erro::kPathFileAccess, path);
    return encoded.replaced;
  });
}

std::string LeLinhaArquivoTexto(const std::string& path) {
  return guarded("String", "LeLinhaArquivoTexto", [&] {
    std::error_code unreachable;
    if (!std::filesystem::exists(path, unreachable) || std::filesystem::is_directory(path, unreachable)) {
      return std::string();
    }
    std::ifstream file(path, std::ios::binary);
    if (!file) throw platform_erro(erro::kPathFileAccess, path);
    std::string line;
    std::getline(file, line);  // a failed read gives the empty text
    return from_windows_1252(std::string_view(line).substr(0, line.find('\r')));
  });
}

}  // namespace posto
