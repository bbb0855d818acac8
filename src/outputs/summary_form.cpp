#include "outputs/summary_form.h"

#include <nlohmann/json.hpp>

namespace Outputs {
namespace {

using Json = nlohmann::ordered_json;

// A question mark allows null. "*" stands for every key.
constexpr const char* form = R"({
  "kelpbox": "text", "compiler": "text", "title": "text",
  "site": {"name": "text", "tank": "text", "identity": "text", "file": "text"},
  "plan": {
    "x": ["number"], "y": ["number?"], "walls": "text",
    "profile": {"x": ["number"], "depth": ["number"]},
    "banks": [{"name": "text", "machine": "text", "paddle_width": "number", "paddles":
      {"number": ["number"], "x": ["number"], "y": ["number"], "angle": ["number"]}}]
  },
  "run": {"repeat": "number", "lowest_harmonic": "number", "highest_harmonic": "number",
    "side_walls": "truth value", "fronts": "number"},
  "seas": [{"name": "text", "sentence": "text", "waves": ["text"], "fronts": "number",
    "holds": {"x": "number", "y": "number", "t": "number"}}],
  "spectrum": {"at": {"x": "number", "y": "number"}, "harmonics": "number", "f": ["number"],
    "made": ["number?"], "asked": ["number?"], "lines": [{"f": "number", "a": "number"}]},
  "directions": {"f": ["number"], "angle": ["number"], "variance": [["number?"]],
    "asked": ["number?"]},
  "drive": {"rate": "number", "samples": "number", "ramp": "number",
    "stop_at_limit": "truth value",
    "banks": [{"name": "text", "units": "text", "paddles": "number", "maximum": "number?",
      "minimum": "number?", "clip_limit": "number?"}]},
  "points": [{"name": "text", "x": "number", "y": "number", "rate": "number", "samples": "number",
    "statistics": {"*": {"value": "number?", "units": "text"}}, "remarks": ["text"]}],
  "field": {"rate": "number", "frames": "number", "lowest": "number?", "highest": "number?",
    "x": {"from": "number", "step": "number", "count": "number"},
    "y": {"from": "number", "step": "number", "count": "number"}, "remarks": ["text"]},
  "judged": "number", "looks": "number",
  "findings": [{"group": "text", "key": "text", "quantity": "text", "units": "text",
    "asked": "number?", "made": "number?", "asked_text": "text", "made_text": "text",
    "criterion": "text", "verdict": "text?", "remark": "text", "minor": "truth value"}],
  "remarks": ["text"],
  "inputs": [{"name": "text", "bytes": "number", "sha256": "text"}],
  "files": [{"name": "text", "bytes": "number", "sha256": "text"}]
})";

bool is_of(const Json& value, const std::string& type) {
  if (type == "text") return value.is_string();
  if (type == "number") return value.is_number();
  return value.is_boolean();
}

std::string fault(const Json& value, const Json& wanted, const std::string& place);

std::string fault_of_value(const Json& value, std::string type, const std::string& place) {
  if (type.back() == '?') {
    if (value.is_null()) return "";
    type.pop_back();
  }
  return is_of(value, type) ? "" : place + " is not a " + type;
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
