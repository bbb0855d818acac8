// Which runs and measurements must be finite: those made of tame numbers and formulas.
#ifndef KELPBOX_FUZZ_NATIVE_TAME_H_
#define KELPBOX_FUZZ_NATIVE_TAME_H_

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "base/params.h"
#include "maths/front.h"

namespace Fuzz {

// 0, or finite and so far from the ends of the range that the square of a product of two such
// numbers has neither an overflow nor an underflow.
bool is_tame(double number);
bool is_tame(const std::vector<double>& numbers);
bool is_tame(const std::vector<Synthesis::Front>& fronts);
// The numbers among the values.
bool is_tame(const Base::Params& params);
// Known to give neither NaN nor a negative variance density, whatever the frequency, time or angle.
bool is_tame_formula(const std::string& text);

// The items of an experiment, as far as they matter here.
class Items {
 public:
  // `tame` says whether the formula or the record that it is made of is.
  void add(std::uint32_t id, std::uint32_t parent, bool tame);
  void set(std::uint32_t id, bool tame);
  void remove(std::uint32_t id) { parents_.erase(id); }
  // Whether the definition, and everything that was added under it, is tame.
  bool are_tame(std::uint32_t definition) const;

 private:
  bool belongs(std::uint32_t id, std::uint32_t definition) const;

  std::map<std::uint32_t, std::uint32_t> parents_;  // without definitions
  std::set<std::uint32_t> wild_;
  std::set<std::uint32_t> wild_values_;
};

}  // namespace Fuzz

#endif  // KELPBOX_FUZZ_NATIVE_TAME_H_
