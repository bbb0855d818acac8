#include "jobs/show_number.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "base/constants.h"

namespace Jobs {
namespace {

// The exponent of the first digit after rounding: 2 for 99.96 with three digits.
int exponent_of(double value, int digits) {
  const std::string text = fmt::format("{:.{}e}", std::fabs(value), digits - 1);
  return std::stoi(text.substr(text.find('e') + 1));
}

void drop_zeros(std::string& text) {
  if (text.find('.') == std::string::npos) return;
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
}

bool takes_milli(const std::string& units) {
  return units == "m" || units == "m/s" || units == "m/s2" || units == "rad";
}

}  // namespace

std::string show_number(double value, int digits, Zeros zeros) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value > 0 ? "infinite" : "-infinite";
  if (value == 0.0) return "0";
  const int exponent = exponent_of(value, digits);
  if (exponent < -6 || exponent > 8) return fmt::format("{:.{}e}", value, digits - 1);
  const int decimals = digits - 1 - exponent;
  if (decimals < 0) {
    const double unit = std::pow(10.0, -decimals);
    return fmt::format("{:.0f}", std::round(value / unit) * unit);
  }
  std::string text = fmt::format("{:.{}f}", value, decimals);
  if (zeros == Zeros::drop) drop_zeros(text);
  return text;
}

std::string show_quantity(double value, const std::string& units, int digits, Zeros zeros) {
  if (units == "1" || units.empty()) return show_number(value, digits, zeros);
  const bool small = value != 0.0 && std::isfinite(value) && exponent_of(value, digits) < 0;
  if (small && units == "m2") return show_number(value * 1e6, digits, zeros) + " mm2";
  if (small && takes_milli(units)) return show_number(value * 1e3, digits, zeros) + " m" + units;
  return show_number(value, digits, zeros) + " " + units;
}

std::string show_direction(double radians) {
  if (!std::isfinite(radians)) return show_number(radians, 3) + " deg";
  const std::string text = fmt::format("{:.1f} deg", radians / Base::Pi * 180.0);
  return text == "-0.0 deg" ? "0.0 deg" : text;
}

std::string show_time(double seconds) {
  if (!std::isfinite(seconds)) return show_number(seconds, 3) + " s";
  return fmt::format("{:.{}f} s", seconds, std::fabs(seconds) < 10.0 ? 2 : 1);
}

std::string show_share(double share, Zeros zeros) {
  const double percent = share * 100.0;
  if (!std::isfinite(percent)) return show_number(percent, 2) + " %";
  if (std::fabs(percent) >= 9.95) return fmt::format("{:.0f} %", percent);
  return show_number(percent, std::fabs(percent) < 1.0 ? 1 : 2, zeros) + " %";
}

}  // namespace Jobs
