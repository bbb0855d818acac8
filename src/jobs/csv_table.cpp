#include "jobs/csv_table.h"

#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>

#include "jobs/csv_fields.h"
#include "jobs/csv_head.h"

namespace Jobs {

namespace {

using Csv::Fields;
using Csv::number_in;
using Csv::trimmed;

constexpr std::size_t longest_line = 16 << 20;
constexpr std::size_t most_columns = 100'000;

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

// For a message: short, and without characters that a terminal might obey.
std::string quoted(std::string_view field) {
  constexpr std::size_t longest = 40;
  std::string shown(field.substr(0, longest));
  for (char& c : shown) {
    if (static_cast<unsigned char>(c) < ' ' || c == '\x7f') c = '?';
  }
  return '"' + shown + (field.size() > longest ? "...\"" : "\"");
}

std::string count(std::size_t n, const std::string& what) {
  return std::to_string(n) + " " + what + (n == 1 ? "" : "s");
}

std::string name_of(char separator) {
  switch (separator) {
    case ';':
      return "semicolons";
    case ',':
      return "commas";
    case '\t':
      return "tabs";
    default:
      return "blanks";
  }
}

bool all_numbers(std::string_view line, char separator) {
  Fields fields(line, separator);
  while (fields.more()) {
    if (!number_in(fields.next())) return false;
  }
  return true;
}

// "eta [mm]", "time [s]", or the numbers of columns without heads.
std::string columns_of(const CsvTable& table) {
  std::string known;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const std::string& head = table.columns[i].head;
    known += (i == 0 ? "" : ", ") + (head.empty() ? std::to_string(i + 1) : quoted(head));
  }
  return known;
}

class Reader {
 public:
  explicit Reader(const std::string& name) : name_(name) {}

  CsvTable read(std::string_view text) {
    if (text.substr(0, byte_order_mark.size()) == byte_order_mark) {
      text.remove_prefix(byte_order_mark.size());
    }
    while (!text.empty()) {
      ++line_;
      take(Csv::take_line(text));
    }
    if (table_.columns.empty() || table_.columns[0].values.empty()) {
      throw name_ + ": there are no numbers";
    }
    return std::move(table_);
  }

 private:
  void take(std::string_view line) {
    if (trimmed(line).empty()) return;
    if (trimmed(line).front() == '#') {
      table_.comments.emplace_back(trimmed(line).substr(1));
      return;
    }
    if (line.size() > longest_line) {
      throw where() + "a line of " + count(line.size(), "character") + ": at most " +
          std::to_string(longest_line) + " can be read";
    }
    if (!separator_) separator_ = Csv::separator_in(trimmed(line));
    const char separator = separator_.value_or(',');
    if (table_.columns.empty()) require_few_columns(line, separator);
    if (!table_.columns.empty()) {
      take_numbers(line, separator);
    } else if (all_numbers(line, separator)) {
      Fields fields(line, separator);
      for (; fields.more(); fields.next()) table_.columns.emplace_back();
      take_numbers(line, separator);
    } else {
      table_.columns = Csv::read_heads(line, separator);
    }
  }

  // Before room is made for them.
  void require_few_columns(std::string_view line, char separator) const {
    std::size_t columns = 0;
    for (Fields fields(line, separator); fields.more(); fields.next()) ++columns;
    if (columns <= most_columns) return;
    throw where() + count(columns, "column") + ": at most " + std::to_string(most_columns) +
        " can be read";
  }

  void take_numbers(std::string_view line, char separator) {
    Fields fields(line, separator);
    std::size_t found = 0;
    for (; fields.more(); ++found) {
      const std::string_view field = fields.next();
      if (found >= table_.columns.size()) continue;
      const std::optional<double> number = number_in(field);
      if (!number) throw where() + not_a_number(field, found);
      if (!std::isfinite(*number)) throw where() + quoted(field) + " is not a finite number";
      table_.columns[found].values.push_back(*number);
    }
    if (found == table_.columns.size()) return;
    throw where() + count(found, "field") + " where the lines before have " +
        std::to_string(table_.columns.size()) + ", parted by " + name_of(separator);
  }

  static std::string not_a_number(std::string_view field, std::size_t place) {
    if (field.empty()) return "field " + std::to_string(place + 1) + " is empty";
    const bool comma = field.find(',') != std::string_view::npos;
    return quoted(field) + " is not a number" + (comma ? " (decimals have a point)" : "");
  }

  std::string where() const { return name_ + ":" + std::to_string(line_) + ": "; }

  const std::string& name_;
  std::size_t line_ = 0;
  std::optional<char> separator_;
  CsvTable table_;
};

}  // namespace

CsvTable read_csv(std::string_view text, const std::string& name) {
  return Reader(name).read(text);
}

const CsvColumn& column_of(const CsvTable& table, const std::string& wanted) {
  for (std::string CsvColumn::*const text : {&CsvColumn::head, &CsvColumn::name}) {
    const CsvColumn* found = nullptr;
    for (const CsvColumn& column : table.columns) {
      if (wanted.empty() || column.*text != wanted) continue;
      if (found != nullptr) {
        throw "several columns are called \"" + wanted + "\": give the head or the number";
      }
      found = &column;
    }
    if (found != nullptr) return *found;
  }
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    if (wanted == std::to_string(i + 1)) return table.columns[i];
  }
  throw "there is no column \"" + wanted + "\": there are " + columns_of(table);
}

}  // namespace Jobs
