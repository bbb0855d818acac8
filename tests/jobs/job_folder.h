// Jobs that tests write into a folder of their own and prepare.
#ifndef KELPBOX_TESTS_JOBS_JOB_FOLDER_H_
#define KELPBOX_TESTS_JOBS_JOB_FOLDER_H_

#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "jobs/diagnostic.h"
#include "jobs/job.h"
#include "jobs/run.h"
#include "support/temp_dir.h"

namespace Testing {

inline std::string example(const std::string& name) {
  return std::string(TEST_ROOT) + "/../examples/" + name;
}

class JobFolder {
 public:
  const std::string& path() const { return folder_.path(); }
  // Makes the folders of the file.
  void write(const std::string& name, const std::string& text) const {
    std::filesystem::create_directories(std::filesystem::path(folder_.file(name)).parent_path());
    folder_.write(name, text);
  }
  std::string file(const std::string& name) const { return folder_.file(name); }

  std::unique_ptr<Jobs::Run> prepare(const std::string& job) const {
    write("job.toml", job);
    Jobs::Diagnostics faults;
    Jobs::Job read = Jobs::read_job(file("job.toml"), {}, faults);
    return Jobs::prepare(std::move(read), std::move(faults));
  }
  std::unique_ptr<Jobs::Run> build(const std::string& job) const {
    auto run = prepare(job);
    Jobs::build(*run);
    return run;
  }
  // The faults of a job that is refused, none if it is not.
  Jobs::Diagnostics faults(const std::string& job) const {
    try {
      build(job);
      return {};
    } catch (const Jobs::BadJob& bad) {
      return bad.faults;
    }
  }
  // The faults as "<line>: <fault> (<label>)", one to a line.
  std::string refusal(const std::string& job) const {
    std::string text;
    for (const Jobs::Diagnostic& fault : faults(job)) {
      text += std::to_string(fault.span.line) + ": " + fault.fault +
              (fault.label.empty() ? "" : " (" + fault.label + ")") + "\n";
    }
    return text;
  }

 private:
  TempDir folder_;
};

// A job for the flume of the examples, with the text after `repeat` of its [run].
inline std::string flume_job(const std::string& rest, const std::string& repeat = "64 s") {
  return "site = \"" + example("flume.site") + "\"\n[run]\nrepeat = \"" + repeat + "\"\n" + rest;
}
inline std::string basin_job(const std::string& rest, const std::string& repeat = "64 s") {
  return "site = \"" + example("basin.site") + "\"\n[run]\nrepeat = \"" + repeat + "\"\n" + rest;
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_JOBS_JOB_FOLDER_H_
