#include "posto/services/profile_file.h"

#include <filesystem>
#include <optional>

#include "posto/services/files.h"
#include "posto/types/erro.h"
#include "posto/types/text.h"

namespace posto {
namespace {

constexpr std::string_view kBlanks = " \t\r\v\f";

std::string_view without_blanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view without_quotes(std::string_view value) {
  const bool quoted =
      value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

// The name in "[name]"; nothing for any other line.
std::optional<std::string_view> section_name(std::string_view line) {
  line = without_blanks(line);
  const std::size_t close = line.find(']');
  if (!line.starts_with('[') || close == std::string_view::npos) return std::nullopt;
  return without_blanks(line.substr(1, close - 1));
}

struct KeyLine {
  std::string_view key;
  std::string_view value;    // without the blanks around it
  std::size_t value_at = 0;  // where it begins in the line
};

std::optional<KeyLine> key_line(std::string_view line) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return std::nullopt;
  const std::string_view key = without_blanks(line.substr(0, equals));
  if (key.empty() || key.starts_with(';')) return std::nullopt;
  const std::size_t value_at = std::min(line.find_first_not_of(kBlanks, equals + 1), line.size());
  return KeyLine{key, without_blanks(line.substr(value_at)), value_at};
}

bool can_be_found(std::string_view name) {
  return !name.empty() && name == without_blanks(name) &&
         name.find_first_of(std::string_view("\r\n\0[]=;", 7)) == std::string_view::npos;
}

// One in Windows-1252 is one byte.
std::string name_bytes(std::string_view name) {
  Encoded encoded = to_windows_1252(name);
  if (encoded.replaced > 0 || !can_be_found(encoded.bytes)) throw platform_erro(erro::kInvalidCall);
  return encoded.bytes;
}

}  // namespace

ProfileText::ProfileText(std::string_view bytes) : ending_("\r\n") {
  while (!bytes.empty()) {
    const std::size_t feed = bytes.find('\n');
    const std::size_t size = feed == std::string_view::npos ? bytes.size() : feed + 1;
    std::size_t text = feed == std::string_view::npos ? size : feed;
    if (text < size && text > 0 && bytes[text - 1] == '\r') --text;
    lines_.push_back({std::string(bytes.substr(0, text)), std::string(bytes.substr(text, size - text))});
    bytes.remove_prefix(size);
  }
  if (!lines_.empty() && !lines_.front().ending.empty()) ending_ = lines_.front().ending;
}

std::size_t ProfileText::find(std::string_view section, std::string_view key, std::size_t* section_end) const {
  if (section_end != nullptr) *section_end = kNone;
  bool inside = false;
  bool first = true;  // a new key goes into the first section of the name
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const std::string_view line = lines_[i].text;
    if (const auto name = section_name(line)) {
      first = first && !inside;
      inside = equal_names(*name, section);
    } else if (const auto found = key_line(line); !inside || !found) {
      continue;
    } else if (equal_names(found->key, key)) {
      return i;
    }
    if (inside && first && section_end != nullptr) *section_end = i + 1;
  }
  return kNone;
}

std::string ProfileText::read(std::string_view section, std::string_view key) const {
  const std::size_t at = find(name_bytes(section), name_bytes(key));
  if (at == kNone) return {};
  return from_windows_1252(without_quotes(key_line(lines_[at].text)->value).substr(0, kLongestValue));
}

void ProfileText::insert(std::size_t at, std::string text) {
  if (at > 0 && lines_[at - 1].ending.empty()) lines_[at - 1].ending = ending_;
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), {std::move(text), ending_});
}

std::size_t ProfileText::write(std::string_view section, std::string_view key, std::string_view value) {
  const std::string section_bytes = name_bytes(section), key_bytes = name_bytes(key);
  if (value.find_first_of(std::string_view("\r\n\0", 3)) != std::string_view::npos) {
    throw platform_erro(erro::kInvalidCall, std::string(section).append(".").append(key));
  }
  const Encoded encoded = to_windows_1252(value);
  std::size_t section_end = kNone;
  const std::size_t at = find(section_bytes, key_bytes, &section_end);
  if (at != kNone) {
    std::string& line = lines_[at].text;
    // The blanks behind the mark stay, unless the value brings its own.
    const bool own_blanks = value.find_first_of(kBlanks) == 0;
    line.resize(own_blanks ? line.find('=') + 1 : key_line(line)->value_at);
    line += encoded.bytes;
    return encoded.replaced;
  }
  if (section_end == kNone) {
    if (!lines_.empty() && !without_blanks(lines_.back().text).empty()) insert(lines_.size(), {});
    insert(lines_.size(), "[" + section_bytes + "]");
    section_end = lines_.size();
  }
  insert(section_end, key_bytes + "=" + encoded.bytes);
  return encoded.replaced;
}

std::string ProfileText::bytes() const {
  std::string bytes;
  for (const Line& line : lines_) bytes.append(line.text).append(line.ending);
  return bytes;
}

ProfileText load_profile(const std::string& path) {
  return std::filesystem::exists(path) ? ProfileText(read_file(path)) : ProfileText();
}

void change_profile(const std::string& path, const std::function<void(ProfileText&)>& change) {
  const FolderLock lock(std::filesystem::path(path).parent_path());
  ProfileText text = load_profile(path);
  change(text);
  replace_file(path, text.bytes());
}

}  // namespace posto
