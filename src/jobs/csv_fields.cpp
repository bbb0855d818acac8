#include "jobs/csv_fields.h"

#include <charconv>
#include <cstddef>
#include <system_error>

namespace Jobs::Csv {

namespace {

constexpr std::string_view blanks = " \t\r";

}  // namespace

std::string_view trimmed(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(blanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

std::optional<char> separator_in(std::string_view line) {
  for (const char separator : {';', ',', '\t', ' '}) {
    if (line.find(separator) != std::string_view::npos) return separator;
  }
  return std::nullopt;
}

std::string_view take_line(std::string_view& text) {
  const std::size_t end = text.find('\n');
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return line;
}

std::string_view Fields::next() {
  const std::size_t end = rest_.find(separator_);
  const std::string_view field = trimmed(rest_.substr(0, end));
  more_ = end != std::string_view::npos;
  rest_.remove_prefix(more_ ? end + 1 : rest_.size());
  if (separator_ == ' ') rest_ = trimmed(rest_);
  return field;
}

std::optional<double> number_in(std::string_view field) {
  // from_chars takes no plus sign.
  if (field.size() > 1 && field[0] == '+' && field[1] != '-') field.remove_prefix(1);
  double value = 0.0;
  const char* const end = field.data() + field.size();
  const auto [stop, failure] = std::from_chars(field.data(), end, value);
  if (failure != std::errc{} || stop != end) return std::nullopt;
  return value;
}

}  // namespace Jobs::Csv
