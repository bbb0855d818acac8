// Job files with options: every refusal says what is wrong and where in the text, and the copy of
// an accepted job asks for the same.
//
// Sections: the job, "%% --set" with an option on each line, "%% record.csv" with a record that the
// job may read.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "fuzz/job_faults.h"
#include "fuzz/job_size.h"
#include "fuzz/property.h"
#include "fuzz/sections.h"
#include "jobs/drive_signals.h"
#include "jobs/judgement.h"
#include "jobs/run.h"
#include "outputs/job_copy.h"
#include "support/temp_dir.h"
#include "support/test_site.h"

namespace {

namespace fs = std::filesystem;
using Options = std::vector<std::string>;
using RunPointer = std::unique_ptr<Jobs::Run>;

const Testing::TempDir& folder() {
  static const Testing::TempDir made;
  static const bool filled = [] {
    Testing::SiteText site;
    site.banks[0].paddles = {{0.0, 0.0, 0.0}, {0.0, 0.5, 0.0}};
    made.write("flume.site", Testing::script(site));
    return true;
  }();
  static_cast<void>(filled);
  return made;
}

// Null for a job that is refused, and for one that would only take long.
RunPointer prepared(const std::string& path, const Options& options) {
  Jobs::Diagnostics faults;
  RunPointer run;
  Fuzz::refused_job([&] {
    Jobs::Job job = Jobs::read_job(path, options, faults);
    if (!Fuzz::is_short(job)) {
      Fuzz::require_places(faults);
      return;
    }
    run = Jobs::prepare(std::move(job), std::move(faults));
  });
  return run;
}

// Writes the job as its results keep it, with everything that it reads.
std::string write_copy(const Jobs::Run& run, const std::string& name) {
  const fs::path copy = fs::path(folder().path()) / name;
  fs::create_directories(copy);
  for (const Jobs::InputFile& input : run.inputs) {
    const fs::path place = copy / "inputs" / input.name;
    fs::create_directories(place.parent_path());
    folder().write(place.lexically_relative(folder().path()).string(), input.text);
  }
  return folder().write(name + "/job.toml", Outputs::job_copy(run));
}

void require_same_fronts(Jobs::Run& run, Jobs::Run& copy) {
  const auto& fronts = run.experiment.fronts(run.definition, false);
  const auto& copied = copy.experiment.fronts(copy.definition, false);
  Fuzz::require(fronts.size() == copied.size(), "the copy of a job makes as many fronts");
  for (std::size_t i = 0; i < fronts.size(); ++i) {
    Fuzz::require(Fuzz::same_bits(fronts[i].freq, copied[i].freq) &&
                      Fuzz::same_bits(fronts[i].amp, copied[i].amp) &&
                      Fuzz::same_bits(fronts[i].angle, copied[i].angle) &&
                      Fuzz::same_bits(fronts[i].phase, copied[i].phase),
                  "the copy of a job makes the same fronts");
  }
}

void require_same(const Jobs::Run& run, const Jobs::Run& copy) {
  Fuzz::require(run.job.title == copy.job.title || run.job.title == "job",
                "the copy of a job has its title");
  Fuzz::require(run.remarks == copy.remarks, "the copy of a job has the same remarks");
  Fuzz::require(run.log == copy.log, "the copy of a job has the same log");
  Fuzz::require(run.inputs.size() == copy.inputs.size(), "the copy of a job reads as many files");
  Fuzz::require(run.seas.size() == copy.seas.size() && run.points.size() == copy.points.size(),
                "the copy of a job has as many seas and points");
  Fuzz::require(Fuzz::same_bits(run.drive.rate, copy.drive.rate) &&
                    Fuzz::same_bits(run.drive.ramp, copy.drive.ramp) &&
                    run.drive.stop_at_limit == copy.drive.stop_at_limit,
                "the copy of a job asks for the same signals");
  for (std::size_t i = 0; i < run.points.size(); ++i) {
    Fuzz::require(run.points[i].name == copy.points[i].name &&
                      Fuzz::same_bits(run.points[i].x, copy.points[i].x) &&
                      Fuzz::same_bits(run.points[i].rate, copy.points[i].rate),
                  "the copy of a job has the same points");
  }
  Fuzz::require((run.field == nullptr) == (copy.field == nullptr),
                "the copy of a job has its field");
}

// Builds and judges. Returns whether there are fronts.
bool built(Jobs::Run& run) {
  if (Fuzz::refused_job([&] { Jobs::build(run); })) return false;
  if (!Fuzz::is_small(run)) return true;
  Fuzz::refused_job([&] {
    const Jobs::DriveSignals drive(run);
    std::vector<double> signal;
    for (std::uint32_t paddle = 0; paddle < drive.banks()[0].paddles; ++paddle) {
      drive.read(0, paddle, signal);
      const bool finite = std::all_of(signal.begin(), signal.end(),
                                      [](double value) { return std::isfinite(value); });
      Fuzz::require(finite, "every drive signal is finite");
    }
    const Jobs::Judgement judgement = Jobs::judge(run, &drive);
    for (const Jobs::Finding& finding : judgement.findings) {
      Fuzz::require(!finding.quantity.empty() && !finding.made_text.empty(),
                    "a finding says what was made");
    }
  });
  return true;
}

void check(const std::string& path, const Options& options) {
  const RunPointer run = prepared(path, options);
  if (run == nullptr) return;
  const RunPointer copy = prepared(write_copy(*run, "copy"), {});
  Fuzz::require(copy != nullptr, "the copy of an accepted job is accepted");
  require_same(*run, *copy);
  Fuzz::require(Outputs::job_copy(*run) == Outputs::job_copy(*copy), "the copy of the copy is it");
  if (!Fuzz::is_small(*run)) return;
  const bool has_fronts = built(*run);
  Fuzz::require(has_fronts == built(*copy), "the copy of a job is built like the job");
  if (has_fronts) require_same_fronts(*run, *copy);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input(reinterpret_cast<const char*>(data), size);
  Options options;
  std::string record = "t,eta [mm]\n0,1\n1,-1\n2,2\n3,0\n";
  const std::vector<Fuzz::Section> sections = Fuzz::sections(input);
  for (std::size_t i = 1; i < sections.size(); ++i) {
    if (sections[i].name == "--set") options = Fuzz::lines(sections[i].text);
    if (sections[i].name == "record.csv") record = sections[i].text;
  }
  fs::remove_all(folder().file("copy"));
  folder().write("record.csv", record);
  check(folder().write("job.toml", sections[0].text), options);
  return 0;
}
