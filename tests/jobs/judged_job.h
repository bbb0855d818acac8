// Jobs that tests judge as the command does.
#ifndef KELPBOX_TESTS_JOBS_JUDGED_JOB_H_
#define KELPBOX_TESTS_JOBS_JUDGED_JOB_H_

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "jobs/job_folder.h"
#include "jobs/judgement.h"
#include "support/test_site.h"

namespace Testing {

class JudgedJob {
 public:
  explicit JudgedJob(const std::string& job, bool with_signals = true)
      : JudgedJob(JobFolder(), job, with_signals) {}
  // The job may name files in the folder.
  JudgedJob(const JobFolder& folder, const std::string& job, bool with_signals = true)
      : run_(folder.build(job)) {
    if (with_signals) drive_ = std::make_unique<Jobs::DriveSignals>(*run_);
    judgement = Jobs::judge(*run_, drive_.get());
  }

  bool has(const std::string& key) const { return find(key) != nullptr; }
  // Fails and returns an empty finding if there is none of that key.
  const Jobs::Finding& at(const std::string& key) const {
    static const Jobs::Finding none;
    const Jobs::Finding* finding = find(key);
    EXPECT_NE(finding, nullptr) << "no finding " << key;
    return finding == nullptr ? none : *finding;
  }
  double asked(const std::string& key) const { return at(key).asked.value_or(-1e9); }
  double made(const std::string& key) const { return at(key).made.value_or(-1e9); }
  bool good(const std::string& key) const { return at(key).verdict == Jobs::Verdict::good; }
  bool look(const std::string& key) const { return at(key).verdict == Jobs::Verdict::look; }

  Jobs::Judgement judgement;

 private:
  const Jobs::Finding* find(const std::string& key) const {
    for (const Jobs::Finding& finding : judgement.findings) {
      if (finding.key == key) return &finding;
    }
    return nullptr;
  }

  std::unique_ptr<Jobs::Run> run_;
  std::unique_ptr<Jobs::DriveSignals> drive_;
};

// A job for a site of its own, which is written beside it as own.site.
inline std::string own_job(const std::string& rest, const std::string& repeat = "64 s") {
  return "site = \"own.site\"\n[run]\nrepeat = \"" + repeat + "\"\n" + rest;
}
inline JudgedJob judged(const SiteText& site, const std::string& rest,
                        const std::string& repeat = "64 s") {
  const JobFolder folder;
  folder.write("own.site", script(site));
  return JudgedJob(folder, own_job(rest, repeat));
}

// Parts of jobs.
inline std::string single(const std::string& f, const std::string& a,
                          const std::string& angle = "0 deg") {
  return "[[sea.wave]]\nkind = \"single\"\nf = \"" + f + "\"\na = \"" + a + "\"\nangle = \"" +
         angle + "\"\n";
}
inline std::string bretschneider(const std::string& hs, const std::string& tp) {
  return "[[sea.wave]]\nkind = \"bretschneider\"\nhs = \"" + hs + "\"\ntp = \"" + tp + "\"\n";
}
inline std::string random_phases(int seed) {
  return "[[sea.change]]\nkind = \"random_phases\"\nseed = " + std::to_string(seed) + "\n";
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_JOBS_JUDGED_JOB_H_
