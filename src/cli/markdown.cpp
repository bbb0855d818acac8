#include "cli/markdown.h"

#include <algorithm>
#include <utility>

namespace Cli {
namespace {

std::string_view trimmed(std::string_view text) {
  const auto begin = text.find_first_not_of(" \t\r");
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

std::size_t indent_of(std::string_view line) {
  return std::min(line.find_first_not_of(' '), line.size());
}

// The cells of "| a | b |". A bar after a backslash belongs to the cell.
std::vector<std::string> cells_of(std::string_view line) {
  std::vector<std::string> cells;
  std::string cell;
  line = trimmed(line);
  for (std::size_t i = 1; i < line.size(); ++i) {
    if (line[i] == '\\' && i + 1 < line.size() && line[i + 1] == '|') {
      cell += line[++i];
    } else if (line[i] == '|') {
      cells.emplace_back(trimmed(cell));
      cell.clear();
    } else {
      cell += line[i];
    }
  }
  return cells;
}

// Of a line of a table.
bool is_rule(std::string_view line) {
  return line.find_first_not_of("|-: ") == std::string_view::npos;
}

class Reader {
 public:
  std::vector<PageBlock> read(std::string_view page) {
    while (!page.empty()) {
      const std::size_t end = page.find('\n');
      take(page.substr(0, end));
      page.remove_prefix(end == std::string_view::npos ? page.size() : end + 1);
    }
    return std::move(blocks_);
  }

 private:
  using Kind = PageBlock::Kind;

  void take(std::string_view line) {
    if (line.starts_with("```")) {
      fenced_ = !fenced_;
      open_ = false;
    } else if (fenced_) {
      add(Kind::example, line, "\n");
    } else if (trimmed(line).empty()) {
      open_ = false;
      heads_.clear();
    } else if (line.starts_with("#")) {
      open_ = false;
      section_ = plain_text(trimmed(line.substr(line.find_first_not_of('#'))));
    } else if (line.starts_with("|")) {
      take_row(line);
    } else if (line.starts_with("- ")) {
      open_ = false;
      add(Kind::item, line.substr(2), " ");
    } else if (indent_of(line) >= 4 && (!open_ || blocks_.back().kind == Kind::code)) {
      add(Kind::code, line.substr(4), "\n");
    } else {
      const bool continues = open_ && blocks_.back().kind == Kind::item;
      add(continues ? Kind::item : Kind::paragraph, trimmed(line), " ");
    }
  }

  void take_row(std::string_view line) {
    open_ = false;
    if (heads_.empty()) {
      heads_ = cells_of(line);
    } else if (!is_rule(line)) {
      add(Kind::row, "", "");
      blocks_.back().cells = cells_of(line);
      blocks_.back().heads = heads_;
      open_ = false;
    }
  }

  // Continues the open block if it is of this kind.
  void add(Kind kind, std::string_view text, const char* joint) {
    if (open_ && blocks_.back().kind == kind) {
      blocks_.back().text.append(joint).append(text);
      return;
    }
    std::size_t before = 0;
    if (!blocks_.empty() && blocks_.back().kind == kind && blocks_.back().section == section_) {
      before = blocks_.back().before + 1;
    }
    blocks_.push_back({kind, section_, std::string(text), {}, {}, before});
    open_ = true;
  }

  std::vector<PageBlock> blocks_;
  std::vector<std::string> heads_;
  std::string section_;
  bool open_ = false;  // the next line may continue the last block
  bool fenced_ = false;
};

}  // namespace

std::vector<PageBlock> blocks_of(std::string_view page) { return Reader().read(page); }

}  // namespace Cli
