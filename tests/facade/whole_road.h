// An experiment in a small tank, from its site to its results, step by step.
#ifndef KELPBOX_TESTS_FACADE_WHOLE_ROAD_H_
#define KELPBOX_TESTS_FACADE_WHOLE_ROAD_H_

#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/vector.h"
#include "facade/experiment.h"
#include "support/modifiers.h"
#include "support/sea_states.h"
#include "support/temp_dir.h"
#include "support/test_run.h"
#include "support/test_site.h"

namespace Testing {

// Two banks in a tank with a slope between side walls, in a file of its own.
class SmallTank {
 public:
  SmallTank() {
    SiteText text = sloping_site();
    text.geometry = "BothSides";
    text.min_y = -2.0;
    text.max_y = 2.0;
    BankText flaps;
    flaps.machine = "flap";
    flaps.units = "rad";
    flaps.paddles = {{0.0, 1.0, 0.0}};
    text.banks[0].paddles = {{0.0, -1.5, 0.0}, {0.0, -0.5, 0.0}, {0.0, 0.5, 0.1}};
    text.banks.push_back(flaps);
    path = folder_.write("small.site", script(text));
  }
  std::string path;

 private:
  TempDir folder_;
};

// Each step needs those before it, and may be repeated.
class WholeRoad {
 public:
  // The rate of the results in Hz.
  explicit WholeRoad(double rate = 20.0)
      : drive_values(rate_params(rate)),
        point_values(point_params(rate, 3.0, 0.5, 0.5)),
        grid(Filled()
                 .with("rate", rate / 2, "Hz")
                 .with("x_min", 1.0, "m")
                 .with("x_max", 4.0, "m")
                 .with("x_step", 1.0, "m")
                 .with("y_min", -1.0, "m")
                 .with("y_max", 1.0, "m")
                 .with("y_step", 1.0, "m")) {}

  void open(const std::string& site) {
    experiment = std::make_unique<Kelpbox::Experiment>();
    experiment->initialise(site);
  }

  // Two groups with every kind of component and modifier that a run takes.
  void add_items() {
    experiment->clear();
    waves.clear();
    run = experiment->add_definition("a run with a name that does not fit into a short string");
    group = experiment->add_specification(run);
    other = experiment->add_specification(run);
    const std::string name = "a component with a long name";
    waves.push_back(
        experiment->add_spectrum(group, name, pierson_moskowitz_text("0.3@Hz", "1.5@Hz")));
    waves.push_back(experiment->add_timeexp(group, name, "0@s#0.01*sin(pi*$[s])*gain[]@m#10@s"));
    waves.push_back(experiment->add_timeseries(other, record));
    waves.push_back(experiment->add_single(other));
    waves.push_back(experiment->add_fronts(
        other, {{0.5, 0.01, 0.1, 0.2}, {0.5, 0.02, -0.1, 0.4}, {0.6, 0.01, 0.3, 1.2}}));
    modifiers.clear();
    modifiers.push_back(experiment->add_modifier(group, "GainAdjust", "0.5+0.1*$[Hz]"));
    modifiers.push_back(experiment->add_modifier(group, "AngleSpread", "3"));
    modifiers.push_back(experiment->add_modifier(group, "PhaseWNoise", ""));
    modifiers.push_back(experiment->add_modifier(other, "AngleSweep", "2"));
    modifiers.push_back(experiment->add_modifier(other, "PhaseRandom", ""));
  }

  void set_items() {
    set(run, run_params(10.0, "Random", "True"));
    set(group, at(5.0, 0.5, 2.0));
    set(other, at(0.0, 0.0, 0.0));
    set(waves[0], SeaState{0.1, 0.6}.params());
    set(waves[1], Filled().with("rate", 20.0, "Hz").with("gain", 1.0, ""));
    set(waves[2], Filled()
                      .with("scale_ratio", 1.0, "")
                      .with("rate", 10.0, "Hz")
                      .with("ramp_time", 1.0, "s")
                      .member("ramp_type", "Sine", "Ramp"));
    set(waves[3], Filled()
                      .with("f", 0.7, "Hz")
                      .with("a", 0.02, "m")
                      .with("angle", 0.2, "rad")
                      .with("phase", 0.3, "rad"));
    set(waves[4], {});
    set(modifiers[0], Filled().member("set", "False", "Bool"));
    set(modifiers[1], Filled()
                          .member("function", "Cos2S", "SpreadFunc")
                          .with("angle", 0.0, "rad")
                          .with("max_angle", 1.0, "rad")
                          .with("min_angle", -1.0, "rad")
                          .member("ran_gen", "Default", "RanGen"));
    set(modifiers[2], Filled().with("rate", 20.0, "Hz").member("ran_gen", "Default", "RanGen"));
    set(modifiers[3], Filled().with("delta_angle", 1.5, "rad"));
    set(modifiers[4], Filled().member("ran_gen", "Default", "RanGen"));
  }

  void build_run() { experiment->run_build(run); }
  void build_drive() { experiment->paddle_motion_build(run, drive_values); }
  void build_point() {
    experiment->twod_build(run, point_values);
    statistics = point_values;
    experiment->twod_stats(run, statistics);
  }
  void build_animation() { experiment->animate_build(run, grid); }
  void lay_out() { experiment->animate_init(run, grid); }
  void build_columns() { experiment->animate_build_slice(run, {}, 0, 100); }

  // Everything up to the built run.
  void all(const std::string& site) {
    open(site);
    add_items();
    set_items();
    build_run();
  }

  // What the steps leave, in numbers.
  std::vector<double> fronts() const {
    std::vector<double> numbers;
    for (const bool merged : {true, false}) {
      for (const Synthesis::Front& front : experiment->fronts(run, merged)) {
        numbers.insert(numbers.end(), {front.freq, front.amp, front.angle, front.phase});
      }
    }
    numbers.push_back(static_cast<double>(experiment->messages(run).size()));
    return numbers;
  }
  std::vector<double> drive() const {
    std::vector<double> numbers;
    for (std::uint32_t bank = 0; bank < experiment->paddle_banks(); ++bank) {
      for (std::uint32_t p = 0; p < experiment->paddle_bank_size(bank); ++p) {
        const std::vector<double>& signal = experiment->paddle_motion_data(run, bank, p);
        numbers.insert(numbers.end(), signal.begin(), signal.end());
      }
    }
    return numbers;
  }
  std::vector<double> point() const {
    std::vector<double> numbers;
    for (std::int32_t which = 0; which <= Synthesis::TwoD::direction; ++which) {
      const std::vector<double>& data = experiment->twod_data(run, which);
      numbers.insert(numbers.end(), data.begin(), data.end());
    }
    for (const auto& [name, quantity] : statistics.entries()) numbers.push_back(quantity.value);
    return numbers;
  }
  std::vector<std::int16_t> frames() const {
    std::vector<std::int16_t> all;
    for (std::uint32_t t = 0; t < experiment->animate_size(run); ++t) {
      const std::vector<std::int16_t>& frame = experiment->animate_data(run, t);
      all.insert(all.end(), frame.begin(), frame.end());
    }
    return all;
  }

  Base::Vector record{"probe", Base::resolve_units("m"), wave_record(100, 0.01, 10.0)};
  std::unique_ptr<Kelpbox::Experiment> experiment;
  std::uint32_t run = 0;
  std::uint32_t group = 0;
  std::uint32_t other = 0;
  std::vector<std::uint32_t> waves;
  std::vector<std::uint32_t> modifiers;
  Base::Params drive_values, point_values, grid, statistics;

  static std::vector<double> wave_record(std::size_t samples, double amplitude, double period,
                                         double phase = 0.0) {
    std::vector<double> record(samples);
    for (std::size_t i = 0; i < samples; ++i) {
      record[i] = amplitude * std::cos(2.0 * pi * static_cast<double>(i) / period + phase);
    }
    return record;
  }

 private:
  void set(std::uint32_t id, Base::Params params) { experiment->set(id, params); }
};

}  // namespace Testing

#endif  // KELPBOX_TESTS_FACADE_WHOLE_ROAD_H_
