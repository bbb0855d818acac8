// A run that is cancelled leaves nothing.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "outputs/folder_listing.h"
#include "outputs/made_run.h"
#include "support/temp_dir.h"

namespace Outputs {
namespace {

// Where each step first reports, in order.
std::vector<int> first_reports(Testing::MadeRun& made, const Testing::TempDir& dir,
                               std::vector<std::string>& steps) {
  std::vector<int> reports;
  int count = 0;
  OutputFolder folder(dir.file("x.out"));
  write_run(*made.run, *made.drive, made.judgement, folder,
            [&](const std::string& step, double done) {
              EXPECT_GE(done, 0.0);
              EXPECT_LE(done, 1.0);
              if (steps.empty() || steps.back() != step) {
                steps.push_back(step);
                reports.push_back(count);
              }
              ++count;
              return true;
            });
  reports.push_back(count - 1);
  return reports;
}

// The fault of a run that the library refuses, and nothing but the job is left.
Jobs::Diagnostic refusal(Testing::MadeRun& made, const Testing::TempDir& dir) {
  Jobs::Diagnostic fault;
  try {
    made.write(dir.file("x.out"));
  } catch (const Jobs::BadJob& bad) {
    fault = bad.faults.at(0);
  }
  EXPECT_EQ(Testing::listing(dir.path()).size(), 1u);
  return fault;
}

TEST(CancelledRun, LeavesNothingInAnyStep) {
  const Testing::TempDir dir;
  Testing::MadeRun made(dir.write("storm.toml", Testing::basin_job()));
  std::vector<std::string> steps;
  const std::vector<int> reports = first_reports(made, dir, steps);
  EXPECT_EQ(steps, (std::vector<std::string>{"drive_1.csv", "drive.nc", "points", "field",
                                             "field.nc", "report.html"}));
  for (const int report : reports) {
    int count = 0;
    const auto cancel = [&](const std::string&, double) {
      return count++ != report + (report % 2);
    };
    bool cancelled = false;
    try {
      OutputFolder folder(dir.file("x.out"));
      write_run(*made.run, *made.drive, made.judgement, folder, cancel);
    } catch (const Cancelled&) {
      cancelled = true;
    }
    EXPECT_EQ(cancelled, report + (report % 2) <= reports.back()) << report;
    EXPECT_EQ(made.run->experiment.animate_size(made.run->definition), 0u);
    EXPECT_EQ(Testing::listing(dir.path()).size(), 1u) << report;
  }
}

// The reader of jobs refuses places outside the tank. Other refusals come from the library itself.
TEST(RefusedRun, LeavesNothingWhenTheLibraryRefusesAPoint) {
  const Testing::TempDir dir;
  const std::string point = "[[point]]\nname = \"far\"\nx = \"9 m\"\ny = \"0 m\"\n";
  Testing::MadeRun made(dir.write("storm.toml", Testing::regular_job(point)));
  made.run->points.at(0).x = 99;
  const Jobs::Diagnostic fault = refusal(made, dir);
  EXPECT_EQ(fault.fault, "point \"far\": Value x=99 is outside dimensions of tank");
  EXPECT_EQ(fault.span.line, 12u);
}

TEST(RefusedRun, LeavesNothingWhenTheLibraryRefusesTheField) {
  const Testing::TempDir dir;
  Testing::MadeRun made(dir.write(
      "storm.toml",
      Testing::regular_job("[field]\nrate = \"5 Hz\"\n"
                           "x = { from = \"0 m\", to = \"9 m\", step = \"1 m\" }\n"
                           "y = { from = \"0 m\", to = \"0.8 m\", step = \"0.8 m\" }\n")));
  made.run->field->x_max = 99;
  const Jobs::Diagnostic fault = refusal(made, dir);
  EXPECT_EQ(fault.fault, "field: Value x=26 is outside dimensions of tank");
  EXPECT_EQ(fault.span.line, 12u);
}

}  // namespace
}  // namespace Outputs
