#include <nlohmann/json.hpp>

#include "cli/site_report.h"
#include "outputs/main_points.h"

namespace Cli {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t most_points = 1000;

// {"units": "m", "minimum": ..., "maximum": ...}
Json range(const char* units, double minimum, double maximum) {
  Json json;
  json["units"] = units;
  json["minimum"] = minimum;
  json["maximum"] = maximum;
  return json;
}

Json value(const std::string& units, double number) {
  Json json;
  json["value"] = number;
  json["units"] = units;
  return json;
}

Json bank_json(const SiteBank& bank) {
  Json json;
  json["name"] = bank.name;
  json["machine"] = bank.machine;
  json["paddles"] = bank.paddles;
  json["paddle_width"] = value("m", bank.width);
  json["spacing"] = range("m", bank.min_spacing, bank.max_spacing);
  json["edge_below_water"] = value("m", bank.edge);
  json["first_paddle"]["x"] = bank.x_first;
  json["first_paddle"]["y"] = bank.y_first;
  json["last_paddle"]["x"] = bank.x_last;
  json["last_paddle"]["y"] = bank.y_last;
  json["angle"] = range("rad", bank.min_angle, bank.max_angle);
  json["motion"] = range(bank.limit_units.c_str(), bank.minimum, bank.maximum);
  json["motion"]["clip"] = bank.clip;
  json["constants"] = Json::object();
  for (const SiteConstant& constant : bank.constants) {
    json["constants"][constant.name] = value(constant.units, constant.value);
  }
  return json;
}

}  // namespace

std::string site_json(const SiteReport& report) {
  Json json;
  json["site"] = report.site;
  json["tank"] = report.tank;
  json["config"] = report.config;
  json["identity"] = report.identity;
  json["x"] = range("m", report.min_x, report.max_x);
  json["y"] = range("m", report.min_y, report.max_y);
  json["walls"] = report.walls;
  json["depth_at_paddles"] = value("m", report.paddle_depth);
  json["profile"]["units"] = "m";
  json["profile"]["x"] = Json::array();
  json["profile"]["depth"] = Json::array();
  for (const Maths::ProfilePoint& point : Outputs::main_points(report.profile, most_points, 0.0)) {
    json["profile"]["x"].push_back(point.x);
    json["profile"]["depth"].push_back(point.depth);
  }
  const std::string obstacle = why_no_wave(report);
  json["no_wave"] = obstacle.empty() ? Json() : Json(obstacle);
  json["frequency"] = range("Hz", report.min_frequency, report.max_frequency);
  json["angle"] = range("rad", report.min_angle, report.max_angle);
  json["base_rate"] = value("Hz", report.base_rate);
  json["gravity"] = value("m/s2", report.gravity);
  json["tunables"] = Json::object();
  for (const Tunable& tunable : report.tunables) {
    Json& one = json["tunables"][tunable.name];
    one = value(tunable.units, tunable.value);
    one["minimum"] = tunable.minimum;
    one["maximum"] = tunable.maximum;
  }
  json["banks"] = Json::array();
  for (const SiteBank& bank : report.banks) json["banks"].push_back(bank_json(bank));
  return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace Cli
