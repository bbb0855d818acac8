#include "outputs/summary_parts.h"

#include <cstddef>
#include <nlohmann/json.hpp>
#include <utility>

#include "outputs/plain_text.h"

namespace Outputs {
namespace {

using Json = nlohmann::ordered_json;

Json bank_json(const PlanBank& bank) {
  Json paddles{{"number", Json::array()},
               {"x", Json::array()},
               {"y", Json::array()},
               {"angle", Json::array()}};
  for (const PaddlePlace& paddle : bank.paddles) {
    paddles["number"].push_back(paddle.number);
    paddles["x"].push_back(paddle.x);
    paddles["y"].push_back(paddle.y);
    paddles["angle"].push_back(paddle.angle);
  }
  Json object;
  object["name"] = plain_text(bank.name);
  object["machine"] = bank.machine;
  object["paddle_width"] = bank.paddle_width;
  object["paddles"] = std::move(paddles);
  return object;
}

}  // namespace

Json plan_json(const TankPlan& plan) {
  Json object;
  object["x"] = Json::array({plan.min_x, plan.max_x});
  object["y"] = Json::array({plan.min_y, plan.max_y});
  object["walls"] = plan.walls;
  object["profile"] = {{"x", Json::array()}, {"depth", Json::array()}};
  for (const Maths::ProfilePoint& point : plan.profile) {
    object["profile"]["x"].push_back(point.x);
    object["profile"]["depth"].push_back(point.depth);
  }
  object["banks"] = Json::array();
  for (const PlanBank& bank : plan.banks) object["banks"].push_back(bank_json(bank));
  return object;
}

Json spectrum_json(const Jobs::SeaSpectrum& spectrum) {
  Json object;
  object["at"] = {{"x", spectrum.at.x}, {"y", spectrum.at.y}};
  object["harmonics"] = spectrum.harmonics;
  object["f"] = spectrum.f;
  object["made"] = spectrum.made;
  if (!spectrum.asked.empty()) object["asked"] = spectrum.asked;
  object["lines"] = Json::array();
  for (const Jobs::AskedLine& line : spectrum.lines) {
    object["lines"].push_back({{"f", line.frequency}, {"a", line.amplitude}});
  }
  return object;
}

Json directions_json(const Jobs::SeaDirections& directions) {
  Json object;
  object["f"] = directions.f;
  object["angle"] = Json::array();
  for (std::size_t i = 0; i <= Jobs::sector_count; ++i) {
    object["angle"].push_back(Jobs::sector_edge(i));
  }
  object["variance"] = directions.variance;
  if (directions.asked) object["asked"] = *directions.asked;
  return object;
}

}  // namespace Outputs
