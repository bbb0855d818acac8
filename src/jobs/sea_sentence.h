// A sea in one phrase.
#ifndef KELPBOX_JOBS_SEA_SENTENCE_H_
#define KELPBOX_JOBS_SEA_SENTENCE_H_

#include <string>

#include "jobs/run.h"

namespace Jobs {

// "JONSWAP, hs 80 mm, tp 1.6 s, gamma 3.3; cos2s, s 10, angle 15 deg; random phases": the waves and
// the changes of a sea of the job with their values as the job gives them. Files have their names
// below inputs/, which a run of the copied job repeats. Seeds are left out, and long lists are cut.
std::string sea_sentence(const Run& run, const Sea& sea);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_SEA_SENTENCE_H_
