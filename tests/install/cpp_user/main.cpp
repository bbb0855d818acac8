// Usage: cpp_user <examples/flume.site>. Builds the drive signal of one wave and prints its stroke.
// Ends with 1 unless linear wavemaker theory gives the same stroke.
#include <cmath>
#include <iostream>
#include <numbers>
#include <vector>

#include "facade/experiment.h"

namespace {

constexpr double frequency = 0.8;   // Hz
constexpr double amplitude = 0.02;  // m
constexpr double depth = 0.7;       // m, of the flume

// Of a piston over the full depth, after Biesel and Suquet (1951).
double theory() {
  const double omega = 2.0 * std::numbers::pi * frequency;
  double low = 0.0;
  double high = 100.0;
  for (int i = 0; i < 100; ++i) {
    const double k = 0.5 * (low + high);
    (9.81 * k * std::tanh(k * depth) < omega * omega ? low : high) = k;
  }
  const double kd = low * depth;
  const double sinh = std::sinh(kd);
  return amplitude * (std::sinh(2.0 * kd) + 2.0 * kd) / (4.0 * sinh * sinh);
}

double stroke(const char* site) {
  Kelpbox::Experiment tank;
  tank.initialise(site);
  const auto run = tank.add_definition("run");
  const auto place = tank.add_specification(run);
  const auto wave = tank.add_single(place);

  Base::Params values;
  for (const char* name : {"x", "y"}) values.insert(name, 0.0, "m");
  for (const char* name : {"angle", "phase"}) values.insert(name, 0.0, "rad");
  values.insert("t", 0.0, "s");
  values.insert("f", frequency, "Hz");
  values.insert("a", amplitude, "m");
  values.insert("repeat", 60.0, "s");
  values.insert("dalrymple", "False", "Bool");
  values.insert("wave_merge", "Null", "WaveMerge");
  values.insert("rate", 50.0, "Hz");
  for (const auto item : {place, wave, run}) tank.set(item, values);

  tank.run_build(run);
  tank.paddle_motion_build(run, values);
  const std::vector<double>& signal = tank.paddle_motion_data(run, 0, 0);
  double squares = 0.0;
  for (const double sample : signal) squares += sample * sample;
  return std::sqrt(2.0 * squares / static_cast<double>(signal.size()));
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) return 2;
  const double found = stroke(arguments[1]);
  std::cout << "stroke " << found << " m, by theory " << theory() << " m\n";
  // The library's wave number is explicit and a few parts in 1e5 off.
  return std::abs(found / theory() - 1.0) < 1e-4 ? 0 : 1;
}
