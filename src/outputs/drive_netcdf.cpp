#include "outputs/drive_netcdf.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "outputs/bank_layout.h"
#include "outputs/cf_attributes.h"
#include "outputs/netcdf_file.h"
#include "outputs/plain_text.h"

namespace Outputs {
namespace {

struct BankVariables {
  std::uint32_t bank = 0;
  int number = 0;
  int x = 0;
  int y = 0;
  int angle = 0;
  int signals = 0;
};

// The attributes are not "valid_max" and "valid_min": readers hide values beyond those.
void put_limits(NetcdfFile& file, int variable, const Jobs::BankLimits& limits) {
  file.attribute(variable, "machine_maximum", limits.maximum);
  file.attribute(variable, "machine_minimum", limits.minimum);
  file.attribute(variable, "machine_clip_limit", limits.clip);
}

BankVariables define_bank(NetcdfFile& file, const Jobs::DriveSignals& drive, const TimeAxis& time,
                          std::uint32_t bank) {
  const Jobs::DriveBank& signals = drive.banks()[bank];
  const std::string number = std::to_string(bank + 1);
  const int paddles = file.dimension("paddle_" + number, signals.paddles);
  BankVariables made;
  made.bank = bank;
  made.number = file.variable("paddle_" + number, NetcdfType::int32, {paddles});
  file.attribute(made.number, "long_name", "number of the paddle in the site script");
  made.x = position_variable(file, "x_" + number, "X", paddles);
  made.y = position_variable(file, "y_" + number, "Y", paddles);
  made.angle = file.variable("angle_" + number, NetcdfType::real64, {paddles});
  describe(file, made.angle, "direction of the paddle's normal into the water, from +x towards +y",
           "rad");
  made.signals = file.variable("drive_" + number, NetcdfType::real64, {paddles, time.dimension});
  describe(file, made.signals,
           plain_text("drive signals of bank " + number + ", \"" + signals.name + "\""),
           signals.units);
  file.attribute(made.signals, "coordinates", "x_" + number + " y_" + number + " angle_" + number);
  file.attribute(made.signals, "comment", signal_meaning(signals.units));
  file.attribute(made.signals, "bank_name", plain_text(signals.name));
  put_limits(file, made.signals, signals.limits);
  return made;
}

void put_layout(NetcdfFile& file, Jobs::Run& run, const BankVariables& variables) {
  std::vector<std::int32_t> numbers;
  std::vector<double> x;
  std::vector<double> y;
  std::vector<double> angles;
  for (const PaddlePlace& place : bank_layout(run, variables.bank)) {
    numbers.push_back(place.number);
    x.push_back(place.x);
    y.push_back(place.y);
    angles.push_back(place.angle);
  }
  file.put(variables.number, numbers);
  file.put(variables.x, x);
  file.put(variables.y, y);
  file.put(variables.angle, angles);
}

void put_signal(NetcdfFile& file, const Jobs::DriveSignals& drive, const BankVariables& variables,
                std::uint32_t paddle) {
  constexpr std::size_t largest_block = std::size_t{1} << 14;
  std::vector<double> block;
  for (std::size_t first = 0; first < drive.samples(); first += block.size()) {
    block.resize(std::min(largest_block, drive.samples() - first));
    for (std::size_t i = 0; i < block.size(); ++i) {
      block[i] = drive.sample(variables.bank, paddle, first + i);
    }
    file.put(variables.signals, {paddle, first}, {1, block.size()}, block.data());
  }
}

}  // namespace

void write_drive_netcdf(Jobs::Run& run, const Jobs::DriveSignals& drive, OutputFolder& folder,
                        const Progress& progress) {
  const Step step(progress, "drive.nc");
  NetcdfFile file(folder, "drive.nc");
  put_file_attributes(file, run,
                      "Drive signals of one repeat time. Positive is into the water. x is along "
                      "the tank from the paddle line, y across it.");
  file.attribute(NetcdfFile::global, "repeat_time", run.experiment.repeat(run.definition).value());
  file.attribute(NetcdfFile::global, "ramp_time", run.drive.ramp);
  file.attribute(NetcdfFile::global, "held_at_limits",
                 std::string(run.drive.stop_at_limit ? "yes" : "no"));
  const TimeAxis time = define_time(file, drive.samples(), drive.rate());
  std::vector<BankVariables> banks;
  std::size_t paddles = 0;
  for (std::uint32_t bank = 0; bank < drive.banks().size(); ++bank) {
    banks.push_back(define_bank(file, drive, time, bank));
    paddles += drive.banks()[bank].paddles;
  }
  file.end_definitions();

  put_times(file, time);
  std::size_t done = 0;
  for (const BankVariables& variables : banks) {
    put_layout(file, run, variables);
    for (std::uint32_t paddle = 0; paddle < drive.banks()[variables.bank].paddles; ++paddle) {
      step.done(done++, paddles);
      put_signal(file, drive, variables, paddle);
    }
  }
  file.close();
  step.done(1, 1);
}

}  // namespace Outputs
