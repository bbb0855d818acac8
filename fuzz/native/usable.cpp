// The library works as before after any sequence of calls.
#include <cmath>
#include <numbers>

#include "fuzz/native/session.h"

namespace Fuzz {
namespace {

using Kelpbox::Facade;

constexpr double depth = 1.0;  // m, of flume.site
constexpr double g = 9.81;
constexpr double repeat = 8.0;
constexpr double rate = 20.0;
constexpr double frequency = 0.5;
constexpr double amplitude = 0.02;

// The root of omega^2 = g k tanh(k d), by bisection.
double wave_number() {
  const double omega = 2 * std::numbers::pi * frequency;
  double low = 0.0;
  double high = 100.0;
  for (int i = 0; i < 100; ++i) {
    const double k = (low + high) / 2;
    (g * k * std::tanh(k * depth) < omega * omega ? low : high) = k;
  }
  return low;
}

// Surface amplitude for each metre of stroke of a piston that reaches the bottom.
double transfer_ratio() {
  const double kd2 = 2 * wave_number() * depth;
  return 2 * (std::cosh(kd2) - 1) / (std::sinh(kd2) + kd2);
}

double largest(const std::vector<double>& values) {
  double most = 0.0;
  for (const double value : values) most = std::max(most, std::abs(value));
  return most;
}

void expect_near(double value, double expected, const char* what) {
  if (std::abs(value - expected) < 1e-6 * expected) return;
  fail(std::string("the known wave has ") + what + " " + std::to_string(value) + ", not " +
       std::to_string(expected));
}

void build_known_wave(Facade& facade) {
  const std::uint32_t run = facade.add_definition("known wave");
  const std::uint32_t group = facade.add_specification(run);
  const std::uint32_t wave = facade.add_single(group);
  Base::Params values;
  values.insert("repeat", repeat, "s");
  values.insert("dalrymple", "False", "Bool");
  values.insert("wave_merge", "Null", "WaveMerge");
  facade.Experiment::set(run, values);
  values.clear();
  for (const auto& [name, unit] : {std::pair{"x", "m"}, {"y", "m"}, {"t", "s"}}) {
    values.insert(name, 0.0, unit);
  }
  facade.Experiment::set(group, values);
  values.clear();
  values.insert("f", frequency, "Hz");
  values.insert("a", amplitude, "m");
  values.insert("angle", 0.0, "rad");
  values.insert("phase", 0.0, "rad");
  facade.Experiment::set(wave, values);
  facade.run_build(run);

  values.clear();
  values.insert("rate", rate, "Hz");
  facade.paddle_motion_build(run, values);
  // A crest of the sine falls on a sample: ten of them make a quarter of the period.
  expect_near(largest(facade.paddle_motion_data(run, 0, 0)), amplitude / transfer_ratio(),
              "the stroke");
  values.insert("x", 3.0, "m");
  values.insert("y", 0.0, "m");
  values.insert("delta_angle", 0.5, "rad");
  facade.twod_build(run, values);
  expect_near(largest(facade.twod_data(run, 1)), amplitude, "the amplitude");
  facade.Experiment::remove(run);
}

// Three probes in a wave that travels forward.
void separate_known_wave(Facade& facade) {
  constexpr double sampling = 8.0;
  constexpr std::size_t samples = 16;  // a period of the known wave
  std::vector<std::uint32_t> probes;
  Base::Params values;
  for (const double x : {2.0, 2.7, 3.6}) {
    std::vector<double> record;
    for (std::size_t i = 0; i < samples; ++i) {
      const double t = static_cast<double>(i) / sampling;
      record.push_back(amplitude *
                       std::cos(2 * std::numbers::pi * frequency * t - wave_number() * x));
    }
    values.clear();
    values.insert("rate", sampling, "Hz");
    values.insert("x", x, "m");
    values.insert("y", 0.0, "m");
    probes.push_back(facade.add_series(values, record));
  }
  values.clear();
  values.insert("start_time", 0.0, "s");
  values.insert("stop_time", static_cast<double>(samples) / sampling, "s");
  const std::uint32_t set = facade.create_set(values, probes);
  Base::Params site;
  facade.Experiment::query(site);
  facade.Kelpbox::Analysis::set(site);
  const std::uint32_t process =
      facade.create_process(set, static_cast<std::uint32_t>(Kelpbox::ProcessKind::wave_trains));
  values.clear();
  values.insert("freq", frequency, "Hz");
  values.insert("angle", 0.0, "rad");
  Base::Params results;
  facade.get_results(process, values, results);
  expect_near(results.at("Forward free fundamental").value, amplitude, "the forward amplitude");
}

void check_flume(Facade& facade) {
  // What an analysis has added is never freed (docs/native-ownership.md).
  constexpr int most_analyses = 100000;
  static int analyses = 0;
  if (++analyses <= most_analyses) separate_known_wave(facade);
  // Makes the tank ready.
  Base::Params site;
  facade.Experiment::query(site);
  facade.Experiment::set(site);
  build_known_wave(facade);
}

}  // namespace

void Session::check_usable() {
  std::string message;
  try {
    bool checked = false;
    for (const auto& [address, site] : sites_) {
      if (!site.file.ends_with("flume.site")) continue;
      check_flume(facade_at(address));
      checked = true;
    }
    if (checked) return;
    Facade facade;
    facade.initialise(site_folder() + "flume.site");
    check_flume(facade);
    return;
  } catch (const std::string& failure) {
    message = failure;
  } catch (const char* failure) {
    message = failure;
  } catch (const Script::LogItm& failure) {
    message = failure.text;
  }
  fail("the known wave fails: " + message);
}

}  // namespace Fuzz
