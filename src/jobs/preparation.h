// What the steps of `prepare` share.
#ifndef KELPBOX_JOBS_PREPARATION_H_
#define KELPBOX_JOBS_PREPARATION_H_

#include <fmt/format.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "base/params.h"
#include "jobs/diagnostic.h"
#include "jobs/run.h"

namespace Jobs {

struct Preparation {
  Run& run;
  Diagnostics& faults;
  bool has_site = false;       // the site was read: the experiment can be used
  bool has_grid = false;       // the definition is set: the run's harmonics are known
  std::size_t site_files = 0;  // at the beginning of run.inputs
};

// The span of a part's value, or of the part if it does not have the key.
Span span_of(const Part& part, const std::string& key);

// Calls an operation of the library with its lines captured into the run's log. A failure becomes a
// fault at the place, with the label. Returns whether it succeeded.
bool in_library(Preparation& p, const Span& place, const std::string& title,
                const std::function<void()>& operation, const std::string& label = "");

// After the carets of a formula that the library refuses.
inline constexpr const char* formula_label =
    "see `kelpbox formulas`; numbers have no exponent form";

// Calls `set` with the parameters, as in_library. The comments that it adds and the values of the
// job that it changes go to the run's remarks, under the title.
bool set_with_remarks(Preparation& p, const Part& part, const std::string& title,
                      Base::Params& params, const std::function<void(Base::Params&)>& set);

// Whether a position along the tank lies in it. Adds a fault at the key if it does not. True
// without a site.
bool lies_in_tank(Preparation& p, const Part& part, const std::string& key, double x);

// Adds the fault of a ready sea or change: "hs::must be above 0" is about the value of `hs`.
void add_refusal(Preparation& p, const Part& part, const std::string& message);

// "a `jonswap` wave of storm", for remarks and messages outside the job's text.
std::string title_in_sea(const Part& part, const std::string& sea);

// Adds the fault of a file that cannot be read: "the site `x.site` does not exist".
void add_unreadable(Preparation& p, const std::string& what, const std::string& given,
                    const std::string& problem, const Span& place);

// Reads a file that a part names with the key `file`, once, into the run's inputs. Adds a fault and
// returns nothing if it is missing or cannot be read.
std::optional<std::size_t> read_part_file(Preparation& p, const Part& part);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_PREPARATION_H_
