#include "outputs/summary_form.h"

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <string_view>

namespace Outputs {
namespace {

using Json = nlohmann::ordered_json;

// A question mark allows null. "*" stands for every key. A "rate" is above 0, and a "count" is a
// whole number: the page divides by rates and makes room for counts. A "harmonic" is both. What has
// an exclamation mark must be there, since the page reads it of each element of a list.
constexpr const char* form = R"({
  "kelpbox": "text", "compiler": "text", "title": "text",
  "site": {"name": "text", "tank": "text", "identity": "text", "file": "text"},
  "plan": {
    "x": ["number"], "y": ["number?"], "walls": "text",
    "profile": {"x": ["number"], "depth": ["number"]},
    "banks": [{"name": "text", "machine": "text", "paddle_width": "number", "paddles":
      {"number": ["number"], "x": ["number"], "y": ["number"], "angle": ["number"]}}]
  },
  "run": {"repeat": "rate", "lowest_harmonic": "count", "highest_harmonic": "harmonic",
    "side_walls": "truth value", "fronts": "count"},
  "seas": [{"name": "text", "sentence": "text", "waves": ["text"], "fronts": "count",
    "holds": {"x": "number", "y": "number", "t": "number"}}],
  "spectrum": {"at": {"x": "number", "y": "number"}, "harmonics": "count", "f": ["number"],
    "made": ["number?"], "asked": ["number?"], "lines": [{"f": "number", "a": "number"}]},
  "directions": {"f": ["number"], "angle": ["number"], "variance": [["number?"]],
    "asked": ["number?"]},
  "drive": {"rate": "rate", "samples": "count", "ramp": "number",
    "stop_at_limit": "truth value",
    "banks": [{"name": "text", "units": "text", "paddles": "count", "maximum": "number?",
      "minimum": "number?", "clip_limit": "number?"}]},
  "points": [{"name": "text", "x": "number", "y": "number", "rate": "rate", "samples": "count",
    "statistics": {"*": {"value": "number?", "units": "text"}}, "remarks": ["text"]}],
  "field": {"rate": "rate", "frames": "count", "lowest": "number?", "highest": "number?",
    "x": {"from": "number", "step": "number", "count": "count"},
    "y": {"from": "number", "step": "number", "count": "count"}, "remarks": ["text"]},
  "judged": "count", "looks": "count",
  "findings": [{"group": "!text", "key": "!text", "quantity": "!text", "units": "!text",
    "asked": "!number?", "made": "!number?", "asked_text": "!text", "made_text": "!text",
    "criterion": "!text", "verdict": "!text?", "remark": "!text", "minor": "!truth value"}],
  "remarks": ["text"],
  "inputs": [{"name": "text", "bytes": "number", "sha256": "text"}],
  "files": [{"name": "text", "bytes": "number", "sha256": "text"}]
})";

// Other numbers have no bound: a large one may stand for "no limit" in a site.
constexpr double largest_rate = 1e15;
constexpr double largest_count = 4294967295.0;
constexpr double largest_harmonic = 1e9;

double largest(std::string_view type) {
  if (type == "rate") return largest_rate;
  if (type == "count") return largest_count;
  return type == "harmonic" ? largest_harmonic : std::numeric_limits<double>::max();
}

std::string fault_of_number(const Json& value, std::string_view type) {
  if (!value.is_number()) return "is not a number";
  const auto number = value.get<double>();
  const bool is_whole = number == std::floor(number) && number >= 0.0;
  if ((type == "count" || type == "harmonic") && !is_whole) return "is not a whole number";
  if ((type == "rate" || type == "harmonic") && !(number > 0.0)) return "is not above 0";
  return std::abs(number) > largest(type) ? "is too large" : "";
}

std::string fault_of_type(const Json& value, std::string_view type) {
  if (type == "text") return value.is_string() ? "" : "is not a text";
  if (type == "truth value") return value.is_boolean() ? "" : "is not a truth value";
  return fault_of_number(value, type);
}

bool is_required(const Json& wanted) {
  return wanted.is_string() && wanted.get_ref<const std::string&>().front() == '!';
}

std::string fault(const Json& value, const Json& wanted, const std::string& place);

std::string fault_of_value(const Json& value, std::string type, const std::string& place) {
  if (type.front() == '!') type.erase(0, 1);
  if (type.back() == '?') {
    if (value.is_null()) return "";
    type.pop_back();
  }
  const std::string found = fault_of_type(value, type);
  return found.empty() ? "" : place + " " + found;
}

std::string fault_of_list(const Json& value, const Json& element, const std::string& place) {
  if (!value.is_array()) return place + " is not a list";
  for (std::size_t i = 0; i < value.size(); ++i) {
    std::string found = fault(value[i], element, place + "[" + std::to_string(i) + "]");
    if (!found.empty()) return found;
  }
  return "";
}

std::string fault_of_object(const Json& value, const Json& members, const std::string& place) {
  if (!value.is_object()) return place + " is not an object";
  const std::string before = place.empty() ? "" : place + ".";
  for (const auto& [key, member] : value.items()) {
    const auto wanted = members.find(members.contains("*") ? "*" : key);
    if (wanted == members.end()) continue;
    std::string found = fault(member, *wanted, before + key);
    if (!found.empty()) return found;
  }
  for (const auto& [key, member] : members.items()) {
    if (is_required(member) && !value.contains(key)) return before + key + " is missing";
  }
  return "";
}

std::string fault(const Json& value, const Json& wanted, const std::string& place) {
  if (wanted.is_array()) return fault_of_list(value, wanted.front(), place);
  if (wanted.is_object()) return fault_of_object(value, wanted, place);
  return fault_of_value(value, wanted.get<std::string>(), place);
}

}  // namespace

std::string fault_of_form(const Json& summary) { return fault(summary, Json::parse(form), ""); }

}  // namespace Outputs
