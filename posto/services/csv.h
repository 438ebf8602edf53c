// Comma-separated text (RFC 4180), one record a line.
#pragma once

#include <cstddef>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace posto {

// The fields of one line. Quotes hold commas and doubled quotes; nothing for a line whose quotes do not close or stand
// in the middle of a field.
std::optional<std::vector<std::string>> split_csv(std::string_view line);

// A field as it is written: in quotes where it holds a comma, a quote or a line end, or is the empty text (an empty
// field without quotes is null).
std::string csv_field(std::string_view text);

// Reads a text file line by line; a line ends at LF or CR LF. A mark of UTF-8 at the beginning is passed over.
class LineFile {
 public:
  // Raises 53 when there is no such file, 75 when it cannot be read.
  explicit LineFile(const std::string& path);
  // False at the end of the file.
  bool next(std::string& line);
  std::size_t number() const { return number_; }  // of the line that was read last, from 1

 private:
  std::ifstream file_;
  std::size_t number_ = 0;
};

}  // namespace posto
