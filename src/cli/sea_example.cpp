#include "cli/sea_example.h"

#include <algorithm>
#include <cstddef>
#include <map>

namespace Cli {

namespace {

// A storm of 80 mm and 1.6 s, and what goes with it.
const std::string& example_value(const std::string& parameter) {
  static const std::map<std::string, std::string> values = {
      {"hs", "\"80 mm\""},
      {"tp", "\"1.6 s\""},
      {"t1", "\"1.25 s\""},
      {"gamma", "3.3"},
      {"hs1", "\"60 mm\""},
      {"tp1", "\"2.2 s\""},
      {"lambda1", "3"},
      {"hs2", "\"50 mm\""},
      {"tp2", "\"1.1 s\""},
      {"lambda2", "1"},
      {"width", "\"30 mHz\""},
      {"height", "\"100 mm\""},
      {"period", "\"1.6 s\""},
      {"crest", "\"120 mm\""},
      {"s", "10"},
      {"n", "4"},
      {"s_max", "10"},
      {"factor", "1.5"},
      {"angle", "\"15 deg\""},
      {"seed", "7"},
  };
  static const std::string none;
  const auto found = values.find(parameter);
  return found == values.end() ? none : found->second;
}

bool is_shown(const PageParameter& parameter) {
  return parameter.required || parameter.name == "gamma" || parameter.name == "seed" ||
         parameter.name == "angle";
}

}  // namespace

std::string example_block(const SeaPage& page, const ExampleLines& lines) {
  std::size_t width = 4;
  for (const auto& line : lines) width = std::max(width, line.first.size());
  const auto text = [&](const std::string& key, const std::string& value) {
    return key + std::string(width - key.size(), ' ') + " = " + value + "\n";
  };
  std::string block = page.is_change ? "[[sea.change]]\n" : "[[sea.wave]]\n";
  block += text("kind", "\"" + page.name + "\"");
  for (const auto& [key, value] : lines) block += text(key, value);
  return block;
}

std::string ready_example(const SeaPage& page) {
  ExampleLines lines;
  for (const PageParameter& parameter : page.parameters) {
    if (is_shown(parameter)) lines.emplace_back(parameter.name, example_value(parameter.name));
  }
  return example_block(page, lines);
}

}  // namespace Cli
