#include "fuzz/native/mutator.h"

#include <algorithm>

#include "fuzz/native/rows.h"
#include "fuzz/native/words.h"

namespace Fuzz {
namespace {

std::size_t below(std::size_t count, Draws& draws) { return count == 0 ? 0 : draws() % count; }
bool one_in(std::size_t count, Draws& draws) { return below(count, draws) == 0; }

const std::string& any_of(const std::vector<std::string>& list, Draws& draws) {
  return list[below(list.size(), draws)];
}

std::string random_number(Draws& draws) {
  if (one_in(10, draws)) return any_of(odd_numbers(), draws);
  // Seldom, since a sequence with one of them promises less.
  if (one_in(100, draws)) return any_of(wild_numbers(), draws);
  if (one_in(8, draws)) return std::to_string(static_cast<double>(draws() % 20001) / 1000 - 10);
  return any_of(sane_numbers(), draws);
}

std::string random_integer(Draws& draws) {
  if (one_in(12, draws)) return any_of(odd_integers(), draws);
  return std::to_string(below(one_in(3, draws) ? 24 : 6, draws));
}

std::string random_text(Draws& draws) {
  std::string text = any_of(words(), draws);
  if (text == "null" && !one_in(4, draws)) text = "name";
  if (one_in(20, draws)) {
    for (std::size_t i = below(6, draws); i-- > 0;) text += static_cast<char>(draws() % 256);
  }
  if (one_in(30, draws) && !text.empty()) text.erase(below(text.size(), draws), 1);
  return text == "null" ? text : escaped(text);
}

std::string random_list(Kind kind, Draws& draws) {
  if (one_in(20, draws)) return "none";
  std::size_t count = one_in(2, draws) ? 4 : below(12, draws);
  if (one_in(10, draws)) count = 64;
  std::string list;
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) list += ',';
    list += kind == Kind::reals      ? random_number(draws)
            : kind == Kind::integers ? random_integer(draws)
                                     : random_text(draws);
  }
  return list.empty() ? "%" : list;
}

Line random_line(Draws& draws) {
  const Row& row = rows()[below(rows().size(), draws)];
  Line line;
  line.name = row.name;
  for (const Argument& argument : row.arguments) {
    line.tokens.push_back(random_token(argument, draws));
  }
  return line;
}

// A factor or a step instead of a number.
std::string near_number(const std::string& token, Draws& draws) {
  const double factors[] = {2.0, 0.5, -1.0, 1.0000001, 10.0, 0.1};
  return std::to_string(real_of(token) * factors[below(6, draws)]);
}

void change_argument(Line& line, Draws& draws) {
  const Row* row = find_row(line.name);
  if (row == nullptr || row->arguments.empty()) return;
  line.tokens.resize(row->arguments.size(), "0");
  const std::size_t i = below(line.tokens.size(), draws);
  const Argument& argument = row->arguments[i];
  if (argument.kind == Kind::real && one_in(3, draws)) {
    line.tokens[i] = near_number(line.tokens[i], draws);
  } else {
    line.tokens[i] = random_token(argument, draws);
  }
}

}  // namespace

std::string random_token(const Argument& argument, Draws& draws) {
  switch (argument.kind) {
    case Kind::object:
      if (argument.may_be_null && one_in(40, draws)) return "null";
      return std::to_string(one_in(3, draws) ? below(6, draws) : 0);
    case Kind::text:
    case Kind::bytes:
      return random_text(draws);
    case Kind::real:
      return random_number(draws);
    case Kind::integer:
      return random_integer(draws);
    case Kind::boolean:
      return std::to_string(below(2, draws));
    case Kind::reals:
    case Kind::integers:
    case Kind::texts:
      return random_list(argument.kind, draws);
  }
  return "0";
}

void mutate(std::vector<Line>& lines, Draws& draws) {
  for (std::size_t changes = 1 + below(4, draws); changes-- > 0;) {
    const std::size_t at = below(lines.size(), draws);
    const auto here = lines.begin() + static_cast<std::ptrdiff_t>(at);
    const std::size_t length = 1 + below(std::min<std::size_t>(6, lines.size() - at), draws);
    switch (lines.empty() ? 0 : below(8, draws)) {
      case 0:
      case 1:
        lines.insert(here, random_line(draws));
        break;
      case 2:
        lines.erase(here, here + static_cast<std::ptrdiff_t>(one_in(2, draws) ? 1 : length));
        break;
      case 3: {
        const std::vector<Line> copy(here, here + static_cast<std::ptrdiff_t>(length));
        const std::size_t to = below(lines.size() + 1, draws);
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(to), copy.begin(), copy.end());
        break;
      }
      case 4:
        std::swap(*here, lines[below(lines.size(), draws)]);
        break;
      default:
        change_argument(*here, draws);
        break;
    }
  }
}

std::vector<Line> crossed(const std::vector<Line>& one, const std::vector<Line>& other,
                          Draws& draws) {
  std::vector<Line> lines = one;
  if (other.empty()) return lines;
  const std::size_t from = below(other.size(), draws);
  const std::size_t length = 1 + below(std::min<std::size_t>(40, other.size() - from), draws);
  const auto first = other.begin() + static_cast<std::ptrdiff_t>(from);
  const std::size_t to = one_in(2, draws) ? lines.size() : below(lines.size() + 1, draws);
  lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(to), first,
               first + static_cast<std::ptrdiff_t>(length));
  return lines;
}

}  // namespace Fuzz
