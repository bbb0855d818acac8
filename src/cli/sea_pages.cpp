#include <algorithm>
#include <iterator>
#include <utility>

#include "cli/own_kinds.h"
#include "cli/sea_example.h"
#include "cli/sea_page.h"
#include "jobs/ready_sea.h"

namespace Cli {

namespace {

std::vector<PageParameter> parameters_of(const std::vector<Jobs::ReadyParameter>& list) {
  std::vector<PageParameter> parameters;
  for (const Jobs::ReadyParameter& ready : list) {
    PageParameter parameter;
    parameter.name = ready.name;
    parameter.units = ready.units;
    parameter.meaning = ready.meaning;
    parameter.required = ready.required();
    parameter.fallback = ready.fallback.value_or(ready.otherwise);
    parameter.range = Jobs::range_of(ready);
    parameters.push_back(std::move(parameter));
  }
  return parameters;
}

SeaPage page_of(const Jobs::ReadySea& sea) {
  SeaPage page;
  page.name = sea.name;
  page.title = sea.title;
  page.source = sea.source;
  page.formula = sea.formula;
  if (sea.makes == Jobs::ReadySea::Makes::single_wave) page.stands_for = "single";
  page.parameters = parameters_of(sea.parameters);
  page.computed = parameters_of(sea.computed);
  page.example = ready_example(page);
  return page;
}

SeaPage page_of(const Jobs::ReadyChange& change) {
  SeaPage page;
  page.name = change.name;
  page.title = change.title;
  page.source = change.source;
  page.is_change = true;
  page.stands_for = change.modifier;
  page.formula = change.formula;
  page.fixed = change.fixed;
  page.parameters = parameters_of(change.parameters);
  const auto is_fixed = [&](const PageParameter& parameter) {
    return std::any_of(change.fixed.begin(), change.fixed.end(),
                       [&](const auto& fixed) { return fixed.first == parameter.name; });
  };
  for (PageParameter& own :
       declared_parameters(change.modifier, declared_by_modifier(change.modifier))) {
    if (!is_fixed(own)) page.parameters.push_back(std::move(own));
  }
  page.example = ready_example(page);
  return page;
}

std::vector<SeaPage> collect() {
  std::vector<SeaPage> pages;
  const auto append = [&](std::vector<SeaPage> more) {
    std::move(more.begin(), more.end(), std::back_inserter(pages));
  };
  for (const Jobs::ReadySea& sea : Jobs::ready_seas()) pages.push_back(page_of(sea));
  append(own_waves());
  for (const Jobs::ReadyChange& change : Jobs::ready_changes()) pages.push_back(page_of(change));
  append(own_changes());
  return pages;
}

}  // namespace

const std::vector<SeaPage>& sea_pages() {
  static const std::vector<SeaPage> pages = collect();
  return pages;
}

}  // namespace Cli
