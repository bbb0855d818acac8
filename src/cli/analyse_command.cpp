#include <fmt/format.h>

#include <exception>
#include <string>
#include <utility>
#include <vector>

#include "cli/analysis_text.h"
#include "cli/commands.h"
#include "cli/error_line.h"
#include "cli/failure_report.h"
#include "cli/probe_records.h"
#include "cli/record_analysis.h"
#include "cli/tool_json.h"
#include "jobs/quantity_text.h"
#include "jobs/read_site.h"

namespace Cli {
namespace {

void open_site(const std::string& path, Jobs::Run& run) {
  run.job.site = path;
  Jobs::Diagnostics faults;
  Jobs::Preparation preparation{run, faults};
  Jobs::read_site(preparation);
  if (!faults.empty()) throw Jobs::BadJob{std::move(faults)};
}

double angle_of(const std::string& text) {
  try {
    const Jobs::QuantityText angle = Jobs::read_quantity(text);
    if (Base::category_of(angle.units) == Base::Category::unit) {
      throw fmt::format("needs units, such as \"{:.10g} deg\"", angle.value);
    }
    return angle.value * Base::factor_to_base(angle.units, Base::Category::angle);
  } catch (const std::string& fault) {
    throw "--angle \"" + text + "\": " + fault;
  }
}

void show(const std::vector<RecordAnalysis>& analyses, bool one_file, Console& console) {
  if (console.json) {
    console.out << json_of(analyses);
    return;
  }
  if (one_file) {
    for (const RecordAnalysis& analysis : analyses) console.out << analysis_text(analysis);
  } else if (!analyses.empty()) {
    console.out << analysis_table(analyses);
  }
  for (const RecordAnalysis& analysis : analyses) {
    for (const std::string& note : analysis.notes) {
      note_line(console, one_file ? note : analysis.records.file + ": " + note);
    }
  }
}

}  // namespace

int analyse(const AnalyseOptions& options, Console& console) {
  try {
    const double angle = angle_of(options.angle);
    Jobs::Run run;
    open_site(options.site, run);
    std::vector<RecordAnalysis> analyses;
    int code = Exit::good;
    for (const std::string& file : options.records) {
      try {
        analyses.push_back(
            analyse_records(read_probe_records(file, options), angle, run.experiment));
      } catch (const std::string& fault) {
        // With --json there is one document: the results, or the first fault.
        if (console.json) throw;
        error_line(console, fault);
        code = Exit::bad_input;
      }
      if (!analyses.empty() && !analyses.back().crossings && !analyses.back().trains) {
        code = Exit::bad_input;
      }
    }
    show(analyses, options.records.size() == 1, console);
    return code;
  } catch (const std::string& fault) {
    error_line(console, fault);
    return Exit::bad_input;
  } catch (...) {
    return report_current(options.site, console);
  }
}

}  // namespace Cli
