#include "cli/judgement_table.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "cli/wrapped_text.h"

namespace Cli {
namespace {

using Jobs::Finding;
using Jobs::Judgement;
using Jobs::Verdict;

constexpr std::size_t columns = 5;  // quantity, asked, made, criterion, verdict
using Row = std::array<std::string, columns>;

// Names come from the job and the site. Control characters would upset the terminal.
std::string printable(std::string text) {
  for (char& c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20 || byte == 0x7F) c = ' ';
  }
  return text;
}

std::string padded(const std::string& text, std::size_t width) {
  const std::size_t own = characters(text);
  return own < width ? text + std::string(width - own, ' ') : text;
}

bool shown(const Finding& finding, const TableStyle& style) {
  return style.verbose || !finding.minor;
}

Row row_of(const Finding& finding) {
  return {printable(finding.quantity), finding.asked_text, finding.made_text, finding.criterion,
          verdict_word(finding)};
}

const char* colour_of(Verdict verdict) {
  return verdict == Verdict::good ? "\033[32m" : "\033[1;31m";
}

void trim(std::string& line) { line.erase(line.find_last_not_of(' ') + 1); }

std::array<std::size_t, columns> widths_of(const std::vector<Row>& rows) {
  std::array<std::size_t, columns> widths{};
  for (const Row& row : rows) {
    for (std::size_t c = 0; c < columns; ++c) widths[c] = std::max(widths[c], characters(row[c]));
  }
  return widths;
}

}  // namespace

std::string verdict_word(const Finding& finding) {
  if (finding.verdict == Verdict::none) return "";
  if (finding.verdict == Verdict::good) return "good";
  if (finding.key == "waves_per_run" || finding.key == "peak_harmonics") return "FEW";
  if (finding.group == "lost" && finding.key != "redirected") return "LOST";
  const auto begins = [&](const char* prefix) { return finding.key.starts_with(prefix); };
  for (const char* const high : {"stroke", "velocity", "acceleration", "clipped", "steepness",
                                 "height_to_depth", "ursell"}) {
    if (begins(high)) return "HIGH";
  }
  return "LOOK";
}

std::string summary_line(const Judgement& judgement) {
  if (judgement.judged == 0) return "Nothing to judge.";
  if (judgement.looks == 0) return fmt::format("All {} are good.", judgement.judged);
  return fmt::format("{} of {} need{} a look.", judgement.looks, judgement.judged,
                     judgement.looks == 1 ? "s" : "");
}

std::string judgement_table(Jobs::Run& run, const Judgement& judgement, const Console& console) {
  const TableStyle style{console.out_colour, console.verbose, console.width};
  return run_head(run) + "\n" + findings_table(judgement, style);
}

std::string findings_table(const Judgement& judgement, const TableStyle& style) {
  std::vector<Row> rows = {{"", "asked", "made", "criterion", ""}};
  std::vector<const Finding*> findings = {nullptr};
  for (const Finding& finding : judgement.findings) {
    if (!shown(finding, style)) continue;
    rows.push_back(row_of(finding));
    findings.push_back(&finding);
  }
  const auto widths = widths_of(rows);
  std::size_t margin = 2;
  for (const std::size_t width : widths) margin += width + 2;
  // Remarks need some room; on a narrow terminal they have lines of their own.
  constexpr std::size_t least_room = 24;
  constexpr std::size_t endless = 1 << 20;
  const std::size_t width = style.width == 0 ? endless : style.width;
  const bool beside = margin + least_room <= width;
  const std::string indent(beside ? margin : 6, ' ');

  std::string table;
  for (std::size_t r = 0; r < rows.size(); ++r) {
    std::string line = "  ";
    for (std::size_t c = 0; c + 1 < columns; ++c) line += padded(rows[r][c], widths[c]) + "  ";
    const std::size_t word = line.size();
    line += padded(rows[r].back(), widths.back()) + "  ";
    const std::string remark = findings[r] == nullptr ? "" : printable(findings[r]->remark);
    if (remark.empty() || !beside) {
      trim(line);
      line += '\n';
      if (!remark.empty()) line += wrapped(remark, indent, indent, width);
    } else {
      line = wrapped(remark, line, indent, width);
    }
    if (style.colour && findings[r] != nullptr && findings[r]->verdict != Verdict::none) {
      line.insert(word + rows[r].back().size(), "\033[0m");
      line.insert(word, colour_of(findings[r]->verdict));
    }
    table += line;
  }

  table += "\n" + summary_line(judgement);
  const std::size_t hidden = judgement.findings.size() + 1 - rows.size();
  if (hidden > 0) table += fmt::format(" --verbose shows {} more.", hidden);
  return table + "\n";
}

}  // namespace Cli
