#include "outputs/drive_csv.h"

#include <string>
#include <vector>

#include "outputs/bank_layout.h"
#include "outputs/csv_file.h"
#include "outputs/number_text.h"
#include "outputs/version.h"

namespace Outputs {
namespace {

void write_comments(CsvFile& file, Jobs::Run& run, const Jobs::DriveSignals& drive,
                    std::uint32_t bank) {
  const Jobs::DriveBank& signals = drive.banks()[bank];
  file.comment("kelpbox " + version() + ": drive signals of bank " + std::to_string(bank + 1) +
               ", \"" + signals.name + "\"");
  file.comment(signal_meaning(signals.units));
  file.comment("rate " + number_text(drive.rate()) + " Hz, repeat " +
               number_text(run.experiment.repeat(run.definition).value()) + " s, " +
               std::to_string(drive.samples()) + " samples");
  file.comment(ramp_text(run.drive));
  if (run.drive.stop_at_limit) {
    file.comment("samples beyond " + number_text(signals.limits.minimum) + " to " +
                 number_text(signals.limits.maximum) + " " + signals.units + " are held there");
  }
}

std::vector<std::string> heads_of(Jobs::Run& run, const Jobs::DriveSignals& drive,
                                  std::uint32_t bank) {
  std::vector<std::string> heads = {"time [s]"};
  for (const PaddlePlace& paddle : bank_layout(run, bank)) {
    heads.push_back("paddle " + std::to_string(paddle.number) + " [" + drive.banks()[bank].units +
                    "]");
  }
  return heads;
}

}  // namespace

void write_drive_csv(Jobs::Run& run, const Jobs::DriveSignals& drive, std::uint32_t bank,
                     OutputFolder& folder, const Progress& progress) {
  const std::string name = "drive_" + std::to_string(bank + 1) + ".csv";
  const Step step(progress, name);
  CsvFile file(folder, name);
  write_comments(file, run, drive, bank);
  file.heads(heads_of(run, drive, bank));
  const std::uint32_t paddles = drive.banks()[bank].paddles;
  for (std::size_t i = 0; i < drive.samples(); ++i) {
    if (i % 1024 == 0) step.done(i, drive.samples());
    file.add(static_cast<double>(i) / drive.rate());
    for (std::uint32_t paddle = 0; paddle < paddles; ++paddle) {
      file.add(drive.sample(bank, paddle, i));
    }
    file.end_row();
  }
  file.close();
  step.done(1, 1);
}

}  // namespace Outputs
