#include "cli/tool_json.h"

#include <nlohmann/json.hpp>

#include "base/unit_table.h"
#include "cli/failure_report.h"
#include "cli/formula_parts.h"
#include "cli/templates.h"
#include "cli/unit_names.h"

namespace Cli {
namespace {

using Json = nlohmann::ordered_json;

// Texts come from the user; bytes that are not UTF-8 are replaced.
std::string document(const Json& json) {
  return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

Json of(const InUnits& quantity) { return {{"value", quantity.value}, {"units", quantity.units}}; }

Json of(const Train& train) { return {{"forward", train.forward}, {"backward", train.backward}}; }

// Lengths in m, times in s, angles in rad.
Json of(const RecordAnalysis& analysis) {
  const ProbeRecords& records = analysis.records;
  Json json{{"file", records.file},
            {"rate", records.rate},
            {"start", records.start},
            {"samples", records.samples()},
            {"hm0", analysis.height_m0}};
  json["probes"] = Json::array();
  for (const Probe& probe : records.probes) {
    Json one{{"name", probe.name}, {"removed_mean", probe.mean}};
    if (probe.placed) one.update({{"x", probe.x}, {"y", probe.y}});
    json["probes"].push_back(one);
  }
  if (analysis.crossings) {
    const ZeroCrossings& found = *analysis.crossings;
    if (found.regular) {
      json["zero_crossings"] = {
          {"regular", true}, {"reg_t", found.period}, {"heights", found.heights}};
    } else {
      json["zero_crossings"] = {
          {"regular", false}, {"sig_t", found.period}, {"sig_h", found.height}};
    }
  }
  if (analysis.trains) {
    const WaveTrains& found = *analysis.trains;
    Json trains{{"angle", found.angle},
                {"frequency", found.frequency},
                {"depth", found.depth},
                {"wave_length", found.wave_length},
                {"fundamental", of(found.fundamental)},
                {"reflection", found.reflection()},
                {"noise_gain", found.gain.fundamental}};
    if (found.has_harmonics) {
      trains["bound_harmonic"] = of(found.bound);
      trains["free_harmonic"] = of(found.free);
      trains["harmonic_noise_gain"] = found.gain.harmonic;
    }
    json["wave_trains"] = trains;
  }
  json["notes"] = analysis.notes;
  return json;
}

Json of(const std::vector<Explanation>& explanations) {
  Json list = Json::array();
  for (const Explanation& found : explanations) {
    list.push_back({{"message", found.message},
                    {"text", found.lines},
                    {"page", found.page},
                    {"section", found.section}});
  }
  return list;
}

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
  return document({{"exact", !answer.fitting.empty()},
                   {"explanations", of(answer.fitting.empty() ? answer.similar : answer.fitting)}});
}

std::string json_of(const Answer& answer, const std::string& error) {
  return document({{"error", Json::parse(failure_json({Exit::bad_input, error, {}}))},
                   {"similar", of(answer.similar)}});
}

std::string json_of(const std::vector<RecordAnalysis>& analyses) {
  Json files = Json::array();
  for (const RecordAnalysis& analysis : analyses) files.push_back(of(analysis));
  return document({{"files", files}});
}

std::string json_of(const NewFiles& files) {
  return document({{"written", files.written}, {"kept", files.kept}});
}

std::string templates_json() {
  Json json;
  const auto add = [&json](const char* key, const std::vector<Template>& templates) {
    json[key] = Json::array();
    for (const Template& entry : templates) {
      json[key].push_back({{"name", entry.name}, {"title", entry.title}});
    }
  };
  add("jobs", job_templates());
  add("sites", site_templates());
  return document(json);
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
