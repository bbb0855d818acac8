// Faults of a job, collected so that the user sees all of them at once.
#ifndef KELPBOX_JOBS_DIAGNOSTIC_H_
#define KELPBOX_JOBS_DIAGNOSTIC_H_

#include <string>
#include <vector>

#include "jobs/source_text.h"

namespace Jobs {

struct Diagnostic {
  std::string fault;  // "unknown key `gama` in a `jonswap` wave"
  Span span;
  std::string label;  // after the carets: "did you mean `gamma`?"; may be empty
};

using Diagnostics = std::vector<Diagnostic>;

// Thrown when a job, or the site that it names, cannot be used.
struct BadJob {
  Diagnostics faults;  // at least one
};

// One fault, to be thrown.
BadJob bad_job(std::string fault, Span span = {}, std::string label = "");

// In the order of their places in the text. Faults without a place come first.
void sort_by_place(Diagnostics& faults);

enum class Colour { off, on };

// One fault with its line and carets:
//
//   error: unknown key `gama` in a `jonswap` wave
//     --> storm.toml:17:7
//      |
//   17 |       gama  = 3.3
//      |       ^^^^ did you mean `gamma`?
//
// Control characters of the text are not passed on. A tab counts as one blank, and a character of
// several bytes as one column of the carets.
std::string show(const Diagnostic& fault, Colour colour = Colour::off);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_DIAGNOSTIC_H_
