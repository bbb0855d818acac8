#include "fuzz/native/words.h"

namespace Fuzz {

const std::vector<std::string>& words() {
  static const std::vector<std::string> list = {
      // Parameters.
      "repeat", "dalrymple", "wave_merge", "ran_gen", "seed", "x", "y", "t", "f", "a", "angle",
      "phase", "scale_ratio", "rate", "ramp_time", "ramp_type", "delta_angle", "function",
      "max_angle", "min_angle", "set", "delta_x", "x_step", "y_step", "x_min", "x_max", "y_min",
      "y_max", "start_time", "stop_time", "freq", "correction", "gain", "hs", "fp",
      // Units.
      "s", "msec", "min", "Hz", "m", "mm", "ft", "deg", "rad", "m2s", "ms", "rad/s", "V", "",
      "m/s2", "kg/m3",
      // Enumerations.
      "Bool", "True", "False", "WaveMerge", "Null", "RMS", "Random", "RanGen", "Default",
      "FullRandom", "Window", "Hamming", "Ramp", "None", "Linear", "SpreadFunc", "CosS", "Cos2S",
      "WaveMod", "GainAdjust", "AngleSweep", "AngleSpread", "AngleChange", "AngleSet",
      "PhaseRandom", "PhaseWNoise", "PhaseSet", "PhaseChange", "Geometry", "NoSides", "DataMod",
      // Formulas without NaN.
      "0.1@Hz#0.001@m2s#2@Hz", "0.2@Hz#0.01*$[Hz]@ms#1@Hz", "0@s#0.02*sin(3*$[s])@m#8@s",
      "0@s#0.02@m#4@s#0.01@m#8@s", "2", "1#0.8@Hz#2", "cos($[rad])^2", "30@deg", "0.2*$[Hz]@rad",
      // Other formulas.
      "0.2@Hz#5/16*hs[m]^2*fp[Hz]^4/$[Hz]^5*exp(0-1.25*(fp[Hz]/$[Hz])^4)@m2s#2@Hz",
      "0.1@Hz#0-1@m2s#2@Hz", "0@s#1/($[s]-1)@m#8@s", "log(0-$[Hz])", "tgamma($[Hz])",
      "0.1@Hz#1/$[Hz]@m#1@Hz", "1#0.8@Hz#2#", "#", "@", "1@furlong",
      // Sites.
      "flume.site", "basin.site", "shelf.site", "dry.site", "broken.site", "missing.site",
      // Other texts.
      "run", "sea", "wave", "w\xC3\xA4ve", "\xE6\xB3\xA2", "\xF0\x9F\x8C\x8A", "\xFF\xFE", "a b",
      "Forward free fundamental", "Hs", "Ts", "reg_t", "null"};
  return list;
}

const std::vector<std::string>& sane_numbers() {
  static const std::vector<std::string> list = {"0",
                                                "1",
                                                "2",
                                                "0.5",
                                                "8",
                                                "16",
                                                "4",
                                                "20",
                                                "50",
                                                "0.02",
                                                "0.1",
                                                "0.3",
                                                "-0.3",
                                                "-1",
                                                "3",
                                                "0.75",
                                                "1.5",
                                                "-0.75",
                                                "1e-3",
                                                "12",
                                                "30",
                                                "0.25",
                                                "10",
                                                "0.05",
                                                "1.6",
                                                "-0.5",
                                                "0.4",
                                                "1e-6",
                                                "1e-12",
                                                "1e12",
                                                "100",
                                                "6.28",
                                                "-20",
                                                "3.14159265358979312",
                                                "1.57079632679489656"};
  return list;
}

const std::vector<std::string>& odd_numbers() {
  static const std::vector<std::string> list = {
      "-0",   "2147483647", "2147483648", "-2147483649", "4294967296", "67108865", "1e9",  "-1e12",
      "1e16", "1e19",       "1e30",       "1e50",        "-1e50",      "1e-30",    "1e-50"};
  return list;
}

const std::vector<std::string>& wild_numbers() {
  static const std::vector<std::string> list = {"nan",    "inf",    "-inf",   "5e-324",
                                                "1e-310", "1e308",  "-1e308", "1.8e308",
                                                "1e300",  "1e-300", "1e154",  "0x1p-1022"};
  return list;
}

const std::vector<std::string>& odd_integers() {
  static const std::vector<std::string> list = {"-1",
                                                "2147483647",
                                                "-2147483648",
                                                "4294967295",
                                                "4294967296",
                                                "9223372036854775807",
                                                "-9223372036854775808",
                                                "1000",
                                                "65536",
                                                "99",
                                                "0x80000000",
                                                "1152921504606846975"};
  return list;
}

}  // namespace Fuzz
