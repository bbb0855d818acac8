// Jobs that tests write, run and keep.
#ifndef KELPBOX_TESTS_OUTPUTS_MADE_RUN_H_
#define KELPBOX_TESTS_OUTPUTS_MADE_RUN_H_

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "jobs/drive_signals.h"
#include "jobs/job.h"
#include "jobs/judgement.h"
#include "jobs/run.h"
#include "outputs/write_run.h"

namespace Testing {

inline const std::string examples = TEST_ROOT "/../examples/";

// A job that is built and judged, but not written.
struct MadeRun {
  explicit MadeRun(const std::string& path, const std::vector<std::string>& options = {}) {
    try {
      make(path, options);
    } catch (const Jobs::BadJob& bad) {
      throw std::runtime_error(Jobs::show(bad.faults.at(0)));
    }
  }

  void make(const std::string& path, const std::vector<std::string>& options) {
    Jobs::Diagnostics faults;
    Jobs::Job job = Jobs::read_job(path, options, faults);
    run = Jobs::prepare(std::move(job), std::move(faults));
    Jobs::build(*run);
    drive = std::make_unique<Jobs::DriveSignals>(*run);
    judgement = Jobs::judge(*run, drive.get());
  }

  // Writes everything to the folder and returns the summary.
  std::string write(const std::string& target) {
    Outputs::OutputFolder folder(target);
    const std::string summary = Outputs::write_run(*run, *drive, judgement, folder, nullptr);
    folder.commit();
    return summary;
  }

  std::unique_ptr<Jobs::Run> run;
  std::unique_ptr<Jobs::DriveSignals> drive;
  Jobs::Judgement judgement;
};

// One wave in the flume, crest at the paddle line at t = 0.
inline std::string regular_job(const std::string& rest = "") {
  return "title = \"Regular wave\"\nsite = \"" + examples +
         "flume.site\"\n"
         "[run]\nrepeat = \"60 s\"\n"
         "[[sea]]\n[[sea.wave]]\nkind = \"single\"\n"
         "f = \"0.8 Hz\"\na = \"25 mm\"\nangle = \"0 deg\"\nphase = \"0 deg\"\n" +
         rest;
}

// A short-crested sea in the wide basin, with points and a small field.
inline std::string basin_job(const std::string& rest = "") {
  return "site = \"" + examples +
         "basin.site\"\n"
         "[run]\nrepeat = \"32 s\"\n"
         "[[sea]]\nname = \"storm\"\nholds = { x = \"12 m\", y = \"9 m\", t = \"16 s\" }\n"
         "[[sea.wave]]\nkind = \"jonswap\"\nhs = \"80 mm\"\ntp = \"1.6 s\"\n"
         "[[sea.change]]\nkind = \"cos2s\"\ns = 10\nangle = \"15 deg\"\nseed = 7\n"
         "[[sea.change]]\nkind = \"random_phases\"\nseed = 7\n"
         "[drive]\nrate = \"20 Hz\"\nramp = \"2 s\"\n"
         "[[point]]\nname = \"model\"\nx = \"12 m\"\ny = \"9 m\"\n"
         "[[point]]\nname = \"side\"\nx = \"8 m\"\ny = \"3 m\"\n"
         "[field]\nrate = \"5 Hz\"\n"
         "x = { from = \"0 m\", to = \"30 m\", step = \"0.6 m\" }\n"
         "y = { from = \"1 m\", to = \"20 m\", step = \"0.5 m\" }\n" +
         rest;
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_OUTPUTS_MADE_RUN_H_
