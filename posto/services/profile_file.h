// Profile files: text in sections, "[Section]" with lines "Key=value" below it, as the system's private-profile calls
// read and write it. The files are Windows-1252; names and values in memory are UTF-8.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace posto {

// The text of a profile file. What a write does not change stays as it is, byte by byte: keys of other programs,
// comments (lines that begin with ";"), lines without meaning, order, line ends.
class ProfileText {
 public:
  // The most characters of a value that are read.
  static constexpr std::size_t kLongestValue = 254;

  explicit ProfileText(std::string_view bytes = {});

  // The value of a key: the first of its name in the sections of that name, both blind to case, without the blanks
  // around it and then without one pair of quotes, cut at kLongestValue characters. The empty text when there is none.
  // Raises 5 for names that no line can have.
  std::string read(std::string_view section, std::string_view key) const;

  // Sets a key as it is given: in the line where it stands, behind the last key of its section, or in a new section at
  // the end.
  // Gives the number of characters that have no place in Windows-1252 and were written as "?". Raises 5 for a value
  // that holds a line end or a zero character, and for names as above.
  std::size_t write(std::string_view section, std::string_view key, std::string_view value);

  std::string bytes() const;

 private:
  struct Line {
    std::string text, ending;
  };
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  // The line of a key; none: kNone, and `section_end` then is the line behind the section's last one, or kNone.
  std::size_t find(std::string_view section, std::string_view key, std::size_t* section_end = nullptr) const;
  void insert(std::size_t at, std::string text);

  std::vector<Line> lines_;
  std::string ending_;  // of new lines: that of the first one
};

// Reads a profile file; one that does not exist is empty. Raises 75 when it cannot be read.
ProfileText load_profile(const std::string& path);

// Loads the file, lets `change` write to it, and replaces it in one step (replace_file); no other change through this
// function comes between. A failure, also one of `change`, leaves the file as it was.
void change_profile(const std::string& path, const std::function<void(ProfileText&)>& change);

}  // namespace posto
