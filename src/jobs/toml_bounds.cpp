#include "jobs/toml_bounds.h"

#include <algorithm>
#include <vector>

namespace Jobs {
namespace {

// The place after the string that begins at `at` with a quotation mark of either kind.
std::size_t after_string(std::string_view text, std::size_t at) {
  const char quote = text[at];
  const std::string three(3, quote);
  const bool several_lines = text.substr(at, 3) == three;
  at += several_lines ? 3 : 1;
  while (at < text.size()) {
    if (text[at] == '\\' && quote == '"') {
      at += 2;
    } else if (several_lines && text.substr(at, 3) == three) {
      at += 3;
      // Up to two more quotation marks belong to the string.
      for (int more = 0; more < 2 && at < text.size() && text[at] == quote; ++more) {
        ++at;
      }
      return at;
    } else if (!several_lines && (text[at] == quote || text[at] == '\n')) {
      return at + 1;
    } else {
      ++at;
    }
  }
  return text.size();
}

// Counts levels: one for each open bracket, and one for each dot of the keys on the way there.
class Levels {
 public:
  void open() {
    dots_.push_back(0);
    ++count_;
  }
  void close() {
    end_key();
    if (dots_.size() > 1) {
      dots_.pop_back();
      --count_;
    }
  }
  void dot() {
    ++dots_.back();
    ++count_;
  }
  void end_key() {
    count_ -= dots_.back();
    dots_.back() = 0;
  }
  std::size_t count() const { return count_; }

 private:
  std::vector<std::size_t> dots_ = {0};  // since the last comma or line end, for each bracket
  std::size_t count_ = 0;
};

}  // namespace

std::optional<BrokenBound> find_broken_bound(std::string_view text) {
  Levels levels;
  std::size_t values = 0;
  std::size_t at = 0;
  while (at < text.size()) {
    const char c = text[at];
    if (c == '"' || c == '\'') {
      at = after_string(text, at);
      continue;
    }
    if (c == '#') {
      at = std::min(text.find('\n', at), text.size());
      continue;
    }
    if (c == '[' || c == '{') {
      levels.open();
    } else if (c == ']' || c == '}') {
      levels.close();
    } else if (c == '.') {
      levels.dot();
    } else if (c == ',' || c == '\n') {
      levels.end_key();
    }
    values += c == ',' || c == '=' || c == '[' ? 1 : 0;
    if (levels.count() > most_toml_levels) {
      return BrokenBound{at, "tables and arrays are nested too deeply",
                         "at most " + std::to_string(most_toml_levels) + " levels"};
    }
    if (values > most_toml_values) {
      return BrokenBound{at, "the file has too many values",
                         "at most " + std::to_string(most_toml_values) +
                             "; measured records belong in a CSV file"};
    }
    ++at;
  }
  return std::nullopt;
}

}  // namespace Jobs
