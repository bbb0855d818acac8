// One wave, and a group of waves that meet in one crest.
#include <algorithm>
#include <string>

#include "jobs/ready_parts.h"
#include "jobs/ready_peaked.h"

namespace Jobs::Ready {

namespace {

ReadyParameter angle_of_zero(const std::string& name, const std::string& meaning) {
  ReadyParameter angle = number(name, "deg", meaning);
  angle.fallback = "0 deg";
  return angle;
}

ReadySea regular() {
  ReadySea sea;
  sea.name = "regular";
  sea.title = "Regular, one sine wave";
  sea.source = "linear wave theory";
  sea.makes = ReadySea::Makes::single_wave;
  sea.parameters = {positive("height", "m", "from trough to crest"),
                    positive("period", "s", "from crest to crest"),
                    angle_of_zero("angle", "direction in which it travels"),
                    angle_of_zero("phase", "at the sea's position; 0 for a crest")};
  sea.computed = {positive("a", "m", "half of the height"),
                  positive("f", "Hz", "1 over the period")};
  sea.complete = [](Base::Params& parameters, const ReadyContext&) {
    parameters.insert("a", 0.5 * parameters.get("height", "m"), "m");
    parameters.insert("f", 1.0 / parameters.get("period", "s"), "Hz");
  };
  sea.peak = [](const Base::Params& parameters) { return parameters.get("f", "Hz"); };
  return sea;
}

// The wave group that is most likely around a high crest of a random sea: amplitudes proportional
// to its spectrum, all crests in one place. The crest is the sum of the amplitudes that the run
// makes, so the factor is computed over the run's harmonics and not over all frequencies.
ReadySea focused() {
  ReadySea sea;
  sea.name = "focused";
  sea.title = "Focused, a group with one high crest (NewWave)";
  sea.source =
      "Tromans, Anaturk and Hagemeijer 1991, \"A new model for the kinematics of large ocean waves "
      "- application as a design wave\", with the shape of JONSWAP";
  sea.makes = ReadySea::Makes::amplitude_density;
  sea.formula = between_limits("norm*crest[m]*" + peaked_shape() + "@ms");
  sea.parameters = with_limits(peaked_parameters(
      {positive("crest", "m", "height of the crest above still water, where the sea holds")}));
  sea.computed = {
      number("norm", "", "makes the amplitudes of the run's harmonics add up to the crest")};
  sea.complete = [formula = sea.formula](Base::Params& given, const ReadyContext& context) {
    const FrequencyRange asked = limits_in(given);
    const FrequencyRange made = band_edges(
        {std::max(asked.low, context.min_freq), std::min(asked.high, context.max_freq)}, context);
    const double made_sum = peaked_integral(formula, given, made);
    // A crest of the tail alone would need absurd amplitudes there.
    if (!(made_sum > 0.01 * peaked_integral(formula, given))) {
      throw std::string("tp::less than 1 % of this group lies at frequencies that can be made");
    }
    given.insert("norm", given.get("crest", "m") / made_sum, "");
  };
  sea.peak = peak_of_tp;
  sea.ends_at_limits = true;
  return sea;
}

}  // namespace

std::vector<ReadySea> single_waves() { return {regular(), focused()}; }

}  // namespace Jobs::Ready
