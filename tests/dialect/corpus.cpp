#include "tests/dialect/corpus.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace posto::testing {
namespace {

void read_file(const std::filesystem::path& path, std::vector<CorpusEntry>& entries) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error("cannot read " + path.string());
  bool inside = false;
  for (std::string line; std::getline(file, line);) {
    if (line.empty()) {
      inside = false;
    } else if (!inside) {
      entries.push_back({.file = path.filename().string(), .name = line.substr(3), .statement = {}});
      inside = true;
    } else if (line.starts_with("-- refused: ")) {
      entries.back().refused = true;
    } else {
      entries.back().statement += line + '\r';
    }
  }
}

const std::vector<CorpusEntry>& kept_corpus() {
  static const std::vector<CorpusEntry> entries = read_corpus();
  return entries;
}

}  // namespace

std::vector<CorpusEntry> read_corpus() {
  std::vector<std::filesystem::path> files;
  for (const auto& file : std::filesystem::directory_iterator(POSTO_SOURCE_DIR "/tests/dialect/corpus")) {
    if (file.path().extension() == ".sql" && file.path().stem() != "maintenance") files.push_back(file.path());
  }
  std::sort(files.begin(), files.end());
  std::vector<CorpusEntry> entries;
  for (const auto& file : files) read_file(file, entries);
  return entries;
}

std::optional<std::string> corpus_statement(std::string_view name) {
  const auto& entries = kept_corpus();
  const auto at = std::find_if(entries.begin(), entries.end(), [&](const CorpusEntry& e) { return e.name == name; });
  return at == entries.end() ? std::nullopt : std::optional(at->statement);
}

std::vector<std::string> corpus_statements(std::string_view operation) {
  std::vector<std::string> statements;
  for (const CorpusEntry& entry : kept_corpus()) {
    if (entry.name.substr(0, entry.name.find(' ')) == operation) statements.push_back(entry.statement);
  }
  return statements;
}

std::string words_of(std::string_view statement) {
  std::string text;
  while (!statement.empty()) {
    const std::string_view line = statement.substr(0, statement.find_first_of("\r\n|"));
    statement.remove_prefix(std::min(line.size() + 1, statement.size()));
    for (char c : line) {
      if (c != ' ' || (!text.empty() && text.back() != ' ' && text.back() != '|')) text += c;
    }
    if (!text.empty() && text.back() != ' ') text += line.find(" -- ") == std::string_view::npos ? ' ' : '|';
  }
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

}  // namespace posto::testing
