#include "jobs/read_site.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <optional>
#include <sstream>

#include "base/streams.h"
#include "jobs/bind_parameters.h"
#include "jobs/captured_lines.h"
#include "jobs/failure.h"
#include "jobs/input_files.h"
#include "script/division.h"
#include "script/log.h"
#include "site/context.h"

namespace Jobs {
namespace {

constexpr std::uintmax_t largest_script = 16;  // MiB

// What the library gives for a failure whose own message it does not pass on.
constexpr const char* no_message = "Uncaught Exception in Experiment Initialise";

struct SiteFailure {
  std::string message;
  std::string progress;
  std::string faults;
};

void add_site_fault(Preparation& p, const std::string& fault) {
  p.faults.push_back(
      {fmt::format("the site `{}`: {}", p.run.job.site, fault), p.run.job.site_span, ""});
}

bool is_readable(Preparation& p, const std::string& path) {
  const Job& job = p.run.job;
  try {
    read_file(path, largest_script);
    return true;
  } catch (const std::string& problem) {
    add_unreadable(p, "site", job.site, problem, job.site_span);
    return false;
  }
}

// Reads the script once more, without the experiment, which hides some messages.
std::string hidden_message(const std::string& path) {
  const CapturedLines lines;
  Script::SimpleLog log(Base::progress());
  Common::SiteReader reader("context");
  reader.attach_log(log);
  try {
    reader.read(Base::script_faults(), path, "");
    return "it cannot be used";
  } catch (...) {
    return message_of_current();
  }
}

// The lines of a text that begin like that, without the beginning.
std::vector<std::string> lines_after(const std::string& text, const std::string& beginning) {
  std::vector<std::string> found;
  std::istringstream lines(text);
  lines.exceptions(std::ios_base::badbit);  // set when a line does not fit into memory
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(beginning)) found.push_back(line.substr(beginning.size()));
  }
  return found;
}

std::uint32_t token_length(const std::string& text, std::uint32_t line, std::uint32_t column) {
  std::istringstream lines(text);
  lines.exceptions(std::ios_base::badbit);  // set when a line does not fit into memory
  std::string content;
  for (std::uint32_t i = 0; i < line && std::getline(lines, content);) ++i;
  if (column == 0 || column > content.size()) return 1;
  const std::size_t end = content.find_first_of(" \t\r;={}[]", column);
  return static_cast<std::uint32_t>(std::min(end, content.size()) - (column - 1));
}

// Reads a number after the words at the end of the text, and removes both.
std::optional<std::uint32_t> take_number(std::string& text, const std::string& words) {
  const std::size_t at = text.rfind(words);
  if (at == std::string::npos) return std::nullopt;
  const std::string digits = text.substr(at + words.size());
  if (digits.empty() || digits.size() > 9) return std::nullopt;
  if (digits.find_first_not_of("0123456789") != std::string::npos) return std::nullopt;
  text.erase(at);
  return static_cast<std::uint32_t>(std::stoul(digits));
}

// `<fault> in "<file>" at line N column M`.
std::optional<Diagnostic> syntax_fault(std::string report) {
  const auto column = take_number(report, " column ");
  const auto line = take_number(report, " at line ");
  const std::size_t in = report.rfind(" in \"");
  if (!column || !line || in == std::string::npos) return std::nullopt;
  const std::string path = unquoted_path(report.substr(in + 4));
  Span span{nullptr, *line, *column, 1};
  try {
    span.source = std::make_shared<SourceText>(SourceText{path, read_file(path, largest_script)});
  } catch (const std::string&) {
    return std::nullopt;
  }
  span.length = token_length(span.source->text, span.line, span.column);
  return Diagnostic{report.substr(0, in), span, ""};
}

void report(Preparation& p, const std::string& path, const SiteFailure& failure) {
  for (const std::string& line : lines_after(failure.faults, "Failing at ")) {
    if (auto fault = syntax_fault(line)) {
      p.faults.push_back(std::move(*fault));
    } else {
      add_site_fault(p, line);
    }
    return;
  }
  if (failure.message == path + "::Failed to verify") {
    for (const std::string& line : lines_after(failure.faults, "")) {
      add_site_fault(p, "it does not set " + line);
    }
    return;
  }
  const std::vector<std::string> logged = lines_after(failure.progress, "Exception:-");
  if (failure.message == "Caught log exception" && !logged.empty()) {
    return add_site_fault(p, logged.front());
  }
  std::string message = failure.message == no_message ? hidden_message(path) : failure.message;
  if (message.starts_with(path + "::")) message.erase(0, path.size() + 2);
  add_site_fault(p, message);
}

// The files that the library has opened, as they are now.
void keep_files(Preparation& p, const std::string& progress) {
  for (const std::string& path : opened_files(progress)) {
    if (find_input(p.run.inputs, path)) continue;
    try {
      p.run.inputs.push_back({path, "", read_file(path, largest_script)});
    } catch (const std::string& problem) {
      add_site_fault(p, fmt::format("{} {}", path, problem));
    }
  }
  p.site_files = p.run.inputs.size();
}

void tune(Preparation& p) {
  const Part& part = p.run.job.tune;
  if (part.parameters.members.empty()) return;
  Declared declared;
  Base::Params consts;
  if (!in_library(p, part.span, part.title, [&] {
        p.run.experiment.query(declared.params);
        p.run.experiment.get_consts(consts);
      })) {
    return;
  }
  auto params = bind_parameters(part, declared, p.faults);
  if (!params) return;
  bool good = true;
  for (const Member& member : part.parameters.members) {
    const std::string units = Base::units_text(declared.params.at(member.key).units);
    const double value = params->get(member.key, units);
    const double low = consts.get("min_" + member.key, units);
    const double high = consts.get("max_" + member.key, units);
    if (value >= low && value <= high) continue;
    const std::string range = fmt::format("{:g} and {:g} {}", low, high, units);
    p.faults.push_back({fmt::format("`{}` is not between {}", member.key,
                                    range.substr(0, range.find_last_not_of(' ') + 1)),
                        member.value.span, "a limit of the site"});
    good = false;
  }
  if (!good) return;
  // The tank may be unusable after a failure.
  p.has_site = in_library(p, part.span, part.title, [&] { p.run.experiment.set(*params); });
}

// Without a usable depth no wave has a length, and each part would fail in its own words.
void judge_depth(Preparation& p) {
  const Maths::TankConfig& tank = p.run.experiment.context().tank_config();
  const bool good = std::isfinite(tank.paddle_depth) &&
                    std::all_of(tank.profile.begin(), tank.profile.end(),
                                [](const auto& point) { return std::isfinite(point.depth); });
  if (good) return;
  add_site_fault(p, "its depth is not usable: it must be finite everywhere");
  p.has_site = false;
}

}  // namespace

void read_site(Preparation& p) {
  const Job& job = p.run.job;
  if (job.site.empty()) {
    if (p.faults.empty()) p.faults.push_back({"`site` is missing", job.site_span, ""});
    return;
  }
  const std::string path = opened_path(job, job.site);
  if (!is_readable(p, path)) return;
  SiteFailure failure;
  const Script::DivisionScope divisions;
  {
    const CapturedLines lines;
    try {
      p.run.experiment.initialise(path);
    } catch (...) {
      failure.message = message_of_current();
    }
    failure.progress = lines.progress();
    failure.faults = lines.faults();
  }
  p.run.log += failure.progress + failure.faults;
  if (divisions.divided_by_zero()) return add_site_fault(p, "it divides an integer by 0");
  if (!failure.message.empty()) return report(p, path, failure);
  keep_files(p, failure.progress);
  p.has_site = true;
  tune(p);
  if (p.has_site) judge_depth(p);
}

}  // namespace Jobs
