#include "unit_facts.h"

#include <cmath>
#include <numbers>

namespace {

constexpr double two_pi = 2.0 * std::numbers::pi;

constexpr double inch = 0.0254;
constexpr double foot = 12 * inch;
constexpr double yard = 3 * foot;
constexpr double mile = 1760 * yard;
constexpr double nautical_mile = 1852.0;

constexpr double pound = 0.45359237;
constexpr double pound_force = pound * 9.80665;
// The derived units of the table use this rounded pound-force.
constexpr double rounded_pound_force = 4.448;
constexpr double poundal = pound * foot;

// The table holds fluid measures at ten times their true size, and gallons as eight rounded pints.
constexpr double imperial_pint = 10 * 0.00454609 / 8;
constexpr double us_pint = 10 * 231 * inch * inch * inch / 8;
constexpr double rounded_imperial_pint = 0.0056826;
constexpr double rounded_us_pint = 0.0047318;

}  // namespace

double UnitFact::tolerance() const {
  const auto e = written.find('e');
  const std::string mantissa = written.substr(0, e);
  const int exponent = e == std::string::npos ? 0 : std::stoi(written.substr(e + 1));
  const auto point = mantissa.find('.');
  const int decimals =
      point == std::string::npos ? 0 : static_cast<int>(mantissa.size() - point - 1);
  return 0.5001 * std::pow(10.0, exponent - decimals);
}

const std::vector<UnitFact>& unit_facts() {
  // clang-format off
  static const std::vector<UnitFact> facts = {
      {"Error", {}, 0, 0, "1.0", 1.0},
      {"", {"unit"}, 1, 1, "1.0", 1.0},
      // Lengths, in metres.
      {"thou", {}, 2, 1, "2.54e-05", inch / 1000},
      {"in", {}, 2, 1, "0.0254", inch},
      {"ft", {}, 2, 1, "0.3048", foot},
      {"yd", {}, 2, 1, "0.9144", yard},
      {"mi", {}, 2, 1, "1609.34", mile},
      {"nm", {}, 2, 1, "1852.0", nautical_mile},
      {"m", {}, 2, 1, "1.0", 1.0},
      // Velocities, in metres per second.
      {"in/s", {}, 3, 1, "0.0254", inch},
      {"ft/s", {}, 3, 1, "0.3048", foot},
      {"ft/min", {}, 3, 1, "0.00508", foot / 60},
      {"mi/h", {}, 3, 1, "0.44704", mile / 3600},
      {"kn", {}, 3, 1, "0.514444", nautical_mile / 3600},
      {"m/h", {}, 3, 1, "0.000277778", 1.0 / 3600},
      {"m/s", {}, 3, 1, "1.0", 1.0},
      {"ft/s2", {}, 4, 1, "0.3048", foot},
      {"m/s2", {}, 4, 1, "1.0", 1.0},
      // Areas.
      {"in2", {}, 5, 2, "0.00064516", inch * inch},
      {"ft2", {}, 5, 2, "0.092903", foot * foot},
      {"yd2", {}, 5, 2, "0.836127", yard * yard},
      {"m2", {}, 5, 2, "1.0", 1.0},
      // Volumes.
      {"impgal", {}, 6, 1, "0.0454608", 8 * rounded_imperial_pint},
      {"imppt", {}, 6, 1, "0.0056826", imperial_pint},
      {"usgal", {}, 6, 1, "0.0378544", 8 * rounded_us_pint},
      {"uspt", {}, 6, 1, "0.0047318", us_pint},
      {"in3", {}, 6, 3, "1.63871e-05", inch * inch * inch},
      {"ft3", {}, 6, 3, "0.0283168", foot * foot * foot},
      {"yd3", {}, 6, 3, "0.764555", yard * yard * yard},
      {"L", {}, 6, 1, "0.001", 0.001},
      {"m3", {}, 6, 3, "1.0", 1.0},
      // Forces and pressures.
      {"lbf", {}, 7, 1, "4.448", pound_force},
      {"pdl", {}, 7, 1, "0.138255", poundal},
      {"N", {}, 7, 1, "1.0", 1.0},
      {"lbf/in2", {"psi"}, 8, 1, "6894.41", rounded_pound_force / (inch * inch)},
      {"bar", {}, 8, 1, "100000.0", 1e5},
      {"Pa", {"N/m2"}, 8, 1, "1.0", 1.0},
      // Flows.
      {"imppt/hr", {}, 9, 1, "1.5785e-06", rounded_imperial_pint / 3600},
      {"impgal/min", {}, 9, 1, "0.00075768", 8 * rounded_imperial_pint / 60},
      {"imppt/min", {}, 9, 1, "9.471e-05", rounded_imperial_pint / 60},
      {"impgal/s", {}, 9, 1, "0.0454608", 8 * rounded_imperial_pint},
      {"imppt/s", {}, 9, 1, "0.0056826", imperial_pint},
      {"usgal/min", {}, 9, 1, "0.000630907", 8 * rounded_us_pint / 60},
      {"uspt/min", {}, 9, 1, "7.88633e-05", rounded_us_pint / 60},
      {"usgal/s", {}, 9, 1, "0.0378544", 8 * rounded_us_pint},
      {"uspt/s", {}, 9, 1, "0.0047318", us_pint},
      {"ft3/s", {}, 9, 3, "0.0283168", foot * foot * foot},
      {"L/s", {}, 9, 1, "0.001", 0.001},
      {"m3/s", {}, 9, 3, "1.0", 1.0},
      // Times and frequencies.
      {"h", {"hr"}, 10, 1, "3600.0", 3600.0},
      {"min", {}, 10, 1, "60.0", 60.0},
      {"s", {"sec"}, 10, 1, "1.0", 1.0},
      {"Hz", {}, 11, 1, "1.0", 1.0},
      // Amplitude and variance densities.
      {"ins/rad", {}, 12, 1, "0.159593", inch * two_pi},
      {"fts/rad", {}, 12, 1, "1.91511", foot * two_pi},
      {"yds/rad", {}, 12, 1, "5.74534", yard * two_pi},
      {"ms/rad", {}, 12, 1, "6.28319", two_pi},
      {"ins", {}, 12, 1, "0.0254", inch},
      {"fts", {}, 12, 1, "0.3048", foot},
      {"yds", {}, 12, 1, "0.9144", yard},
      {"ms", {"m/Hz"}, 12, 1, "1.0", 1.0},
      {"in2s/rad", {}, 13, 2, "0.00405366", inch * inch * two_pi},
      {"ft2s/rad", {}, 13, 2, "0.583727", foot * foot * two_pi},
      {"yd2s/rad", {}, 13, 2, "5.25354", yard * yard * two_pi},
      {"m2s/rad", {}, 13, 2, "6.28319", two_pi},
      {"in2s", {}, 13, 2, "0.00064516", inch * inch},
      {"ft2s", {}, 13, 2, "0.092903", foot * foot},
      {"yd2s", {}, 13, 2, "0.836127", yard * yard},
      {"m2s", {"m2/Hz"}, 13, 2, "1.0", 1.0},
      // Masses, in kilograms; the ton is the long ton.
      {"ton", {}, 14, 1, "1016.05", 2240 * pound},
      {"lb", {}, 14, 1, "0.453592", pound},
      {"oz", {}, 14, 1, "0.0283495", pound / 16},
      {"g", {}, 14, 1, "0.001", 0.001},
      // Energy, and power; the horsepower is 550 foot pounds per second.
      {"Wh", {}, 15, 1, "3600.0", 3600.0},
      {"J", {}, 15, 1, "1.0", 1.0},
      {"hp", {}, 16, 1, "745.7", 550 * foot * pound_force},
      {"W", {}, 16, 1, "1.0", 1.0},
      // Angles and their rates; r is a revolution.
      {"deg", {}, 17, 1, "0.0174533", two_pi / 360},
      {"rad", {}, 17, 1, "1.0", 1.0},
      {"r/min", {"rpm"}, 18, 1, "0.10472", two_pi / 60},
      {"r/s", {}, 18, 1, "6.28319", two_pi},
      {"rad/s", {}, 18, 1, "1.0", 1.0},
      {"inlb", {}, 19, 1, "0.112979", inch * rounded_pound_force},
      {"ftlb", {}, 19, 1, "1.35575", foot * rounded_pound_force},
      {"Nm", {}, 19, 1, "1.0", 1.0},
      {"lb/ft3", {}, 20, 1, "16.0185", pound / (foot * foot * foot)},
      {"g/m3", {}, 20, 1, "0.001", 0.001},
      {"rad/m", {}, 21, 1, "1.0", 1.0},
      {"V", {}, 22, 1, "1.0", 1.0},
      {"A", {}, 23, 1, "1.0", 1.0},
  };
  // clang-format on
  return facts;
}

const std::vector<PrefixFact>& prefix_facts() {
  static const std::vector<PrefixFact> facts = {{"", 1.0},   {"G", 1e9},  {"M", 1e6},  {"k", 1e3},
                                                {"h", 1e2},  {"d", 1e-1}, {"c", 1e-2}, {"m", 1e-3},
                                                {"u", 1e-6}, {"p", 1e-9}};
  return facts;
}

const std::vector<std::string>& default_unit_facts() {
  static const std::vector<std::string> facts = {
      "",    "m",  "m/s", "m/s2", "m2",  "m3",    "N",  "Pa",    "m3/s",  "s", "Hz", "ms",
      "m2s", "Mg", "J",   "W",    "rad", "rad/s", "Nm", "Mg/m3", "rad/m", "V", "A"};
  return facts;
}
