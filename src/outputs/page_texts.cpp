#include "outputs/page_texts.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>

#include "outputs/cannot_read.h"
#include "outputs/regular_file.h"
#include "outputs/summary_form.h"
#include "outputs/summary_lengths.h"

namespace Outputs {
namespace {

using Json = nlohmann::ordered_json;

// The keys that the page cannot do without: the form of its data says that they are there.
constexpr const char* required[] = {"kelpbox", "title",  "site",     "run",     "seas",
                                    "points",  "judged", "findings", "remarks", "inputs"};

constexpr std::size_t most_levels = 32;  // a run writes 6
constexpr std::size_t largest_summary = 32 << 20;

// Whether lists and objects lie too deep in each other. Copying and writing such values would
// exhaust the stack.
bool is_too_deep(const std::string& text) {
  std::size_t levels = 0;
  bool in_text = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (in_text && text[i] == '\\') {
      ++i;
    } else if (text[i] == '"') {
      in_text = !in_text;
    } else if (!in_text && (text[i] == '[' || text[i] == '{')) {
      if (++levels > most_levels) return true;
    } else if (!in_text && (text[i] == ']' || text[i] == '}') && levels > 0) {
      --levels;
    }
  }
  return false;
}

bool is_complete(const Json& summary) {
  return summary.is_object() &&
         std::all_of(std::begin(required), std::end(required),
                     [&summary](const char* key) { return summary.contains(key); });
}

}  // namespace

Json read_summary(const PageSource& source) {
  std::error_code ignored;
  if (!std::filesystem::exists(source.folder, ignored)) {
    throw CannotRead{source.shown_folder + ": there is no such folder"};
  }
  if (!source.has("summary.json")) {
    throw CannotRead{source.shown_folder +
                     ": is not a folder of results of `kelpbox run`: it has no summary.json"};
  }
  const std::string shown = source.shown("summary.json");
  const std::string text = read_text(source, "summary.json", largest_summary);
  try {
    const std::string foreign = shown + ": is not a summary of `kelpbox run`";
    if (is_too_deep(text)) throw CannotRead{foreign};
    Json summary = Json::parse(text);
    if (!is_complete(summary)) throw CannotRead{foreign};
    std::string fault = fault_of_form(summary);
    if (fault.empty()) fault = fault_of_lengths(summary);
    if (!fault.empty()) throw CannotRead{foreign + ": " + fault};
    return summary;
  } catch (const Json::parse_error& error) {
    throw CannotRead{shown + ": is broken at byte " + std::to_string(error.byte)};
  } catch (const Json::out_of_range&) {
    throw CannotRead{shown + ": has a number that is too large"};
  }
}

std::string read_text(const PageSource& source, const std::string& name, std::size_t largest) {
  if (!source.has(name)) return "";
  require_regular_file(source.path(name), source.shown(name));
  errno = 0;
  std::ifstream in(source.path(name), std::ios::binary);
  std::string text;
  std::array<char, 1 << 16> block{};
  while (in.read(block.data(), block.size()) || in.gcount() > 0) {
    text.append(block.data(), static_cast<std::size_t>(in.gcount()));
    if (text.size() <= largest) continue;
    throw CannotRead{source.shown(name) + ": is larger than " + std::to_string(largest >> 20) +
                     " MiB"};
  }
  if (!in.is_open() || in.bad()) cannot_read(source.shown(name), errno == 0 ? EIO : errno);
  return text;
}

std::string without_middle(const std::string& text, std::size_t longest) {
  if (text.size() <= longest) return text;
  // Whole lines, as far as the lines are short enough.
  const std::size_t half = longest / 2;
  std::size_t first = text.rfind('\n', half);
  if (first == std::string::npos || first < half / 2) first = half;
  std::size_t last = text.find('\n', text.size() - half);
  if (last == std::string::npos || last > text.size() - half / 2) last = text.size() - half;
  const auto begin = text.begin() + static_cast<std::ptrdiff_t>(first);
  const auto lines = std::count(begin, text.begin() + static_cast<std::ptrdiff_t>(last), '\n');
  return text.substr(0, first) + "\n[" + std::to_string(lines) +
         " lines are left out here; log.txt has them]" + text.substr(last);
}

}  // namespace Outputs
