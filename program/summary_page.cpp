#include "program/summary_page.h"

#include "posto/types/number_pattern.h"

namespace posto::program {
namespace {

// Heads are repeated on every sheet, and no row, caption or signature is torn from what belongs to it.
constexpr std::string_view kStyle = R"(
@page { size: A4; margin: 14mm 16mm }
body { font: 10pt/1.35 "Liberation Sans", Arial, Helvetica, sans-serif; color: #000; margin: 0 auto; max-width: 178mm }
h1 { font-size: 14pt; margin: 0 }
h2 { font-size: 10.5pt; margin: 5mm 0 1mm; break-after: avoid }
p { margin: 0.5mm 0 }
table { width: 100%; border-collapse: collapse }
thead { display: table-header-group }
tr { break-inside: avoid }
th { text-align: left; font-size: 8pt; border-bottom: 0.4mm solid #000 }
th, td { padding: 0.6mm 1.5mm 0.6mm 0; vertical-align: top }
td { border-bottom: 0.1mm solid #bbb }
.n { text-align: right; white-space: nowrap; width: 26mm; font-variant-numeric: tabular-nums }
tr.total td { font-weight: bold; border-bottom: 0.4mm solid #000 }
.difference { font-size: 12pt; font-weight: bold; text-align: right; margin-top: 2mm }
.signatures { display: flex; gap: 12mm; margin-top: 18mm; break-inside: avoid }
.signatures div { flex: 1; border-top: 0.2mm solid #000; text-align: center; padding-top: 1mm }
footer { margin-top: 6mm; font-size: 8pt; color: #444 }
)";

std::string escaped(std::string_view text) {
  std::string out;
  for (char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        out += c;
    }
  }
  return out;
}

std::string cell(std::string_view text) { return "<td>" + escaped(text) + "</td>"; }
std::string figure(std::string_view text) { return "<td class=\"n\">" + escaped(text) + "</td>"; }

std::string head(std::string_view name, const std::vector<std::string>& values) {
  std::string row = "<table>\n<thead><tr><th>" + escaped(name) + "</th>";
  for (const std::string& value : values) row += "<th class=\"n\">" + escaped(value) + "</th>";
  return row + "</tr></thead>\n<tbody>\n";
}
constexpr std::string_view kTableEnd = "</tbody>\n</table>\n";

std::string settlement(const VOCaixa& shift) {
  std::string text = "<h2>ACERTO</h2>\n" + head("CONTA", {"DÉBITOS", "CRÉDITOS"});
  for (const SettlementLine& line : settlement_lines(shift)) {
    text += (line.total ? "<tr class=\"total\">" : "<tr>") + cell(line.name) + figure(money_text(line.debit)) +
            figure(money_text(line.credit)) + "</tr>\n";
  }
  text += kTableEnd;
  return text + "<p class=\"difference\">" + escaped(difference_text(shift.Vl_Diferenca)) + "</p>\n";
}

std::string group_table(const flows::SummaryGroup& group) {
  std::vector<std::string> heads;
  for (std::size_t i = 0; i < 3; ++i) {
    if (is_shown(group, i)) heads.push_back(group.heads[i + 1]);
  }
  std::string text = "<h2>" + escaped(group.name) + "</h2>\n" + head(group.heads[0], heads);
  for (const flows::SummaryRow& row : group.rows) {
    text += "<tr>" + cell(row.name);
    for (std::size_t i = 0; i < row.values.size(); ++i) {
      if (!is_shown(group, i)) continue;
      text += figure(row.values[i] ? format_number(*row.values[i], value_pattern(group, i)) : std::string());
    }
    text += "</tr>\n";
  }
  return text.append(kTableEnd);
}

}  // namespace

std::string summary_page(const ShiftPapers& papers, Date printed) {
  const std::string title = escaped(shift_title(papers));
  std::string page =
      "<!DOCTYPE html>\n<html lang=\"pt-BR\">\n<head>\n<meta charset=\"utf-8\">\n<title>" + title + "</title>\n<style>";
  page.append(kStyle).append("</style>\n</head>\n<body>\n");
  page += "<p>" + escaped(papers.company) + "</p>\n<h1>" + title + "</h1>\n<p>" + escaped(shift_history(papers)) +
          "</p>\n" + settlement(papers.shift);
  for (const flows::SummaryGroup& group : papers.summary) page += group_table(group);
  page += "<div class=\"signatures\"><div>" + escaped(papers.employee) + "</div><div>" +
          (papers.checker.empty() ? "Conferência" : escaped(papers.checker)) + "</div></div>\n";
  return page + "<footer>Emitido em " + format_date(printed, "dd/mm/yyyy hh:Nn") + "</footer>\n</body>\n</html>\n";
}

}  // namespace posto::program
