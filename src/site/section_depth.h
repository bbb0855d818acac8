// The depth of one section along the tank.
#ifndef KELPBOX_SITE_SECTION_DEPTH_H_
#define KELPBOX_SITE_SECTION_DEPTH_H_

#include <cstddef>
#include <cstdint>
#include <string>

#include "site/tank.h"

namespace Common {

// Reads a section, which must outlive it. Failures are thrown as std::string
// "Section[<script index>]::...".
class SectionDepth {
 public:
  SectionDepth(const Section& section, std::int32_t script_index);

  // The depth in m at a position along the tank in m. It may be NaN or infinite. Throws as
  // Expression::Function does, if its units are not a length, and "depth profile takes too many
  // steps for a formula of ... characters, stopped at x = ..." after some seconds.
  double at(double x);
  // Throws "depth <depth> at x = <x> is not a number" unless the depth is finite. A depth below 0
  // is dry ground, which is allowed.
  void require_finite(double depth, double x) const;
  // Throws "depth profile does not come to an end, stopped at x = <x>".
  [[noreturn]] void fail_endless(double x) const;
  [[noreturn]] void fail(const std::string& problem) const;

 private:
  const Section& section_;
  std::int32_t script_index_;
  double origin_;              // where the variable of the expression is 0
  std::size_t evaluated_ = 0;  // characters of the formula, each as often as it was evaluated
};

}  // namespace Common

#endif  // KELPBOX_SITE_SECTION_DEPTH_H_
