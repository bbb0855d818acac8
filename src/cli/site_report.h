// What `kelpbox site` shows of a site.
#ifndef KELPBOX_CLI_SITE_REPORT_H_
#define KELPBOX_CLI_SITE_REPORT_H_

#include <cstdint>
#include <string>
#include <vector>

#include "facade/experiment.h"
#include "maths/tank_config.h"

namespace Cli {

// NaN where the script gives no value.
struct Tunable {
  std::string name;
  std::string units;
  double value = 0.0;
  double minimum = 0.0;
  double maximum = 0.0;
};

struct SiteConstant {
  std::string name;
  std::string units;
  double value = 0.0;
};

struct SiteBank {
  std::string name;
  std::string machine;  // "flap" or "piston"
  std::uint32_t paddles = 0;
  double width = 0.0;        // m, of a paddle
  double min_spacing = 0.0;  // m, between the middles of neighbours; NaN for a single paddle
  double max_spacing = 0.0;
  double edge = 0.0;                    // m, of hinge or foot below the water
  double x_first = 0.0, y_first = 0.0;  // m, the middles of the first and
  double x_last = 0.0, y_last = 0.0;    // the last paddle
  double min_angle = 0.0;               // rad, of the paddles' normals
  double max_angle = 0.0;
  std::string limit_units;
  double minimum = 0.0, maximum = 0.0, clip = 0.0;  // of the motion, in limit_units
  std::vector<SiteConstant> constants;
};

struct SiteReport {
  std::string site, tank, config, identity;
  double min_x = 0.0, max_x = 0.0, min_y = 0.0, max_y = 0.0;  // m
  std::string walls;                                // "plus", "minus", "both", "none", "flume"
  std::vector<Maths::ProfilePoint> profile;         // the whole
  double paddle_depth = 0.0;                        // m
  double min_frequency = 0.0, max_frequency = 0.0;  // Hz
  double min_angle = 0.0, max_angle = 0.0;          // rad
  double base_rate = 0.0;                           // Hz
  double gravity = 0.0;                             // m/s2
  std::vector<Tunable> tunables;
  std::vector<SiteBank> banks;
};

// Of an experiment that has read its site.
SiteReport site_report(Kelpbox::Experiment& experiment);

// Why no wave can be made in the tank, or an empty text.
std::string why_no_wave(const SiteReport& report);  // site_text.cpp

std::string site_text(const SiteReport& report);  // site_text.cpp
std::string site_json(const SiteReport& report);  // site_json.cpp

}  // namespace Cli

#endif  // KELPBOX_CLI_SITE_REPORT_H_
