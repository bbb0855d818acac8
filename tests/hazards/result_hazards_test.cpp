// What is computed from a run: the wave at a point, animations, series as waves.
#include <limits>
#include <string>

#include "base/vector.h"
#include "flume_run.h"
#include "hazard.h"

namespace Testing {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

Hazard point(const std::string& name, double rate, double x, double y, double delta_angle,
             const std::string& expected) {
  return {name,
          [=] {
            FlumeRun run;
            run.add_wave();
            run.build();
            Base::Params params = params_of({{"rate", rate, "Hz"},
                                             {"x", x, "m"},
                                             {"y", y, "m"},
                                             {"delta_angle", delta_angle, "rad"}});
            run.twod_build(run.definition_id, params);
            return std::to_string(run.twod_data(run.definition_id, 0).size()) + " samples, " +
                   std::to_string(run.twod_data(run.definition_id, 3).size()) + " sectors";
          },
          expected};
}

Hazard animation(const std::string& name, double rate, double x_step, double x_max,
                 const std::string& expected) {
  return {name,
          [=] {
            FlumeRun run;
            run.add_wave();
            run.build();
            Base::Params params = params_of({{"rate", rate, "Hz"},
                                             {"x_min", 0.0, "m"},
                                             {"x_max", x_max, "m"},
                                             {"x_step", x_step, "m"},
                                             {"y_min", 0.0, "m"},
                                             {"y_max", 0.8, "m"},
                                             {"y_step", 0.4, "m"}});
            run.animate_build(run.definition_id, params);
            return std::to_string(run.animate_size(run.definition_id)) + " frames";
          },
          expected};
}

Hazard series(const std::string& name, double rate, double scale, double ramp, std::size_t samples,
              double sample, const std::string& expected) {
  return {name,
          [=] {
            FlumeRun run;
            Base::Vector record("record", Base::default_units(Base::Category::length),
                                std::vector<double>(samples, sample));
            const std::uint32_t id = run.add_timeseries(run.sea, record);
            Base::Params params = params_of(
                {{"rate", rate, "Hz"}, {"scale_ratio", scale, ""}, {"ramp_time", ramp, "s"}});
            params.insert("ramp_type", "Null", "Ramp");
            run.set(id, params);
            run.build();
            return std::to_string(run.fronts(run.definition_id).size()) + " fronts";
          },
          expected};
}

const Rows points = {
    point("ABillionSamples", 1e9 / 64.0, 9.0, 0.4, 0.1,
          "rate::1.5625e+07 Hz gives no usable number of samples in a repeat time of 64 s"),
    point("ARateOf1e300Hz", 1e300, 9.0, 0.4, 0.1,
          "rate::1e+300 Hz gives no usable number of samples in a repeat time of 64 s"),
    point("ARateOfZero", 0.0, 9.0, 0.4, 0.1, "0 samples, 63 sectors"),
    point("ANegativeRate", -50.0, 9.0, 0.4, 0.1,
          "rate::-50 Hz gives no usable number of samples in a repeat time of 64 s"),
    point("ARateThatIsNoNumber", nan, 9.0, 0.4, 0.1,
          "rate::nan Hz gives no usable number of samples in a repeat time of 64 s"),
    point("SectorsOf1eMinus12Degrees", 50.0, 9.0, 0.4, 1.7e-14, "Value of delta_angle too small"),
    point("SectorsOfTwoMillionths", 50.0, 9.0, 0.4, 2e-6, "3200 samples, 3141593 sectors"),
    point("SectorsOf1e9Degrees", 50.0, 9.0, 0.4, 1.7e7, "invalid vector<T> subscript"),
    point("SectorsOfZero", 50.0, 9.0, 0.4, 0.0, "Value of delta_angle too small"),
    point("NegativeSectors", 50.0, 9.0, 0.4, -0.1, "Value of delta_angle too small"),
    point("SectorsThatAreNoNumber", 50.0, 9.0, 0.4, nan,
          "delta_angle::nan rad gives no usable number of direction sectors"),
    point("APlaceFarOutsideTheTank", 50.0, 1e300, 0.4, 0.1,
          "Value x=1e+300 is outside dimensions of tank"),
    point("APlaceThatIsNoNumber", 50.0, nan, 0.4, 0.1, "Value x=nan is outside dimensions of tank"),
    point("APlaceFarAcross", 50.0, 9.0, 1e300, 0.1, "3200 samples, 63 sectors"),
};
INSTANTIATE_TEST_SUITE_P(Point, HazardTest, testing::ValuesIn(points), row_name);

const Rows animations = {
    animation("StepsOfANanometre", 5.0, 1e-9, 20.0,
              "x_step::1e-09 m gives no usable grid from 0 m to 20 m"),
    animation("StepsOf1e300OfAMetre", 5.0, 1e-300, 20.0,
              "x_step::1e-300 m gives no usable grid from 0 m to 20 m"),
    animation("StepsOfZero", 5.0, 0.0, 20.0, "x_step::0 m gives no usable grid from 0 m to 20 m"),
    animation("NegativeSteps", 5.0, -0.5, 20.0,
              "x_step::-0.5 m gives no usable grid from 0 m to 20 m"),
    animation("StepsThatAreNoNumber", 5.0, nan, 20.0,
              "x_step::nan m gives no usable grid from 0 m to 20 m"),
    animation("ABillionFrames", 1e9 / 64.0, 5.0, 20.0,
              "rate::1.5625e+07 Hz gives no usable number of samples in a repeat time of 64 s"),
    animation("ARateOfZero", 0.0, 5.0, 20.0,
              "Trying to build animation when wave expression has no data"),
    animation("ANegativeRate", -5.0, 5.0, 20.0,
              "rate::-5 Hz gives no usable number of samples in a repeat time of 64 s"),
    animation("ARateThatIsNoNumber", nan, 5.0, 20.0,
              "rate::nan Hz gives no usable number of samples in a repeat time of 64 s"),
    animation("AGridFarOutsideTheTank", 5.0, 1e299, 1e300,
              "Value x=1e+299 is outside dimensions of tank"),
};
INSTANTIATE_TEST_SUITE_P(Animation, HazardTest, testing::ValuesIn(animations), row_name);

const Rows records = {
    series("ARateOf1e9Hz", 1e9, 1.0, 0.0, 1000, 0.01,
           "record::6.4e+10 samples in the signal, not 1 to 134217728"),
    series("ARateOfZero", 0.0, 1.0, 0.0, 1000, 0.01,
           "record::0 samples in the signal, not 1 to 134217728"),
    series("ANegativeRate", -50.0, 1.0, 0.0, 1000, 0.01,
           "record::-3200 samples in the signal, not 1 to 134217728"),
    series("ScaledByZero", 50.0, 0.0, 0.0, 1000, 0.01, "Scale ratio is zero"),
    series("ScaledBy1e300", 50.0, 1e300, 0.0, 1000, 0.01,
           "record::3.2e+153 samples in the signal, not 1 to 134217728"),
    series("ARampOf1e300Seconds", 50.0, 1.0, 1e300, 1000, 0.01, "121 fronts"),
    series("NoSamples", 50.0, 1.0, 0.0, 0, 0.01, "0 fronts"),
    series("SamplesThatAreNoNumbers", 50.0, 1.0, 0.0, 3200, nan, "122 fronts"),
    series("SamplesOf1e308", 50.0, 1.0, 0.0, 3200, 1e308, "61 fronts"),
};
INSTANTIATE_TEST_SUITE_P(Series, HazardTest, testing::ValuesIn(records), row_name);

}  // namespace
}  // namespace Testing
