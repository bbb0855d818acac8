// The pages of `kelpbox seas` as JSON. Keys are only ever added.
#include <nlohmann/json.hpp>

#include "cli/sea_page.h"

namespace Cli {

namespace {

using Json = nlohmann::ordered_json;

Json of(const std::vector<PageParameter>& parameters) {
  Json list = Json::array();
  for (const PageParameter& parameter : parameters) {
    Json one{{"name", parameter.name},
             {"units", parameter.units},
             {"meaning", parameter.meaning},
             {"required", parameter.required}};
    if (!parameter.required) one["default"] = parameter.fallback;
    if (!parameter.range.empty()) one["range"] = parameter.range;
    list.push_back(std::move(one));
  }
  return list;
}

Json summary(const SeaPage& page) {
  return {{"name", page.name},
          {"title", page.title},
          {"for", page.is_change ? "sea.change" : "sea.wave"},
          {"ready", !page.is_own},
          {"parameters", of(page.parameters)}};
}

}  // namespace

std::string seas_json(const std::vector<SeaPage>& pages) {
  Json list = Json::array();
  for (const SeaPage& page : pages) list.push_back(summary(page));
  return Json{{"seas", list}}.dump(2) + "\n";
}

std::string sea_json(const SeaPage& page) {
  Json all = summary(page);
  Json computed = Json::array();
  for (const PageParameter& parameter : page.computed) {
    computed.push_back(
        {{"name", parameter.name}, {"units", parameter.units}, {"meaning", parameter.meaning}});
  }
  all["computed"] = computed;
  if (!page.stands_for.empty()) all["stands_for"] = page.stands_for;
  Json fixed = Json::object();
  for (const auto& [name, value] : page.fixed) fixed[name] = value;
  all["fixed"] = fixed;
  all["formula"] = page.formula;
  all["source"] = page.source;
  all["example"] = page.example;
  return all.dump(2) + "\n";
}

}  // namespace Cli
