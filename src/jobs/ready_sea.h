// The seas that a job can name: a formula, its parameters, and where they come from.
//
// A ready sea is nothing but a text and parameters for the library. What it says can also be
// written as a component of kind "spectrum" or "single".
#ifndef KELPBOX_JOBS_READY_SEA_H_
#define KELPBOX_JOBS_READY_SEA_H_

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/params.h"

namespace Jobs {

struct ReadyParameter {
  std::string name;
  std::string units;  // that the formula uses; empty for a plain number
  std::string meaning;
  std::optional<std::string> fallback;  // as in a job: "3.3"; required without one
};

// What the run provides to a ready sea.
struct ReadyContext {
  double min_freq = 0.0;  // Hz, the site's limits of the waves that can be made
  double max_freq = 0.0;
  double g = 0.0;      // m/s2
  double depth = 0.0;  // m, at the paddles
};

struct ReadySea {
  enum class Makes { variance_density, amplitude_density, single_wave };

  std::string name;    // "jonswap"
  std::string title;   // "JONSWAP"
  std::string source;  // the literature
  Makes makes = Makes::variance_density;
  // For densities, the text for the library, from "f_min[Hz]@Hz#" to "#f_max[Hz]@Hz".
  std::string formula;
  std::vector<ReadyParameter> parameters;
  // Adds what the formula needs besides the parameters: a normalising factor, or "a" and "f" of a
  // single wave. May replace the fallbacks of "f_min" and "f_max". May throw std::string for values
  // that make no sea, naming the parameter: "hs::must be above 0".
  std::function<void(Base::Params& parameters, const ReadyContext& context)> complete;
};

const std::vector<ReadySea>& ready_seas();
// Null for an unknown name.
const ReadySea* find_ready_sea(const std::string& name);

// A change that a job can name: a modifier of the library with some of its parameters given.
struct ReadyChange {
  std::string name;  // "cos2s"
  std::string title;
  std::string source;
  std::string modifier;                                    // "AngleSpread"
  std::string formula;                                     // "s"
  std::vector<ReadyParameter> parameters;                  // of the formula
  std::vector<std::pair<std::string, std::string>> fixed;  // function = Cos2S
};

const std::vector<ReadyChange>& ready_changes();
const ReadyChange* find_ready_change(const std::string& name);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_READY_SEA_H_
