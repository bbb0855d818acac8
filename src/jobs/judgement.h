// What was asked for, beside what the run will make.
#ifndef KELPBOX_JOBS_JUDGEMENT_H_
#define KELPBOX_JOBS_JUDGEMENT_H_

#include <optional>
#include <string>
#include <vector>

#include "jobs/drive_signals.h"
#include "jobs/run.h"
#include "jobs/sea_directions.h"
#include "jobs/sea_spectrum.h"

namespace Jobs {

enum class Verdict { good, look, none };

// One line. Numbers are in the given units ("m", "s", "Hz", "rad", "m2", "%" or "1"); texts are
// rounded to the digits that they deserve, with units that suit their size.
struct Finding {
  std::string group;     // "sea", "lost", "machine", "waves"
  std::string key;       // for machines, never changed: "hs", "stroke_peak.main"
  std::string quantity;  // "Hs"
  std::string units;
  std::optional<double> asked;
  std::optional<double> made;
  std::string asked_text;  // "80.0 mm"; empty where nothing was asked
  std::string made_text;
  std::string criterion;  // "within 2 %"; empty without one
  Verdict verdict = Verdict::none;
  std::string remark;  // what happened, and for a `look` what would mend it
  bool minor = false;  // shown with --verbose only
};

struct Judgement {
  std::vector<Finding> findings;
  int judged = 0;  // findings with a verdict
  int looks = 0;   // of them, those that need a look
  // For charts.
  std::optional<SeaSpectrum> spectrum;
  std::optional<SeaDirections> directions;
};

// Builds the wave at the reference point: the first sea's position. `drive` may be null when no
// drive signals were made. Throws BadJob when the library refuses.
Judgement judge(Run& run, const DriveSignals* drive);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_JUDGEMENT_H_
