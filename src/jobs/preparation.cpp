#include "jobs/preparation.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

#include "base/units.h"
#include "jobs/captured_lines.h"
#include "jobs/failure.h"
#include "jobs/input_files.h"
#include "jobs/job_form.h"

namespace Jobs {
namespace {

std::string shown(double value, Base::Units units) {
  std::string text = fmt::format("{:.10g}", value);
  const std::string name = Base::units_text(units);
  return name.empty() ? text : text + " " + name;
}

// The library converts values to and from base units, which changes the last digits.
bool changed(double before, double after) {
  return std::abs(after - before) > 1e-9 * std::max(std::abs(before), std::abs(after));
}

}  // namespace

Span span_of(const Part& part, const std::string& key) {
  const Value* value = part.parameters.find(key);
  return value == nullptr ? part.span : value->span;
}

bool in_library(Preparation& p, const Span& place, const std::string& title,
                const std::function<void()>& operation, const std::string& label) {
  CapturedLines lines;
  bool good = true;
  try {
    operation();
  } catch (...) {
    const std::string message = message_of_current();
    p.faults.push_back({title.empty() ? message : title + ": " + message, place, label});
    good = false;
  }
  p.run.log += lines.progress() + lines.faults();
  return good;
}

bool set_with_remarks(Preparation& p, const Part& part, const std::string& title,
                      Base::Params& params, const std::function<void(Base::Params&)>& set) {
  const Base::Params::Entries before = params.entries();
  const std::uint32_t comments = params.comment_size();
  if (!in_library(p, part.span, title, [&] { set(params); })) return false;
  for (std::uint32_t i = comments; i < params.comment_size(); ++i) {
    // "Poor match" says less than the values themselves.
    const std::string text = comment_text(params.comment(i));
    if (text != "Poor match") p.run.remarks.push_back(fmt::format("{}: {}", title, text));
  }
  for (const auto& [name, quantity] : params.entries()) {
    const auto old = before.find(name);
    if (old == before.end() || quantity.is_enum()) continue;
    if (part.parameters.find(name) == nullptr) continue;
    if (!changed(old->second.value, quantity.value)) continue;
    p.run.remarks.push_back(fmt::format("{}: {}: {} became {}", title, name,
                                        shown(old->second.value, old->second.units),
                                        shown(quantity.value, quantity.units)));
  }
  return true;
}

bool lies_in_tank(Preparation& p, const Part& part, const std::string& key, double x) {
  if (!p.has_site) return true;
  const Maths::TankConfig& tank = p.run.experiment.context().tank_config();
  if (x == 0.0 || (x >= tank.x_low && x <= tank.x_high)) return true;
  p.faults.push_back({fmt::format("`{}` lies outside the tank, which reaches from {:g} to {:g} m",
                                  key, tank.x_low, tank.x_high),
                      span_of(part, key), ""});
  return false;
}

void add_refusal(Preparation& p, const Part& part, const std::string& message) {
  const std::size_t colons = message.find("::");
  const std::string name = message.substr(0, colons);
  if (colons == std::string::npos || part.parameters.find(name) == nullptr) {
    p.faults.push_back({fmt::format("{}: {}", part.title, message), part.span, ""});
  } else {
    p.faults.push_back(
        {fmt::format("`{}` {}", name, message.substr(colons + 2)), span_of(part, name), ""});
  }
}

std::string title_in_sea(const Part& part, const std::string& sea) {
  return part.title + " of " + sea;
}

void add_unreadable(Preparation& p, const std::string& what, const std::string& given,
                    const std::string& problem, const Span& place) {
  const bool missing = problem == "does not exist";
  p.faults.push_back({fmt::format("the {} `{}` {}", what, given, problem), place,
                      missing ? searched_folder(p.run.job, given) : ""});
}

std::optional<std::size_t> read_part_file(Preparation& p, const Part& part) {
  const Value* file = part.parameters.find("file");
  if (file == nullptr) {
    p.faults.push_back({fmt::format("`file` is missing in {}", part.title), part.span,
                        "a CSV file, relative to the job's folder"});
    return std::nullopt;
  }
  std::string fault;
  if (file->kind != Value::Kind::text) {
    fault = "`file` is a path";
  } else if (file->text.empty()) {
    fault = "`file` is empty";
  } else if (is_several_lines(*file)) {
    fault = "`file` must be a text on one line";
  }
  if (!fault.empty()) {
    const bool other_kind = file->kind != Value::Kind::text;
    p.faults.push_back({fault, file->span, other_kind ? "write it as text" : ""});
    return std::nullopt;
  }
  const std::string path = opened_path(p.run.job, file->text);
  if (const auto found = find_input(p.run.inputs, path)) return found;
  try {
    p.run.inputs.push_back({path, "", read_file(path, largest_record)});
    return p.run.inputs.size() - 1;
  } catch (const std::string& problem) {
    add_unreadable(p, "file", file->text, problem, file->span);
    return std::nullopt;
  }
}

}  // namespace Jobs
