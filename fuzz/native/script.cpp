#include "fuzz/native/script.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace Fuzz {
namespace {

// Longer sequences show nothing new, and take long.
constexpr std::size_t most_lines = 400;

bool is_plain(char one) { return one > ' ' && one < 0x7F && one != '%' && one != ','; }

int digit_of(char one) {
  if (one >= '0' && one <= '9') return one - '0';
  if (one >= 'A' && one <= 'F') return one - 'A' + 10;
  return -1;
}

std::vector<std::string> split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find(separator, start), text.size());
    parts.emplace_back(text.substr(start, end - start));
    start = end + 1;
  }
  return parts;
}

}  // namespace

std::vector<Line> read_script(std::string_view text) {
  std::vector<Line> lines;
  for (const std::string& row : split(text, '\n')) {
    Line line;
    for (std::string& word : split(row, ' ')) {
      if (word.empty()) continue;
      if (line.name.empty()) {
        line.name = std::move(word);
      } else {
        line.tokens.push_back(std::move(word));
      }
    }
    if (line.name.empty() || line.name[0] == '#') continue;
    lines.push_back(std::move(line));
    if (lines.size() == most_lines) break;
  }
  return lines;
}

std::string write_script(const std::vector<Line>& lines) {
  std::string text;
  for (const Line& line : lines) {
    text += line.name;
    for (const std::string& token : line.tokens) text += ' ' + token;
    text += '\n';
  }
  return text;
}

std::string escaped(std::string_view text) {
  if (text.empty()) return "%";
  std::string token;
  for (const char one : text) {
    if (is_plain(one)) {
      token += one;
    } else {
      char code[4];
      std::snprintf(code, sizeof code, "%%%02X", static_cast<unsigned char>(one));
      token += code;
    }
  }
  return token;
}

std::string unescaped(std::string_view token) {
  std::string text;
  for (std::size_t i = 0; i < token.size(); ++i) {
    if (token[i] != '%') {
      text += token[i];
    } else if (i + 2 < token.size() && digit_of(token[i + 1]) >= 0 && digit_of(token[i + 2]) >= 0) {
      text += static_cast<char>(16 * digit_of(token[i + 1]) + digit_of(token[i + 2]));
      i += 2;
    }
  }
  return text;
}

std::vector<std::string> list_of(std::string_view token) {
  if (token.empty() || token == "%") return {};
  return split(token, ',');
}

double real_of(const std::string& token) { return std::strtod(token.c_str(), nullptr); }

std::int64_t integer_of(const std::string& token) {
  return std::strtoll(token.c_str(), nullptr, 0);
}

}  // namespace Fuzz
