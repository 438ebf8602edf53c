#include "program/answer.h"

#include <fmt/format.h>

#include <algorithm>
#include <exception>

#include "posto/services/csv.h"
#include "posto/types/number_pattern.h"
#include "posto/types/text.h"

namespace posto::program {
namespace {

bool is_figure(const Variant& value) {
  VariantKind k = value.kind();
  return k >= VariantKind::Byte && k <= VariantKind::Currency;
}

std::string json_text(std::string_view text) {
  std::string out = "\"";
  for (char c : text) {
    if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (static_cast<unsigned char>(c) < 0x20) {
      out += fmt::format("\\u{:04x}", static_cast<unsigned>(c));
    } else {
      out += c;
    }
  }
  return out + '"';
}

std::string csv_value(const Variant& value) {
  if (value.is_null() || value.is_empty()) return {};
  return value.is_text() ? csv_field(value.held<std::string>()) : exact_text(value);
}

std::string json_value(const Variant& value) {
  if (value.is_null() || value.is_empty()) return "null";
  bool plain = is_figure(value) || value.kind() == VariantKind::Boolean;
  return plain ? exact_text(value) : json_text(exact_text(value));
}

// Text is printed in pieces, so that a large answer needs no large memory.
class Output {
 public:
  // An answer that fails on the way prints no half line.
  ~Output() {
    if (std::uncaught_exceptions() == 0) flush();
  }
  void line(std::string_view text) {
    buffer_ += text;
    buffer_ += '\n';
    if (buffer_.size() > kPiece) flush();
  }

 private:
  static constexpr std::size_t kPiece = 1 << 20;
  void flush() {
    std::fwrite(buffer_.data(), 1, buffer_.size(), stdout);
    buffer_.clear();
  }
  std::string buffer_;
};

template <class Values, class Text>
std::string joined(const Values& values, Text text) {
  std::string line;
  for (std::size_t i = 0; i < values.size(); ++i) line += (i > 0 ? "," : "") + text(values[i]);
  return line;
}

std::string json_object(const std::vector<AnswerColumn>& columns, const std::vector<Variant>& row) {
  std::string object = "{";
  for (std::size_t i = 0; i < row.size(); ++i) {
    object += (i > 0 ? ", " : "") + json_text(columns[i].name) + ": " + json_value(row[i]);
  }
  return object + "}";
}

// Writes rows one by one in a form for a program.
class ProgramWriter {
 public:
  ProgramWriter(const std::vector<AnswerColumn>& columns, Form form) : columns_(columns), form_(form) {
    out_.line(form == Form::csv ? joined(columns, [](const AnswerColumn& c) { return csv_field(c.name); }) : "[");
  }
  void row(const std::vector<Variant>& values) {
    if (form_ == Form::csv) return out_.line(joined(values, csv_value));
    if (!last_.empty()) out_.line(last_ + ",");
    last_ = json_object(columns_, values);
  }
  void finish() {
    if (form_ == Form::csv) return;
    if (!last_.empty()) out_.line(last_);
    out_.line("]");
  }

 private:
  const std::vector<AnswerColumn>& columns_;
  Form form_;
  Output out_;
  std::string last_;
};

}  // namespace

std::string exact_text(const Variant& value) {
  switch (value.kind()) {
    case VariantKind::Empty:
    case VariantKind::Null:
      return {};
    case VariantKind::Boolean:
      return value.held<bool>() ? "-1" : "0";
    case VariantKind::Currency:
      return value.held<Currency>().text();
    case VariantKind::Float32:
      return fmt::format("{}", value.held<float>());
    case VariantKind::Float64:
      return fmt::format("{}", value.held<double>());
    case VariantKind::Date:
      return format_date(value.held<Date>(), "yyyy-mm-dd hh:nn:ss");
    default:
      return value.as<std::string>();
  }
}

std::string Answer::shown(const Variant& value, const AnswerColumn& column) const {
  if (value.is_null() || value.is_empty()) return "-";
  if (value.kind() == VariantKind::Date) {
    return format_date(value.held<Date>(), column.pattern.empty() ? "dd/mm/yyyy hh:nn:ss" : column.pattern);
  }
  if (value.kind() == VariantKind::Boolean) return value.held<bool>() ? "sim" : "não";
  if (column.pattern.empty() || !is_figure(value)) return exact_text(value);
  if (value.kind() == VariantKind::Currency) return format_number(value.held<Currency>(), column.pattern);
  if (value.kind() == VariantKind::Float32) return format_number(value.held<float>(), column.pattern);
  return format_number(value.as<double>(), column.pattern);
}

void Answer::print(Form form) const {
  if (form == Form::aligned) return print_aligned();
  ProgramWriter writer(columns_, form);
  for (const auto& row : rows_) writer.row(row);
  writer.finish();
}

void Answer::print_aligned() const {
  std::vector<std::vector<std::string>> lines;
  std::vector<std::size_t> widths;
  std::vector<bool> figures(columns_.size(), true);
  for (const AnswerColumn& column : columns_) widths.push_back(char_count(column.title));
  for (const auto& row : rows_) {
    auto& line = lines.emplace_back();
    for (std::size_t i = 0; i < row.size(); ++i) {
      line.push_back(shown(row[i], columns_[i]));
      widths[i] = std::max(widths[i], char_count(line.back()));
      figures[i] = figures[i] && (is_figure(row[i]) || row[i].is_null());
    }
  }
  Output out;
  auto print = [&](auto text_of) {
    std::string line;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const std::string text = text_of(i);
      const std::string blanks(widths[i] - char_count(text), ' ');
      line += (i > 0 ? "  " : "") + (figures[i] ? blanks + text : text + blanks);
    }
    out.line(trim_end(line));
  };
  print([&](std::size_t i) { return columns_[i].title; });
  print([&](std::size_t i) { return std::string(widths[i], '-'); });
  for (const auto& line : lines) print([&](std::size_t i) { return line[i]; });
}

void print_rows(Recordset& rows, Form form) {
  std::vector<AnswerColumn> columns;
  for (const ResultColumn& column : rows.shape().columns()) columns.push_back({column.name, column.name});
  auto values = [&] {
    std::vector<Variant> row;
    for (std::size_t i = 0; i < columns.size(); ++i) row.push_back(rows[i].Value());
    return row;
  };
  if (form == Form::aligned) {
    Answer answer(columns);
    for (; !rows.EOF(); rows.MoveNext()) answer.add(values());
    return answer.print(form);
  }
  ProgramWriter writer(columns, form);
  for (; !rows.EOF(); rows.MoveNext()) writer.row(values());
  writer.finish();
}

}  // namespace posto::program
