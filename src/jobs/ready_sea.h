// The seas that a job can name: a formula, its parameters, and where they come from.
//
// A ready sea is nothing but a text and parameters for the library. What it says can also be
// written as a component of kind "spectrum" or "single".
#ifndef KELPBOX_JOBS_READY_SEA_H_
#define KELPBOX_JOBS_READY_SEA_H_

#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/params.h"

namespace Jobs {

struct ReadyParameter {
  std::string name;
  std::string units;  // that the formula uses; empty for a plain number
  std::string meaning;
  std::optional<std::string> fallback;  // as in a job: "3.3"
  // What `complete` takes instead of a value, in words: "the site's lowest frequency". A parameter
  // with neither of the two is required.
  std::string otherwise;
  // The values that make sense, in the units above.
  double above = -std::numeric_limits<double>::infinity();  // exclusive
  double least = -std::numeric_limits<double>::infinity();
  double most = std::numeric_limits<double>::infinity();

  bool required() const { return !fallback && otherwise.empty(); }
};

// "above 0", "at least 1", "from 0.001 to 1"; empty for any number.
std::string range_of(const ReadyParameter& parameter);

// Throws std::string for a value that is not finite or out of range, naming the parameter:
// "hs::must be above 0". Parameters that are not given are not checked.
void check_values(const std::vector<ReadyParameter>& parameters, const Base::Params& given);

// What the run provides to a ready sea.
struct ReadyContext {
  double min_freq = 0.0;  // Hz, the site's limits of the waves that can be made
  double max_freq = 0.0;
  double g = 0.0;       // m/s2
  double depth = 0.0;   // m, at the paddles
  double repeat = 0.0;  // s, of the run; 0 if it is not known
};

struct ReadySea {
  enum class Makes { variance_density, amplitude_density, single_wave };

  std::string name;    // "jonswap"
  std::string title;   // "JONSWAP"
  std::string source;  // the literature
  Makes makes = Makes::variance_density;
  // For densities, the text for the library, from "f_min[Hz]@Hz#" to "#f_max[Hz]@Hz".
  std::string formula;
  std::vector<ReadyParameter> parameters;  // that a job can give
  std::vector<ReadyParameter> computed;    // that `complete` adds: name, units and meaning
  // Checks the values and adds what the formula needs besides them: limits that were not given, a
  // normalising factor, or "a" and "f" of a single wave. The set must hold every required parameter
  // and the fallbacks. Throws as check_values does, and without a name for values that make no sea
  // together.
  std::function<void(Base::Params& parameters, const ReadyContext& context)> complete;
  // The frequency in Hz near the greatest density, from a completed set.
  std::function<double(const Base::Params& parameters)> peak;
  // Whether the density is asked for between f_min and f_max only. Otherwise it is asked for at all
  // frequencies, and the limits cut it.
  bool ends_at_limits = false;
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
