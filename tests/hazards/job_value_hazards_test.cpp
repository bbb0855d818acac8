// The values of jobs.
#include "command_row.h"

namespace Testing {
namespace {

constexpr std::size_t million = 1'000'000;

std::function<std::string()> text(const std::string& fixed) {
  return [fixed] { return fixed; };
}

std::string change(const std::string& kind, const std::string& values) {
  return "  [[sea.change]]\n  kind = \"" + kind + "\"\n  " + values + "\n";
}

std::string point(const std::string& values) {
  return "[[point]]\nx = \"9 m\"\ny = \"0.4 m\"\n" + values;
}

std::string field(const std::string& rate, const std::string& step) {
  return "[field]\nrate = \"" + rate + "\"\nx = { from = \"0 m\", to = \"10 m\", step = \"" + step +
         "\" }\ny = { from = \"0 m\", to = \"0.8 m\", step = \"0.4 m\" }\n";
}

// Their squares are beyond all numbers.
const std::string no_variance =
    "2: error: the waves cannot be judged: their variance is not finite\n --> job.toml:4:1\n  |\n4 "
    "| "
    "[[sea]]\n  | ^^^^^^^\njob.toml: 1 error, nothing was built\n";

const Rows values = {
    job_value("ARepeatOfMinusOneSecond", "run.repeat", "-1 s",
              "2: error: `repeat` must be above 0\n --> --set:1:12\n  |\n1 | run.repeat=-1 s\n  |  "
              "          ^^^^\njob.toml: 1 error, nothing was built\n"),
    job_value("ARepeatOfMinusOneMillisecond", "run.repeat", "-1 msec",
              "2: error: `repeat` must be above 0\n --> --set:1:12\n  |\n1 | run.repeat=-1 msec\n  "
              "|            ^^^^^^^\njob.toml: 1 error, nothing was built\n"),
    job_value("ARepeatOfZero", "run.repeat", "0 s",
              "2: error: `repeat` must be above 0\n --> --set:1:12\n  |\n1 | run.repeat=0 s\n  |   "
              "         ^^^\njob.toml: 1 error, nothing was built\n"),
    job_value("ARepeatOf1e9Seconds", "run.repeat", "1e9 s",
              "2: error: `repeat` must be below 8.59e+07 s on this site\n --> --set:1:12\n  |\n1 | "
              "run.repeat=1e9 s\n  |            ^^^^^\njob.toml: 1 error, nothing was built\n"),
    job_value("ARepeatOf1e7Seconds", "run.repeat", "1e7 s",
              "2: error: a rate of 50 Hz gives 5e+08 samples in a repeat of 1e+07 s\n --> "
              "--set:1:12\n  |\n1 | run.repeat=1e7 s\n  |            ^^^^^ at most 134217728 "
              "samples can be computed\njob.toml: 1 error, nothing was built\n"),
    job_value(
        "ARepeatOf1eMinus9Seconds", "run.repeat", "1e-9 s",
        "2: error: `repeat` is too short for any harmonic between 0.1 and 2 Hz\n --> --set:1:12\n  "
        "|\n1 | run.repeat=1e-9 s\n  |            ^^^^^^\njob.toml: 1 error, nothing was built\n"),
    job_value("ARepeatThatIsNoNumber", "run.repeat", "nan s",
              "2: error: `repeat` is a time, but \"nan s\" is not a finite number\n --> "
              "--set:1:12\n  |\n1 | run.repeat=nan s\n  |            ^^^^^ use s, min, msec, "
              "h\njob.toml: 1 error, nothing was built\n"),
    job_value("ARepeatOf1e999Seconds", "run.repeat", "1e999 s",
              "2: error: `repeat` is a time, but \"1e999 s\" is not a finite number\n --> "
              "--set:1:12\n  |\n1 | run.repeat=1e999 s\n  |            ^^^^^^^ use s, min, msec, "
              "h\njob.toml: 1 error, nothing was built\n"),
    job_value("ADriveRateOfZero", "drive.rate", "0 Hz",
              "2: error: `rate` must be above 0\n --> --set:1:12\n  |\n1 | drive.rate=0 Hz\n  |    "
              "        ^^^^\njob.toml: 1 error, nothing was built\n"),
    job_value("ANegativeDriveRate", "drive.rate", "-50 Hz",
              "2: error: `rate` must be above 0\n --> --set:1:12\n  |\n1 | drive.rate=-50 Hz\n  |  "
              "          ^^^^^^\njob.toml: 1 error, nothing was built\n"),
    job_value("ADriveRateOf1e9Hz", "drive.rate", "1e9 Hz",
              "2: error: a rate of 1e+09 Hz gives 6.4e+10 samples in a repeat of 64 s\n --> "
              "--set:1:12\n  |\n1 | drive.rate=1e9 Hz\n  |            ^^^^^^ at most 134217728 "
              "samples can be computed\njob.toml: 1 error, nothing was built\n"),
    job_value(
        "ADriveRateOf1eMinus9Hz", "drive.rate", "1e-9 Hz",
        "2: error: a rate of 1e-09 Hz gives no sample in a repeat of 64 s\n --> --set:1:12\n  |\n1 "
        "| drive.rate=1e-9 Hz\n  |            ^^^^^^^\njob.toml: 1 error, nothing was built\n"),
    job_value("ARampOf1e300Seconds", "drive.ramp", "1e300 s",
              "2: error: a ramp of 1e+300 s is longer than half the repeat of 64 s\n --> "
              "--set:1:12\n  |\n1 | drive.ramp=1e300 s\n  |            ^^^^^^^\njob.toml: 1 error, "
              "nothing was built\n"),
    job_value("ANegativeRamp", "drive.ramp", "-1 s",
              "2: error: `ramp` must not be negative\n --> --set:1:12\n  |\n1 | drive.ramp=-1 s\n  "
              "|            ^^^^\njob.toml: 1 error, nothing was built\n"),
    job_value("AFrequencyOf1e300Hz", "sea.1.wave.1.f", "1e300 Hz", "0: "),
    job_value(
        "ANegativeFrequency", "sea.1.wave.1.f", "-0.5 Hz",
        "2: error: `f` must be above 0\n --> --set:1:16\n  |\n1 | sea.1.wave.1.f=-0.5 Hz\n  | "
        "               ^^^^^^^\njob.toml: 1 error, nothing was built\n"),
    job_value(
        "AFrequencyOfZero", "sea.1.wave.1.f", "0 Hz",
        "2: error: `f` must be above 0\n --> --set:1:16\n  |\n1 | sea.1.wave.1.f=0 Hz\n  |    "
        "            ^^^^\njob.toml: 1 error, nothing was built\n"),
    job_value("AnAmplitudeOf1e300Metres", "sea.1.wave.1.a", "1e300 m",
              "2: error: the drive signals cannot be built: Unmatched zero crossings\n --> "
              "job.toml\n  = a signal jumps from beyond one limit to beyond the other: a lower "
              "wave or a higher rate\njob.toml: 1 error, nothing was built\n"),
    job_value("AnAmplitudeOf2e154Metres", "sea.1.wave.1.a", "2e154 m", no_variance),
    job_value("AnAmplitudeOf1e160Metres", "sea.1.wave.1.a", "1e160 m", no_variance),
    job_value("AnAmplitudeOf1e250Metres", "sea.1.wave.1.a", "1e250 m", no_variance),
    job_value("AnAmplitudeOf1e308Metres", "sea.1.wave.1.a", "1e308 m", no_variance),
    job_lines("AGainThatOverflows", text(change("GainAdjust", "formula = \"exp(500)\"")),
              no_variance),
    job_value("APhaseOf1e300Degrees", "sea.1.wave.1.phase", "1e300 deg", "0: "),
    job_value("AnAngleOf1e300Degrees", "sea.1.wave.1.angle", "1e300 deg", "0: "),
    job_value("APlaceOutsideTheTank", "sea.1.holds.x", "1e300 m",
              "2: error: `x` lies outside the tank, which reaches from 0 to 25 m\n --> "
              "--set:1:15\n  |\n1 | sea.1.holds.x=1e300 m\n  |               ^^^^^^^\njob.toml: 1 "
              "error, nothing was built\n"),
    job_value("ATimeOf1e300Seconds", "sea.1.holds.t", "1e300 s", "0: "),
    job_value(
        "ATimeOf1e308Seconds", "sea.1.holds.t", "1e308 s",
        "2: error: the waves cannot be built: Front set::t = 1e+308 s or y = 0 m is too large: "
        "the phase at the paddles is not finite\n --> job.toml:2:1\n  |\n2 | [run]\n  | "
        "^^^^^\njob.toml: 1 error, nothing was built\n"),
    job_value(
        "AUnitOfAHundredKilobytes", "run.repeat", "1 " + std::string(100'000, 'x'),
        error_in_long_line("`repeat` is a time, but \"1 " + std::string(500, 'x'), "--set",
                           "run.repeat=1 " + std::string(500, 'x'), 12, "use s, min, msec, h")),
    job_lines("APointRateOfZero", text(point("rate = \"0 Hz\"")),
              "2: error: `rate` must be above 0\n  --> job.toml:12:8\n   |\n12 | rate = \"0 Hz\"\n "
              "  |        ^^^^^^\njob.toml: 1 error, nothing was built\n"),
    job_lines("APointRateOf1e9Hz", text(point("rate = \"1e9 Hz\"")),
              "2: error: a rate of 1e+09 Hz gives 6.4e+10 samples in a repeat of 64 s\n  --> "
              "job.toml:12:8\n   |\n12 | rate = \"1e9 Hz\"\n   |        ^^^^^^^^ at most 134217728 "
              "samples can be computed\njob.toml: 1 error, nothing was built\n"),
    job_lines("PointSectorsOf1e9Degrees", text(point("delta_angle = \"1e9 deg\"")),
              "2: error: `delta_angle` must be between 0.1 and 360 deg\n  --> job.toml:12:15\n   "
              "|\n12 | delta_angle = \"1e9 deg\"\n   |               ^^^^^^^^^ the width of a "
              "sector of directions\njob.toml: 1 error, nothing was built\n"),
    job_lines("PointSectorsOf1eMinus12Degrees", text(point("delta_angle = \"1e-12 deg\"")),
              "2: error: `delta_angle` must be between 0.1 and 360 deg\n  --> job.toml:12:15\n   "
              "|\n12 | delta_angle = \"1e-12 deg\"\n   |               ^^^^^^^^^^^ the width of a "
              "sector of directions\njob.toml: 1 error, nothing was built\n"),
    job_lines("NegativePointSectors", text(point("delta_angle = \"-1 deg\"")),
              "2: error: `delta_angle` must be between 0.1 and 360 deg\n  --> job.toml:12:15\n   "
              "|\n12 | delta_angle = \"-1 deg\"\n   |               ^^^^^^^^ the width of a sector "
              "of directions\njob.toml: 1 error, nothing was built\n"),
    job_lines("AFieldRateOfZero", text(field("0 Hz", "0.5 m")),
              "2: error: `rate` must be above 0\n  --> job.toml:10:8\n   |\n10 | rate = \"0 Hz\"\n "
              "  |        ^^^^^^\njob.toml: 1 error, nothing was built\n"),
    job_lines("AFieldOf1e9Frames", text(field("2e7 Hz", "0.5 m")),
              "2: error: a rate of 2e+07 Hz gives 1.28e+09 samples in a repeat of 64 s\n  --> "
              "job.toml:10:8\n   |\n10 | rate = \"2e7 Hz\"\n   |        ^^^^^^^^ at most 134217728 "
              "samples can be computed\njob.toml: 1 error, nothing was built\n"),
    job_lines(
        "AFieldInStepsOfANanometre", text(field("5 Hz", "1e-9 m")),
        "2: error: the field has 3e+10 points\n --> job.toml:9:1\n  |\n9 | [field]\n  | ^^^^^^^ at "
        "most 4.29e+09 can be computed: a larger step\njob.toml: 1 error, nothing was built\n"),
    job_lines("AFieldOfNineteenTerabytes", text(field("50 Hz", "1e-8 m")),
              "2: error: the field needs 19000 GB, which this machine does not have\n --> "
              "job.toml:9:1\n  |\n9 | [field]\n  | ^^^^^^^ a larger step or a lower rate needs "
              "less\njob.toml: 1 error, nothing was built\n"),
    job_lines("AFieldInNegativeSteps", text(field("5 Hz", "-1 m")),
              "2: error: `step` must be above 0\n  --> job.toml:11:41\n   |\n11 | x = { from = \"0 "
              "m\", to = \"10 m\", step = \"-1 m\" }\n   |                                         "
              "^^^^^^\njob.toml: 1 error, nothing was built\n"),
    job_lines("ASweepInStepsOf1eMinus12Degrees",
              text(change("AngleSweep", "formula = \"1\"\ndelta_angle = \"1e-12 deg\"")),
              "2: error: `delta_angle` must be between 0.001 and 360 deg\n  --> job.toml:12:15\n   "
              "|\n12 | delta_angle = \"1e-12 deg\"\n   |               ^^^^^^^^^^^ the step "
              "between two directions\njob.toml: 1 error, nothing was built\n"),
    job_lines("ASweepInStepsOf1e9Degrees",
              text(change("AngleSweep", "formula = \"1\"\ndelta_angle = \"1e9 deg\"")),
              "2: error: `delta_angle` must be between 0.001 and 360 deg\n  --> job.toml:12:15\n   "
              "|\n12 | delta_angle = \"1e9 deg\"\n   |               ^^^^^^^^^ the step between "
              "two directions\njob.toml: 1 error, nothing was built\n"),
    job_lines("ASweepInStepsOfZero",
              text(change("AngleSweep", "formula = \"1\"\ndelta_angle = \"0 deg\"")),
              "2: error: `delta_angle` must be between 0.001 and 360 deg\n  --> job.toml:12:15\n   "
              "|\n12 | delta_angle = \"0 deg\"\n   |               ^^^^^^^ the step between two "
              "directions\njob.toml: 1 error, nothing was built\n"),
    job_lines("ASweepInNegativeSteps",
              text(change("AngleSweep", "formula = \"1\"\ndelta_angle = \"-1 deg\"")),
              "2: error: `delta_angle` must be between 0.001 and 360 deg\n  --> job.toml:12:15\n   "
              "|\n12 | delta_angle = \"-1 deg\"\n   |               ^^^^^^^^ the step between two "
              "directions\njob.toml: 1 error, nothing was built\n"),
    job_lines("ASpreadOfAPowerOf1e9",
              text(change("AngleSpread",
                          "formula = \"1000000000\"\nangle = \"0 deg\"\nfunction = \"CosS\"")),
              "2: error: the waves cannot be built: Spreading power::1e+09 is out of range\n --> "
              "job.toml:9:3\n  |\n9 |   [[sea.change]]\n  |   ^^^^^^^^^^^^^^\njob.toml: 1 error, "
              "nothing was built\n"),
    job_lines(
        "ASpreadAbout1e300Degrees",
        text(change("AngleSpread", "formula = \"2\"\nangle = \"1e300 deg\"\nfunction = \"CosS\"")),
        "2: error: `angle` is not between -60 and 60 deg\n  --> job.toml:12:9\n   |\n12 | angle = "
        "\"1e300 deg\"\n   |         ^^^^^^^^^^^ the limits of the site, or `min_angle` and "
        "`max_angle`\njob.toml: 1 error, nothing was built\n"),
    job_lines("NoiseOf1e9Hz", text(change("PhaseWNoise", "rate = \"1e9 Hz\"")),
              "2: error: a rate of 1e+09 Hz gives 6.4e+10 samples in a repeat of 64 s\n  --> "
              "job.toml:11:10\n   |\n11 |   rate = \"1e9 Hz\"\n   |          ^^^^^^^^ at most "
              "134217728 samples can be computed\njob.toml: 1 error, nothing was built\n"),
    job_lines("NoiseOfZeroHz", text(change("PhaseWNoise", "rate = \"0 Hz\"")),
              "2: error: `rate` must be above 0\n  --> job.toml:11:10\n   |\n11 |   rate = \"0 "
              "Hz\"\n   |          ^^^^^^\njob.toml: 1 error, nothing was built\n"),
    job_lines(
        "AFormulaOfTenMegabytes",
        [] { return change("GainAdjust", "formula = \"1" + repeated("+1", 5 * million) + "\""); },
        "2: error: the formula has 10000001 characters\n  --> job.toml:11:13\n   |\n11 |   formula "
        "= "
        "\"1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1."
        "..\n   |             "
        "^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^ "
        "at most 100000 can be read; tables of values belong in a CSV file\njob.toml: 1 error, "
        "nothing was built\n"),
    job_lines(
        "AFormulaOfAMillionBrackets",
        [] { return change("GainAdjust", "formula = \"" + std::string(million, '(') + "\""); },
        "2: error: the formula has 1000000 characters\n  --> job.toml:11:13\n   |\n11 |   formula "
        "= "
        "\"(((((((((((((((((((((((((((((((((((((((((((((((((((((((((((((((((((((((((((((((((((((((."
        "..\n   |             "
        "^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^ "
        "at most 100000 can be read; tables of values belong in a CSV file\njob.toml: 1 error, "
        "nothing was built\n"),
};
INSTANTIATE_TEST_SUITE_P(JobValue, HazardTest, testing::ValuesIn(values), row_name);

}  // namespace
}  // namespace Testing
