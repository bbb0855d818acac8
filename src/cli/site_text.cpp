#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "cli/site_report.h"
#include "outputs/main_points.h"

namespace Cli {

namespace {

constexpr double degrees = 180.0 / 3.14159265358979323846;
constexpr std::size_t most_points = 10;
constexpr double tolerance = 0.005;

std::string number(double value) {
  if (std::isnan(value)) return "not set";
  if (std::isinf(value)) return value > 0 ? "infinite" : "minus infinite";
  return fmt::format("{:.6g}", value);
}

// A computed value, which is NaN where it cannot be computed.
std::string computed(double value, const char* form) {
  if (std::isnan(value)) return "none";
  return std::isinf(value) ? number(value) : fmt::format(fmt::runtime(form), value);
}

std::string with_units(double value, const std::string& units) {
  return units.empty() || std::isnan(value) ? number(value) : number(value) + " " + units;
}

std::string range(double from, double to, const std::string& units) {
  if (number(from) == number(to)) return with_units(from, units);
  return number(from) + " to " + with_units(to, units);
}

std::string line(const std::string& name, const std::string& text) {
  return fmt::format("{:<11}{}\n", name, text);
}

std::string inner(const std::string& name, const std::string& text) {
  return fmt::format("             {:<10}{}\n", name, text);
}

std::string walls_text(const SiteReport& report) {
  const std::string plus = "y = " + with_units(report.max_y, "m");
  const std::string minus = "y = " + with_units(report.min_y, "m");
  if (report.walls == "plus") return "the side wall at " + plus + " reflects";
  if (report.walls == "minus") return "the side wall at " + minus + " reflects";
  if (report.walls == "both") return "the side walls at " + minus + " and " + plus + " reflect";
  return report.walls == "flume" ? "a flume: waves run along x" : "no side wall reflects";
}

// Two rows, of positions and of depths, with columns of equal width.
std::string depth_rows(const std::vector<Maths::ProfilePoint>& points) {
  std::string positions, depths;
  for (const Maths::ProfilePoint& point : points) {
    const std::string x = fmt::format("{:.4g}", point.x);
    const std::string depth = computed(point.depth, "{:.3g}");
    const std::size_t width = std::max(x.size(), depth.size()) + 2;
    positions += fmt::format("{:>{}}", x, width);
    depths += fmt::format("{:>{}}", depth, width);
  }
  return inner("at x", positions + "  m") + inner("depth", depths + "  m");
}

std::string place_text(const SiteBank& bank) {
  std::string text = "x = " + range(bank.x_first, bank.x_last, "m") +
                     ", y = " + range(bank.y_first, bank.y_last, "m");
  if (bank.paddles > 1) text += ", every " + range(bank.min_spacing, bank.max_spacing, "m");
  return text + ", facing " + range(bank.min_angle * degrees, bank.max_angle * degrees, "deg");
}

std::string edge_text(const SiteBank& bank, double depth) {
  constexpr double same = 1e-9;  // of the depth
  const std::string text = with_units(bank.edge, "m") + " below the water line";
  if (bank.edge > depth * (1 + same)) return text + ", which is below the bed";
  return bank.edge > depth * (1 - same) ? text + ", at the bed" : text;
}

std::string bank_text(const SiteBank& bank, std::size_t index, double depth) {
  const bool many = bank.paddles != 1;
  std::string text =
      line(fmt::format("bank {}", index),
           fmt::format("{}: {} {}{}, {}{} wide", bank.name, bank.paddles, bank.machine,
                       many ? "s" : "", many ? "each " : "", with_units(bank.width, "m")));
  text += inner(bank.machine == "flap" ? "hinge" : "foot", edge_text(bank, depth));
  text += inner("place", place_text(bank));
  text += inner("motion", range(bank.minimum, bank.maximum, bank.limit_units) +
                              ", counts as clipped at " + with_units(bank.clip, bank.limit_units));
  for (const SiteConstant& constant : bank.constants) {
    text += inner("constant", constant.name + " = " + with_units(constant.value, constant.units));
  }
  return text;
}

}  // namespace

std::string why_no_wave(const SiteReport& report) {
  const auto positive = [](double value) { return value > 0.0 && std::isfinite(value); };
  if (!positive(report.paddle_depth))
    return "the depth at the paddle line is not above 0 and finite";
  if (!positive(report.base_rate)) return "base_rate is not above 0 and finite";
  if (!positive(report.gravity)) return "base_g is not above 0 and finite";
  return "";
}

std::string site_text(const SiteReport& report) {
  std::string text = report.site + ", " + report.tank + ", " + report.config + "\n\n";
  text += line("identity", report.identity);
  text += line("tank", "x = " + range(report.min_x, report.max_x, "m") + ", y = " +
                           range(report.min_y, report.max_y, "m") + "; " + walls_text(report));
  const std::string obstacle = why_no_wave(report);
  if (!obstacle.empty()) text += line("note", "no wave can be made here: " + obstacle);
  const bool deep = !std::isnan(report.paddle_depth);
  text += line("depth", (deep ? with_units(report.paddle_depth, "m") : "none") +
                            " at the paddle line, x = 0");
  text += depth_rows(Outputs::main_points(report.profile, most_points, tolerance));
  text += line("waves", range(report.min_frequency, report.max_frequency, "Hz") + ", " +
                            range(report.min_angle * degrees, report.max_angle * degrees, "deg"));
  text += line("base rate", with_units(report.base_rate, "Hz"));
  text += line("gravity", with_units(report.gravity, "m/s2"));
  for (const Tunable& tunable : report.tunables) {
    text += line("tunable", fmt::format("{} = {}, from {}", tunable.name,
                                        with_units(tunable.value, tunable.units),
                                        range(tunable.minimum, tunable.maximum, tunable.units)));
  }
  std::size_t index = 1;
  for (const SiteBank& bank : report.banks) {
    text += "\n" + bank_text(bank, index++, report.paddle_depth);
  }
  return text;
}

}  // namespace Cli
