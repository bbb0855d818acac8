// Every allocation of a wave job fails, from reading it to its signals, points and field: the step
// fails, and succeeds when it is repeated. The summary and the page are left out: the JSON library
// crashes without memory. tests/cli/memory_limit_test.cpp has the whole command.
#include <dlfcn.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "jobs/drive_signals.h"
#include "jobs/job.h"
#include "jobs/judgement.h"
#include "jobs/run.h"
#include "outputs/drive_csv.h"
#include "outputs/drive_netcdf.h"
#include "outputs/field_netcdf.h"
#include "outputs/fronts_csv.h"
#include "outputs/made_run.h"
#include "outputs/point_outputs.h"
#include "outputs/summary.h"
#include "outputs/write_run.h"
#include "support/every_failure.h"
#include "support/temp_dir.h"

#define TOML_HEADER_ONLY 0
#include <toml++/toml.h>

// The reader of TOML ends the process when it has no memory, so it always has some. The command
// reports that the process of the job ended.
toml::parse_result toml::parse(std::string_view document, std::string_view path) {
  using Parse = toml::parse_result (*)(std::string_view, std::string_view);
  static const auto parse = reinterpret_cast<Parse>(
      dlsym(RTLD_NEXT, "_ZN4toml2v32ex5parseESt17basic_string_viewIcSt11char_traitsIcEES5_"));
  const Testing::Unlimited reading;
  return parse(document, path);
}

namespace Outputs {
namespace {

using Testing::every_failure;
using Testing::Failures;

const std::string small_job =
    "title = \"A small job with a title that needs memory\"\nsite = \"" + Testing::examples +
    "flume.site\"\n"
    "[run]\nrepeat = \"8 s\"\n"
    "[[sea]]\nname = \"short\"\nholds = { x = \"5 m\", y = \"0.4 m\", t = \"4 s\" }\n"
    "[[sea.wave]]\nkind = \"jonswap\"\nhs = \"80 mm\"\ntp = \"1.6 s\"\n"
    "[[sea.change]]\nkind = \"random_phases\"\nseed = 7\n"
    "[drive]\nrate = \"10 Hz\"\nramp = \"1 s\"\n"
    "[[point]]\nname = \"model\"\nx = \"5 m\"\ny = \"0.4 m\"\n"
    "[field]\nrate = \"2 Hz\"\n"
    "x = { from = \"0 m\", to = \"4 m\", step = \"2 m\" }\n"
    "y = { from = \"0 m\", to = \"0.8 m\", step = \"0.4 m\" }\n";

std::string contents_of(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

// A job, step by step. Each step needs those before it.
struct JobSteps {
  void read(const std::string& path) {
    faults.clear();
    job = Jobs::read_job(path, {"drive.rate=12 Hz"}, faults);
  }
  void prepare() {
    run.reset();
    run = Jobs::prepare(job, faults);
  }
  void build() { Jobs::build(*run); }
  void build_drive() { drive = std::make_unique<Jobs::DriveSignals>(*run); }
  void judge() { judgement = Jobs::judge(*run, drive.get()); }
  // The summary of the steps that are done.
  std::string summary() { return summary_json(*run, drive.get(), judgement); }

  Jobs::Diagnostics faults;
  Jobs::Job job;
  std::unique_ptr<Jobs::Run> run;
  std::unique_ptr<Jobs::DriveSignals> drive;
  Jobs::Judgement judgement;
};

class JobMemory : public testing::Test {
 protected:
  auto after(std::function<void(JobSteps&)> steps) {
    return [this, steps] {
      auto made = std::make_unique<JobSteps>();
      made->read(path);
      steps(*made);
      return made;
    };
  }
  auto after_drive() {
    return after([](JobSteps& steps) {
      steps.prepare();
      steps.build();
      steps.build_drive();
    });
  }
  // Writes a part of the results again and again. The folder is made before, as the command does in
  // another process.
  template <typename Write>
  Failures failures_of(Write write, long repeated = 1) {
    const auto steps = after_drive()();
    steps->judge();
    OutputFolder results(folder.file("results"));
    return every_failure(
        [&] { return &results; }, [&](OutputFolder& out) { write(*steps, out); },
        [&](OutputFolder& out) {
          return contents(std::filesystem::path(out.path_of("a.txt")).parent_path());
        },
        repeated);
  }
  static std::map<std::string, std::string> contents(const std::string& target) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(target)) {
      if (!entry.is_regular_file()) continue;
      files[entry.path().string()] = contents_of(entry.path().string());
    }
    return files;
  }
  static void expect_exhausted(const Failures& failures) {
    expect_failures(failures);
    EXPECT_EQ(failures.abandoned, 0);
  }
  static void expect_failures(const Failures& failures) {
    RecordProperty("allocations", static_cast<int>(failures.allocations));
    EXPECT_GT(failures.allocations, failures.survived);
  }

  const Testing::TempDir folder;
  const std::string path = folder.write("small.toml", small_job);
};

TEST_F(JobMemory, AJobIsRead) {
  expect_exhausted(every_failure([] { return std::make_unique<JobSteps>(); },
                                 [&](JobSteps& steps) { steps.read(path); },
                                 [](JobSteps& steps) {
                                   steps.prepare();
                                   return steps.run->job.title + steps.run->log;
                                 }));
}

TEST_F(JobMemory, AJobIsPrepared) {
  expect_exhausted(every_failure(
      after([](JobSteps&) {}), [](JobSteps& steps) { steps.prepare(); },
      [](JobSteps& steps) { return steps.run->log + steps.run->inputs.back().text; }));
}

TEST_F(JobMemory, WavesAreBuilt) {
  expect_exhausted(every_failure(
      after([](JobSteps& steps) { steps.prepare(); }), [](JobSteps& steps) { steps.build(); },
      [](JobSteps& steps) { return steps.summary(); }));
}

TEST_F(JobMemory, DriveSignalsAreBuilt) {
  expect_exhausted(every_failure(
      after([](JobSteps& steps) {
        steps.prepare();
        steps.build();
      }),
      [](JobSteps& steps) { steps.build_drive(); },
      [](JobSteps& steps) {
        std::vector<double> signal;
        steps.drive->read(0, 0, signal);
        return signal;
      }));
}

TEST_F(JobMemory, ARunIsJudged) {
  const auto steps = after_drive()();
  expect_exhausted(every_failure([&] { return steps.get(); }, [](JobSteps& it) { it.judge(); },
                                 [](JobSteps& it) {
                                   std::string findings;
                                   for (const Jobs::Finding& finding : it.judgement.findings) {
                                     findings +=
                                         finding.asked_text + finding.made_text + finding.remark;
                                   }
                                   return findings;
                                 },
                                 16));
}

TEST_F(JobMemory, FrontsAndDriveAreWrittenAsText) {
  expect_exhausted(failures_of([](JobSteps& steps, OutputFolder& results) {
    write_fronts_csv(*steps.run, results);
    write_drive_csv(*steps.run, *steps.drive, 0, results, nullptr);
  }));
}

// HDF5 keeps blocks for later, so those that are left cannot be counted.
TEST_F(JobMemory, DriveSignalsAreWrittenAsNetcdf) {
  expect_failures(failures_of([](JobSteps& steps, OutputFolder& results) {
    write_drive_netcdf(*steps.run, *steps.drive, results, nullptr);
  }));
}

TEST_F(JobMemory, PointsAreWritten) {
  expect_failures(failures_of(
      [](JobSteps& steps, OutputFolder& results) { write_points(*steps.run, results, nullptr); }));
}

TEST_F(JobMemory, TheFieldIsWritten) {
  expect_failures(failures_of(
      [](JobSteps& steps, OutputFolder& results) { write_field(*steps.run, results, nullptr); },
      16));
}

}  // namespace
}  // namespace Outputs
