#include "outputs/bank_layout.h"

#include "base/params.h"
#include "outputs/number_text.h"

namespace Outputs {

std::vector<PaddlePlace> bank_layout(Jobs::Run& run, std::uint32_t bank) {
  std::vector<PaddlePlace> places(run.experiment.paddle_bank_size(bank));
  for (std::uint32_t paddle = 0; paddle < places.size(); ++paddle) {
    Base::Params params;
    run.experiment.paddle_info(bank, paddle, params);
    PaddlePlace& place = places[paddle];
    place.number = static_cast<std::int32_t>(params.read("paddle_num", Base::Category::unit));
    place.x = params.read("x", Base::Category::length);
    place.y = params.read("y", Base::Category::length);
    place.angle = params.read("angle", Base::Category::angle);
  }
  return places;
}

std::string signal_meaning(const std::string& units) {
  return units == "rad" ? "rotation of the flap about its hinge, positive into the water"
                        : "stroke of the piston, positive into the water";
}

std::string ramp_text(const Jobs::DriveRequest& drive) {
  if (drive.ramp == 0.0) return "no ramp: the first sample follows the last one";
  return "ramp " + number_text(drive.ramp) + " s at both ends (cosine taper)";
}

}  // namespace Outputs
