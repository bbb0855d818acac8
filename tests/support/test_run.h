// Specifications and runs of given fronts, ready to use.
#ifndef KELPBOX_TESTS_SUPPORT_TEST_RUN_H_
#define KELPBOX_TESTS_SUPPORT_TEST_RUN_H_

#include <cstdint>
#include <utility>
#include <vector>

#include "base/params.h"
#include "maths/front.h"
#include "run/definition.h"
#include "sea/specification.h"
#include "support/test_site.h"

namespace Testing {

// A specification of given fronts, ready to evaluate.
struct Part {
  Part(Given fronts, const Base::Params& position) : component(std::move(fronts)) {
    specification.add_component(component);
    specification.set(position);
  }

  GivenFronts component;
  Synthesis::Specification specification;
};

inline void set(Synthesis::Definition& definition, Base::Params params) { definition.set(params); }

// A run of given fronts at the paddle line, built up to the merged set.
struct BuiltRun {
  BuiltRun(const SiteText& text, Given fronts)
      : site(text), part(std::move(fronts), at(0, 0, 0)), definition("run", site.context()) {
    definition.add_specification(part.specification);
    set(definition, run_params(10.0));
    definition.run_build();
  }

  const std::vector<double>& signal(std::uint32_t bank = 0, std::uint32_t paddle = 0) {
    return definition.paddle_motion_data(bank, paddle);
  }

  Site site;
  Part part;
  Synthesis::Definition definition;
};

inline SiteText with_bank(const BankText& bank) {
  SiteText text;
  text.banks = {bank};
  return text;
}

// The parameters of a point: Hz, metres, radians.
inline Base::Params point_params(double rate, double x, double y, double delta_angle = 0.1) {
  Base::Params params = rate_params(rate);
  params.insert("x", x, "m");
  params.insert("y", y, "m");
  params.insert("delta_angle", delta_angle, "rad");
  return params;
}

// The wave amplitude per unit of paddle motion, by linear wavemaker theory: 2 sinh(kd) / (sinh(kd)
// cosh(kd) + kd) times k times the integral of shape(z) cosh k(z + d) from the edge, which is
// `edge` below the surface, up to the surface. The shape of a piston is 1, that of a flap z + edge.
double theory_ratio(double k, double depth, double edge, bool flap);

}  // namespace Testing

#endif  // KELPBOX_TESTS_SUPPORT_TEST_RUN_H_
