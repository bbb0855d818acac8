#include "cli/judgement_table.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace Cli {
namespace {

using Jobs::Finding;
using Jobs::Judgement;
using Jobs::Verdict;

constexpr std::size_t columns = 5;  // quantity, asked, made, criterion, verdict
using Row = std::array<std::string, columns>;

// Characters, each of which takes one column: the bytes of UTF-8 that do not continue one.
std::size_t width_of(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  }));
}

// Names come from the job and the site. Control characters would upset the terminal.
std::string printable(std::string text) {
  for (char& c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20 || byte == 0x7F) c = ' ';
  }
  return text;
}

std::string padded(const std::string& text, std::size_t width) {
  const std::size_t own = width_of(text);
  return own < width ? text + std::string(width - own, ' ') : text;
}

bool shown(const Finding& finding, const TableStyle& style) {
  return style.verbose || !finding.minor;
}

Row row_of(const Finding& finding) {
  return {printable(finding.quantity), finding.asked_text, finding.made_text, finding.criterion,
          verdict_word(finding)};
}

std::string painted(const std::string& word, Verdict verdict, bool colour) {
  if (!colour || verdict == Verdict::none) return word;
  const char* const code = verdict == Verdict::good ? "\033[32m" : "\033[1;31m";
  return code + word + "\033[0m";
}

std::vector<std::string> wrapped(const std::string& text, std::size_t width) {
  std::vector<std::string> lines;
  std::string line;
  std::size_t from = 0;
  while (from < text.size()) {
    const std::size_t space = std::min(text.find(' ', from), text.size());
    const std::string word = text.substr(from, space - from);
    from = space + 1;
    if (word.empty()) continue;
    if (!line.empty() && width_of(line) + 1 + width_of(word) > width) {
      lines.push_back(line);
      line.clear();
    }
    line += line.empty() ? word : " " + word;
  }
  if (!line.empty()) lines.push_back(line);
  return lines;
}

void trim(std::string& line) { line.erase(line.find_last_not_of(' ') + 1); }

std::array<std::size_t, columns> widths_of(const std::vector<Row>& rows) {
  std::array<std::size_t, columns> widths{};
  for (const Row& row : rows) {
    for (std::size_t c = 0; c < columns; ++c) widths[c] = std::max(widths[c], width_of(row[c]));
  }
  return widths;
}

}  // namespace

std::string verdict_word(const Finding& finding) {
  if (finding.verdict == Verdict::none) return "";
  if (finding.verdict == Verdict::good) return "good";
  if (finding.key == "waves_per_run" || finding.key == "peak_harmonics") return "FEW";
  if (finding.group == "lost") return "LOST";
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

std::string judgement_table(const Judgement& judgement, const TableStyle& style) {
  std::vector<Row> rows = {{"", "asked", "made", "criterion", ""}};
  std::vector<const Finding*> findings = {nullptr};
  for (const Finding& finding : judgement.findings) {
    if (!shown(finding, style)) continue;
    rows.push_back(row_of(finding));
    findings.push_back(&finding);
  }
  const auto widths = widths_of(rows);
  std::size_t indent = 2;
  for (const std::size_t width : widths) indent += width + 2;
  constexpr std::size_t least = 24;  // columns for remarks; on narrower terminals they come below
  const bool beside = style.width == 0 || indent + least <= style.width;

  std::string table;
  for (std::size_t r = 0; r < rows.size(); ++r) {
    std::string line = "  ";
    for (std::size_t c = 0; c + 1 < columns; ++c) line += padded(rows[r][c], widths[c]) + "  ";
    const Finding* finding = findings[r];
    const std::string& word = rows[r].back();
    line += painted(word, finding == nullptr ? Verdict::none : finding->verdict, style.colour);
    line += std::string(widths.back() - width_of(word) + 2, ' ');
    const std::string remark = finding == nullptr ? "" : printable(finding->remark);
    const std::size_t margin = beside ? indent : 6;
    const std::size_t room = style.width == 0       ? width_of(remark)
                             : style.width > margin ? style.width - margin
                                                    : least;
    const std::vector<std::string> remarks = wrapped(remark, room);
    for (std::size_t i = 0; i < remarks.size(); ++i) {
      if (i == 0 && beside) {
        line += remarks[i];
        continue;
      }
      trim(line);
      table += line + "\n";
      line = std::string(margin, ' ') + remarks[i];
    }
    trim(line);
    table += line + "\n";
  }

  table += "\n" + summary_line(judgement);
  const auto hidden = judgement.findings.size() + 1 - rows.size();
  if (hidden > 0) table += fmt::format(" --verbose shows {} more.", hidden);
  return table + "\n";
}

}  // namespace Cli
