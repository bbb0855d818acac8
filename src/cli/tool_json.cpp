#include "cli/tool_json.h"

#include <nlohmann/json.hpp>

#include "base/unit_table.h"
#include "cli/formula_parts.h"
#include "cli/unit_names.h"

namespace Cli {
namespace {

using Json = nlohmann::ordered_json;

// Texts come from the user; bytes that are not UTF-8 are replaced.
std::string document(const Json& json) {
  return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

Json of(const InUnits& quantity) { return {{"value", quantity.value}, {"units", quantity.units}}; }

}  // namespace

std::string json_of(const Conversion& conversion) {
  Json results = Json::array();
  for (const InUnits& result : conversion.results) results.push_back(of(result));
  return document({{"given", of(conversion.given)},
                   {"kind", conversion.kind},
                   {"results", results},
                   {"remarks", conversion.remarks}});
}

std::string json_of(const Answer& answer) {
  Json explanations = Json::array();
  for (const Explanation& found : answer.fitting.empty() ? answer.similar : answer.fitting) {
    explanations.push_back({{"message", found.message},
                            {"text", found.lines},
                            {"page", found.page},
                            {"section", found.section}});
  }
  return document({{"exact", !answer.fitting.empty()}, {"explanations", explanations}});
}

std::string formulas_json() {
  Json json;
  json["functions"] = Json::array();
  for (const FormulaFunction& function : formula_functions()) {
    json["functions"].push_back({{"name", function.name},
                                 {"arguments", function.arguments},
                                 {"meaning", function.meaning}});
  }
  json["operators"] = Json::array();
  for (const FormulaOperator& op : formula_operators()) {
    json["operators"].push_back({{"written", op.written}, {"meaning", op.meaning}});
  }
  for (const FormulaConstant& constant : formula_constants()) {
    json["constants"][std::string(constant.name)] = constant.meaning;
  }
  for (Base::UnitCategory category = 2; category < Base::default_units_table.size(); ++category) {
    json["units"][kind_name(category)] = units_of_kind(category);
  }
  for (const Base::PrefixRow& prefix : Base::prefix_table) {
    if (prefix.letter != '\0') json["prefixes"][std::string(1, prefix.letter)] = prefix.multiplier;
  }
  json["traps"] = Json::array();
  for (const std::string_view trap : formula_traps()) json["traps"].push_back(trap);
  return document(json);
}

}  // namespace Cli
