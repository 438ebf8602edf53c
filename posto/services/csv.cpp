#include "posto/services/csv.h"

#include <filesystem>

#include "posto/types/erro.h"

namespace posto {

std::optional<std::vector<std::string>> split_csv(std::string_view line) {
  std::vector<std::string> fields;
  std::size_t at = 0;
  for (;;) {
    std::string field;
    bool quoted = at < line.size() && line[at] == '"';
    if (quoted) {
      for (++at;; ++at) {
        if (at >= line.size()) return std::nullopt;
        if (line[at] != '"') {
          field += line[at];
        } else if (at + 1 < line.size() && line[at + 1] == '"') {
          field += line[++at];
        } else {
          break;
        }
      }
      ++at;
    } else {
      std::size_t end = std::min(line.find(',', at), line.size());
      field = line.substr(at, end - at);
      if (field.find('"') != std::string::npos) return std::nullopt;
      at = end;
    }
    fields.push_back(std::move(field));
    if (at == line.size()) return fields;
    if (line[at] != ',') return std::nullopt;
    ++at;
  }
}

std::string csv_field(std::string_view text) {
  if (!text.empty() && text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
  std::string quoted = "\"";
  for (char c : text) {
    quoted += c;
    if (c == '"') quoted += c;
  }
  return quoted + '"';
}

LineFile::LineFile(const std::string& path) {
  if (!std::filesystem::exists(path)) throw Erro(erro::kFileNotFound, {}, "O arquivo " + path + " não existe");
  file_.open(path, std::ios::binary);
  if (!file_ || std::filesystem::is_directory(path)) {
    throw Erro(erro::kPathFileAccess, {}, "O arquivo " + path + " não pode ser lido");
  }
}

bool LineFile::next(std::string& line) {
  if (!std::getline(file_, line)) {
    if (file_.bad()) throw Erro(erro::kPathFileAccess, {}, "Falha de leitura na linha " + std::to_string(number_ + 1));
    return false;
  }
  ++number_;
  if (line.ends_with('\r')) line.pop_back();
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (number_ == 1 && line.starts_with(kByteOrderMark)) line.erase(0, kByteOrderMark.size());
  return true;
}

}  // namespace posto
