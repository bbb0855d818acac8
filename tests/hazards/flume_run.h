// A run in the flume of the examples, to which rows add what is absurd.
#ifndef KELPBOX_TESTS_HAZARDS_FLUME_RUN_H_
#define KELPBOX_TESTS_HAZARDS_FLUME_RUN_H_

#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "facade/experiment.h"

namespace Testing {

// Name, value, units.
using Numbers = std::vector<std::tuple<std::string, double, std::string>>;

inline Base::Params params_of(const Numbers& numbers) {
  Base::Params params;
  for (const auto& [name, value, units] : numbers) params.insert(name, value, units);
  return params;
}

inline const std::string flume_site = TEST_ROOT "/../examples/flume.site";

struct FlumeRun : Kelpbox::Experiment {
  explicit FlumeRun(double repeat = 64.0, const std::string& site = flume_site) {
    initialise(site);
    definition_id = add_definition("run");
    set_repeat(repeat);
    sea = add_specification(definition_id);
    set_item(sea, {{"x", 0.0, "m"}, {"y", 0.0, "m"}, {"t", 0.0, "s"}});
  }

  void set_repeat(double repeat) {
    Base::Params params = params_of({{"repeat", repeat, "s"}});
    params.insert("dalrymple", "False", "Bool");
    params.insert("wave_merge", "Null", "WaveMerge");
    set(definition_id, params);
  }
  void set_item(std::uint32_t id, const Numbers& numbers) {
    Base::Params params = params_of(numbers);
    set(id, params);
  }
  std::uint32_t add_wave(double f = 0.5, double a = 0.02, double angle = 0.0, double phase = 0.0) {
    const std::uint32_t wave = add_single(sea);
    set_item(wave,
             {{"f", f, "Hz"}, {"a", a, "m"}, {"angle", angle, "rad"}, {"phase", phase, "rad"}});
    return wave;
  }
  void build() { run_build(definition_id); }
  std::string drive(double rate) {
    Base::Params params = params_of({{"rate", rate, "Hz"}});
    paddle_motion_build(definition_id, params);
    return std::to_string(paddle_motion_data(definition_id, 0, 0).size()) + " samples";
  }

  std::uint32_t definition_id = 0;
  std::uint32_t sea = 0;
};

}  // namespace Testing

#endif  // KELPBOX_TESTS_HAZARDS_FLUME_RUN_H_
