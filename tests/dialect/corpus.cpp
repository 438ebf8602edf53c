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

}  // namespace posto::testing
