#include "outputs/fronts_csv.h"

#include <cmath>
#include <cstdint>
#include <string>

#include "outputs/csv_file.h"
#include "outputs/number_text.h"
#include "outputs/version.h"

namespace Outputs {
namespace {

void begin(CsvFile& file, const std::string& what, const std::string& where) {
  file.comment("kelpbox " + version() + ": " + what);
  file.comment(where);
  file.comment("angle: direction of travel, from +x towards +y; phase: of a cosine, 0 is a crest");
  file.heads({"harmonic", "f [Hz]", "a [m]", "angle [rad]", "phase [rad]"});
}

template <typename Front>
void add(CsvFile& file, std::uint64_t harmonic, double frequency, const Front& front) {
  file.add(harmonic);
  file.add(frequency);
  file.add(front.amp);
  file.add(front.angle);
  file.add(front.phase);
  file.end_row();
}

void write_merged(Jobs::Run& run, OutputFolder& folder) {
  const double repeat = run.experiment.repeat(run.definition).value();
  CsvFile file(folder, "fronts.csv");
  begin(file, "merged fronts of the run", "phases hold at the paddle line: x = 0, y = 0, t = 0");
  for (const Synthesis::Front& front : run.experiment.fronts(run.definition, true)) {
    const auto harmonic = static_cast<std::uint64_t>(std::llround(front.freq * repeat));
    add(file, harmonic, front.freq, front);
  }
  file.close();
}

void write_sea(Jobs::Run& run, std::uint32_t sea, OutputFolder& folder) {
  const Maths::RunData& grid = run.experiment.repeat(run.definition);
  const Jobs::BuiltSea& built = run.seas[sea];
  const Maths::Position& at = built.position;
  CsvFile file(folder, "fronts_" + std::to_string(sea + 1) + ".csv");
  begin(file, "fronts of sea " + std::to_string(sea + 1) + ", \"" + built.name + "\"",
        "phases hold at x = " + number_text(at.x) + " m, y = " + number_text(at.y) +
            " m, t = " + number_text(at.t) + " s");
  for (const Maths::TransferFront& front : run.experiment.fronts(run.definition, sea)) {
    add(file, front.harmonic, grid.freq(front.harmonic), front);
  }
  file.close();
}

}  // namespace

void write_fronts_csv(Jobs::Run& run, OutputFolder& folder) {
  write_merged(run, folder);
  for (std::uint32_t sea = 0; sea < run.seas.size(); ++sea) write_sea(run, sea, folder);
}

}  // namespace Outputs
