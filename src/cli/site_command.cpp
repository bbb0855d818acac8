#include <memory>

#include "cli/commands.h"
#include "cli/failure_report.h"
#include "cli/options.h"
#include "cli/site_report.h"
#include "jobs/captured_lines.h"
#include "jobs/read_site.h"

namespace Cli {

namespace {

// The part of a job that tunes its site, from "drive_gain=1.1".
Jobs::Part tune_part(const std::vector<std::string>& settings) {
  Jobs::Part part;
  part.title = "--set";
  for (const std::string& setting : settings) {
    const std::size_t equals = setting.find('=');
    if (equals == 0 || equals == std::string::npos) {
      throw BadUsage{"`--set` needs NAME=VALUE, not `" + setting + "`", find_command("site")};
    }
    const auto source =
        std::make_shared<const Jobs::SourceText>(Jobs::SourceText{"--set", setting});
    const auto span = [&](std::size_t from, std::size_t length) {
      return Jobs::Span{source, 1, static_cast<std::uint32_t>(from + 1),
                        static_cast<std::uint32_t>(length)};
    };
    Jobs::Member member;
    member.key = setting.substr(0, equals);
    member.key_span = span(0, equals);
    member.value.kind = Jobs::Value::Kind::text;
    member.value.text = setting.substr(equals + 1);
    member.value.span = span(equals + 1, member.value.text.size());
    part.parameters.members.push_back(std::move(member));
  }
  return part;
}

}  // namespace

int site(const SiteOptions& options, Console& console) {
  try {
    Jobs::Run run;
    run.job.site = options.site;
    run.job.tune = tune_part(options.set);
    Jobs::Diagnostics faults;
    Jobs::Preparation preparation{run, faults};
    Jobs::read_site(preparation);
    if (!faults.empty()) throw Jobs::BadJob{faults};
    const SiteReport report = site_report(run.experiment);
    console.out << (console.json ? site_json(report) : site_text(report));
    return Exit::good;
  } catch (...) {
    return report_current(options.site, console);
  }
}

}  // namespace Cli
