// The groups of findings that make up a judgement.
#ifndef KELPBOX_JOBS_JUDGE_PARTS_H_
#define KELPBOX_JOBS_JUDGE_PARTS_H_

#include <string>
#include <vector>

#include "jobs/judged_run.h"
#include "jobs/judgement.h"

namespace Jobs {

using Findings = std::vector<Finding>;

// Adds an empty finding.
Finding& add_finding(Findings& findings, const std::string& group, const std::string& key,
                     const std::string& quantity, const std::string& units);

// What was lost between the request and the paddles.
struct Loss {
  std::string key;
  std::string quantity;  // "above 1.40 Hz"
  std::string where;     // completes "0.6 % of the variance ...": "lies above 1.40 Hz"
  std::string mend;
  double m0 = 0.0;     // m2
  double share = 0.0;  // of all that is asked for
};
// Those above a trace, and fronts that are not finite, in the order of the way.
std::vector<Loss> losses_of(const JudgedRun& judged);

// Heights and periods of the waves, mean direction and spread, and the crest of a focused group.
void judge_heights(const JudgedRun& judged, const std::vector<Loss>& losses, Findings& findings);
void judge_periods(const JudgedRun& judged, Findings& findings);
void judge_directions(const JudgedRun& judged, Findings& findings);
void judge_crests(const JudgedRun& judged, Findings& findings);
void judge_lost(const JudgedRun& judged, const std::vector<Loss>& losses, Findings& findings);
// Reads every signal once.
void judge_machine(const JudgedRun& judged, Findings& findings);
// Whether the run is long and fine enough, and whether linear theory holds.
void judge_statistics(const JudgedRun& judged, Findings& findings);
void judge_steepness(const JudgedRun& judged, Findings& findings);
// Known limits of the theory as built, and of the paddles.
void judge_theory(const JudgedRun& judged, Findings& findings);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_JUDGE_PARTS_H_
