#include "outputs/json_text.h"

#include <algorithm>
#include <cstddef>
#include <nlohmann/json.hpp>

namespace Outputs {
namespace {

using Json = nlohmann::ordered_json;

std::string leaf(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

bool is_row(const Json& json) {
  return json.is_array() && std::all_of(json.begin(), json.end(), [](const Json& element) {
           return element.is_number() || element.is_null();
         });
}

void add(std::string& text, const Json& json, std::size_t depth) {
  if (!json.is_structured() || json.empty()) {
    text += leaf(json);
    return;
  }
  if (is_row(json)) {
    const char* before = "[";
    for (const Json& element : json) {
      text += before + leaf(element);
      before = ", ";
    }
    text += ']';
    return;
  }
  const char* before = json.is_object() ? "{\n" : "[\n";
  for (auto element = json.begin(); element != json.end(); ++element) {
    text += before + std::string(2 * (depth + 1), ' ');
    if (json.is_object()) text += leaf(element.key()) + ": ";
    add(text, *element, depth + 1);
    before = ",\n";
  }
  text += '\n' + std::string(2 * depth, ' ') + (json.is_object() ? '}' : ']');
}

}  // namespace

std::string json_text(const Json& json) {
  std::string text;
  add(text, json, 0);
  return text;
}

}  // namespace Outputs
