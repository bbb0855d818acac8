// An analysis of four records in a small tank, step by step.
#ifndef KELPBOX_TESTS_FACADE_FOUR_PROBES_H_
#define KELPBOX_TESTS_FACADE_FOUR_PROBES_H_

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "facade/analysis.h"
#include "support/test_run.h"
#include "whole_road.h"

namespace Testing {

// Each step needs those before it. A step that fails is completed when it is repeated.
class FourProbes {
 public:
  explicit FourProbes(const std::string& site, double wave_period = 2.0) : period(wave_period) {
    tank.initialise(site);
    records.reserve(4);
    processes.reserve(2);
    analysis = std::make_unique<Kelpbox::Analysis>(tank);
  }

  void add_series() {
    while (records.size() < 4) {
      const double x = 2.0 + 0.35 * static_cast<double>(records.size());
      Base::Params params = point_params(rate, x, 0.0);
      records.push_back(
          analysis->add_series(params, WholeRoad::wave_record(800, 0.05, period * rate, x)));
    }
  }
  void create_set() {
    Base::Params window;
    window.insert("start_time", 0.0, "s");
    window.insert("stop_time", 40.0, "s");
    set = analysis->create_set(window, records);
  }
  void create_processes() {
    using Kelpbox::ProcessKind;
    while (processes.size() < 2) {
      Base::Params values;
      tank.query(values);
      analysis->set(values);
      const auto kind = processes.empty() ? ProcessKind::zero_crossings : ProcessKind::wave_trains;
      processes.push_back(analysis->create_process(set, static_cast<std::uint32_t>(kind)));
    }
  }
  void get_results() {
    Base::Params settings;
    settings.insert("freq", 1.0 / period, "Hz");
    settings.insert("angle", 0.0, "rad");
    results.clear();
    for (const std::uint32_t process : processes) {
      Base::Params out;
      analysis->get_results(process, settings, out);
      for (const auto& [name, quantity] : out.entries()) results.push_back(quantity.value);
    }
    const std::vector<double>& heights = analysis->get_data(processes.front(), {});
    results.insert(results.end(), heights.begin(), heights.end());
  }
  // Does the steps that are missing.
  std::vector<double> all() {
    add_series();
    if (set == 0) create_set();
    create_processes();
    get_results();
    return results;
  }

  static constexpr double rate = 20.0;  // Hz
  double period;                        // s
  Kelpbox::SiteFacade tank;
  std::unique_ptr<Kelpbox::Analysis> analysis;
  std::vector<std::uint32_t> records;
  std::uint32_t set = 0;
  std::vector<std::uint32_t> processes;
  std::vector<double> results;
};

}  // namespace Testing

#endif  // KELPBOX_TESTS_FACADE_FOUR_PROBES_H_
