// The parameters of runs and waves, and what is built from them.
#include <algorithm>
#include <cmath>
#include <string>

#include "flume_run.h"
#include "hazard.h"

namespace Testing {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr std::uint32_t largest_index = 4294967295;

std::string repeat_of(double seconds) {
  FlumeRun run(seconds);
  const double made = run.repeat(run.definition_id).value();
  run.add_wave();
  run.build();
  return std::to_string(made) + " s, " + run.drive(50.0);
}

Hazard repeat(const std::string& name, double seconds, const std::string& expected) {
  return {name, [=] { return repeat_of(seconds); }, expected};
}

Hazard rate(const std::string& name, double hertz, const std::string& expected) {
  return {name,
          [=] {
            FlumeRun run;
            run.add_wave();
            run.build();
            return run.drive(hertz);
          },
          expected};
}

std::string kind_of(const std::vector<double>& signal) {
  const auto all = [&](bool (*is)(double)) {
    return std::all_of(signal.begin(), signal.end(), is);
  };
  if (all([](double value) { return std::isfinite(value); })) return "all finite";
  return all([](double value) { return std::isnan(value); }) ? "all NaN" : "some not finite";
}

// The number of samples that a wave gives, and whether they are finite.
Hazard wave(const std::string& name, double f, double a, double angle, double phase,
            const std::string& expected) {
  return {name,
          [=] {
            FlumeRun run;
            run.add_wave(f, a, angle, phase);
            run.build();
            const std::string samples = run.drive(50.0);
            return samples + ", " + kind_of(run.paddle_motion_data(run.definition_id, 0, 0));
          },
          expected};
}

using Change = std::function<void(FlumeRun&)>;

// Does something with a run that has one wave, or that has been built too.
Hazard with_run(const std::string& name, const Change& change, const std::string& expected) {
  return {name,
          [=] {
            FlumeRun run;
            run.add_wave();
            run.build();
            change(run);
            return std::string("done");
          },
          expected};
}

Hazard modifier(const std::string& name, const std::string& type, const std::string& formula,
                const Numbers& numbers,
                const std::vector<std::pair<std::string, std::string>>& kinds,
                const std::string& expected) {
  return {name,
          [=] {
            FlumeRun run;
            run.add_wave();
            const std::uint32_t id = run.add_modifier(run.sea, type, formula);
            Base::Params params = params_of(numbers);
            for (const auto& [key, member] : kinds) {
              params.insert(key, member, key == "function" ? "SpreadFunc" : "RanGen");
            }
            run.set(id, params);
            run.build();
            return std::to_string(run.fronts(run.definition_id).size()) + " fronts";
          },
          expected};
}

const Rows rows = {
    repeat("ARepeatOf1e9Seconds", 1e9,
           "Front set::110214391 harmonics are more than the 67108864 that can be held"),
    repeat("ARepeatOf1e5Seconds", 1e5, "100000.000000 s, 5000000 samples"),
    repeat("ARepeatOf1e300Seconds", 1e300, "max harmonic is less than min harmonic"),
    repeat("ARepeatOfZero", 0.0, "max harmonic is less than min harmonic"),
    repeat("ARepeatOfMinusOneSecond", -1.0,
           "Front set::171798691 harmonics are more than the 67108864 that can be held"),
    repeat("ARepeatThatIsNoNumber", nan, "max harmonic is less than min harmonic"),
    repeat("ARepeatOf1eMinus300Seconds", 1e-300, "max harmonic is less than min harmonic"),
    rate("ARateOf1e9Hz", 1e9,
         "rate::1e+09 Hz gives no usable number of samples in a repeat time of 64 s"),
    rate("ARateOf1e300Hz", 1e300,
         "rate::1e+300 Hz gives no usable number of samples in a repeat time of 64 s"),
    rate("ARateOfZero", 0.0, "Index 32 out of range"),
    rate("ANegativeRate", -50.0,
         "rate::-50 Hz gives no usable number of samples in a repeat time of 64 s"),
    rate("ARateThatIsNoNumber", nan,
         "rate::nan Hz gives no usable number of samples in a repeat time of 64 s"),
    rate("AnInfiniteRate", infinity,
         "rate::inf Hz gives no usable number of samples in a repeat time of 64 s"),
    rate("ARateOf1eMinus300Hz", 1e-300, "Index 32 out of range"),
    rate("AMillionSamples", 15625.0, "1000000 samples"),
    wave("APhaseOf1e300", 0.5, 0.02, 0.0, 1e300, "3200 samples, all finite"),
    wave("AnInfinitePhase", 0.5, 0.02, 0.0, infinity, "3200 samples, all NaN"),
    wave("AnAngleOf1e300", 0.5, 0.02, 1e300, 0.0, "3200 samples, all finite"),
    wave("AnAmplitudeOf1e308", 0.5, 1e308, 0.0, 0.0, "3200 samples, all finite"),
    wave("AnAmplitudeThatIsNoNumber", 0.5, nan, 0.0, 0.0, "3200 samples, all NaN"),
    wave("AFrequencyOf1e300", 1e300, 0.02, 0.0, 0.0, "3200 samples, all finite"),
    wave("AFrequencyOf1eMinus12", 1e-12, 0.02, 0.0, 0.0, "3200 samples, all finite"),
    wave("ANegativeFrequency", -0.5, 0.02, 0.0, 0.0, "3200 samples, all finite"),
    wave("AFrequencyThatIsNoNumber", nan, 0.02, 0.0, 0.0, "3200 samples, all finite"),
    with_run(
        "APaddleThatIsNotThere",
        [](FlumeRun& run) {
          run.drive(50.0);
          run.paddle_motion_data(run.definition_id, 0, largest_index);
        },
        "Paddle out of range in paddle_motion_data::bank 0 has no signal of paddle 4294967295"),
    with_run(
        "ABankThatIsNotThere",
        [](FlumeRun& run) {
          run.drive(50.0);
          run.paddle_motion_data(run.definition_id, largest_index, 0);
        },
        "Bank out of range or paddle_motion not built"),
    with_run(
        "ADefinitionThatIsNotThere", [](FlumeRun& run) { run.run_build(largest_index); },
        "ID out of range"),
    with_run(
        "AnItemThatIsNotThere", [](FlumeRun& run) { run.remove(2147483647); }, "ID out of range"),
    with_run(
        "ASetThatIsNotThere", [](FlumeRun& run) { run.fronts(run.definition_id, largest_index); },
        "invalid vector<T> subscript"),
    with_run(
        "TwentyThousandWaves",
        [](FlumeRun& run) {
          for (int i = 0; i < 20'000; ++i) run.add_wave(0.5, 1e-6, 0.0, 0.001 * i);
          run.build();
          run.drive(50.0);
        },
        "done"),
    with_run(
        "AMillionFrontsInOneComponent",
        [](FlumeRun& run) {
          const Synthesis::Front front{0.5, 1e-6, 0.0, 0.0};
          const std::uint32_t id = run.add_fronts(run.sea, Synthesis::DispFronts(1'000'000, front));
          run.set_item(id, {});
          run.build();
        },
        "done"),
    with_run(
        "AHundredThousandDefinitions",
        [](FlumeRun& run) {
          for (int i = 0; i < 100'000; ++i) run.add_definition("");
        },
        "done"),
    with_run(
        "ANameOfTenMegabytes",
        [](FlumeRun& run) {
          run.add_spectrum(run.sea, std::string(10'000'000, 'x'), "0.1@Hz#1@m2s#1@Hz");
          run.build();
        },
        std::string(10'000'000, 'x') + "::evaluate::when not ready"),
    modifier("ASweepInStepsOf1eMinus12Degrees", "AngleSweep", "1", {{"delta_angle", 1e-12, "deg"}},
             {}, "Sweep has zero output"),
    modifier(
        "ASweepInStepsOf1e9Degrees", "AngleSweep", "1", {{"delta_angle", 1e9, "deg"}}, {},
        "AngleSweepModifier::delta_angle of 1.74533e+07 rad gives no usable fan of directions"),
    modifier("ASweepInStepsOfZero", "AngleSweep", "1", {{"delta_angle", 0.0, "deg"}}, {},
             "Sweep has zero output"),
    modifier("ASweepInNegativeSteps", "AngleSweep", "1", {{"delta_angle", -1.0, "deg"}}, {},
             "Sweep has zero output"),
    modifier("ASweepInStepsThatAreNoNumber", "AngleSweep", "1", {{"delta_angle", nan, "deg"}}, {},
             "Sweep has zero output"),
    modifier("ASpreadOf1e300", "AngleSpread", "1" + std::string(300, '0') + ".0",
             {{"angle", 0.0, "deg"},
              {"min_angle", -80.0, "deg"},
              {"max_angle", 80.0, "deg"},
              {"seed", 1.0, ""}},
             {{"function", "CosS"}, {"ran_gen", "Default"}},
             "Spreading power::1e+300 is out of range"),
    modifier("ASpreadAbout1e300Degrees", "AngleSpread", "2",
             {{"angle", 1e300, "deg"},
              {"min_angle", -80.0, "deg"},
              {"max_angle", 80.0, "deg"},
              {"seed", 1.0, ""}},
             {{"function", "CosS"}, {"ran_gen", "Default"}}, "Angle not between min and max"),
    modifier("AGainThatOverflows", "GainAdjust", "exp(exp(9))", {}, {}, "1 fronts"),
    modifier("NoiseOf1e9Samples", "PhaseWNoise", "0.1", {{"rate", 1e9, "Hz"}, {"seed", 1.0, ""}},
             {{"ran_gen", "Default"}},
             "rate::1e+09 Hz gives no usable number of samples in a repeat time of 64 s"),
};

INSTANTIATE_TEST_SUITE_P(Run, HazardTest, testing::ValuesIn(rows), row_name);

}  // namespace
}  // namespace Testing
