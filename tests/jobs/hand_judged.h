// Runs that tests fill by hand, to judge them part by part.
#ifndef KELPBOX_TESTS_JOBS_HAND_JUDGED_H_
#define KELPBOX_TESTS_JOBS_HAND_JUDGED_H_

#include <gtest/gtest.h>

#include <string>

#include "jobs/judge_parts.h"

namespace Testing {

struct HandJudged {
  Jobs::Run run;
  Jobs::JudgedRun judged{run, nullptr};
  Jobs::Findings findings;

  explicit HandJudged(Jobs::SeaKind kind) { judged.asked.kind = kind; }

  bool has(const std::string& key) const { return find(key) != nullptr; }
  // Fails and returns an empty finding if there is none of that key.
  const Jobs::Finding& at(const std::string& key) const {
    static const Jobs::Finding none;
    const Jobs::Finding* finding = find(key);
    EXPECT_NE(finding, nullptr) << "no finding " << key;
    return finding == nullptr ? none : *finding;
  }
  bool good(const std::string& key) const { return at(key).verdict == Jobs::Verdict::good; }
  bool look(const std::string& key) const { return at(key).verdict == Jobs::Verdict::look; }

 private:
  const Jobs::Finding* find(const std::string& key) const {
    for (const Jobs::Finding& finding : findings) {
      if (finding.key == key) return &finding;
    }
    return nullptr;
  }
};

}  // namespace Testing

#endif  // KELPBOX_TESTS_JOBS_HAND_JUDGED_H_
