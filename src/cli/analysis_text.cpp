#include "cli/analysis_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "base/constants.h"
#include "cli/wrapped_text.h"

namespace Cli {
namespace {

// Probes resolve about 0.1 mm, and the mean over a record a tenth of that.
std::string length(double metres) {
  return std::abs(metres) < 1.0 ? fmt::format("{:.2f} mm", 1000.0 * metres)
                                : fmt::format("{:.4f} m", metres);
}

std::string degrees(double radians) {
  return fmt::format("{:.4g} deg", radians * 180.0 / Base::Pi);
}

std::string line(const std::string& what, const std::string& value,
                 const std::string& remark = "") {
  std::string text = fmt::format("    {:<34}{:>12}", what, value);
  if (!remark.empty()) text += "   " + remark;
  return text + "\n";
}

std::string head_of(const ProbeRecords& records) {
  double greatest = 0.0;
  for (const Probe& probe : records.probes) greatest = std::max(greatest, std::abs(probe.mean));
  const bool one = records.probes.size() == 1;
  return fmt::format(
      "{}\n  {} probe{}, {} samples at {:.6g} Hz, from {:.6g} s to {:.6g} s\n"
      "  the mean of each probe is removed: {}{}\n",
      records.file, records.probes.size(), one ? "" : "s", records.samples(), records.rate,
      records.start, records.start + records.duration(), one ? "" : "up to ", length(greatest));
}

std::string crossings_text(const RecordAnalysis& analysis) {
  if (!analysis.crossings) return "";
  const ZeroCrossings& crossings = *analysis.crossings;
  std::string text =
      fmt::format("\n  waves by zero crossings: {}\n", crossings.regular ? "regular" : "irregular");
  if (crossings.regular) {
    text += line("period (reg_t)", fmt::format("{:.4f} s", crossings.period));
    for (std::size_t i = 0; i < crossings.heights.size(); ++i) {
      text += line("height, " + analysis.records.probes[i].name, length(crossings.heights[i]));
    }
  } else {
    text += line("period (sig_t)", fmt::format("{:.3f} s", crossings.period),
                 "of the wave at two thirds in order of height");
    text += line("height (sig_h)", length(crossings.height), "of the same wave; not H1/3");
    text += line("4 standard deviations (Hm0)", length(analysis.height_m0),
                 analysis.records.probes.size() == 1 ? "" : "mean over the probes");
  }
  return text;
}

std::string train_line(const std::string& name, const Train& train) {
  return fmt::format("    {:<34}{:>12}{:>14}\n", name, length(train.forward),
                     length(train.backward));
}

std::string trains_text(const RecordAnalysis& analysis) {
  if (!analysis.trains) return "";
  const WaveTrains& trains = *analysis.trains;
  std::string text = fmt::format(
      "\n  wave trains along {}: {:.5g} Hz, wave length {:.4g} m in {:.4g} m of water\n",
      degrees(trains.angle), trains.frequency, trains.wave_length, trains.depth);
  text += fmt::format("    {:<34}{:>12}{:>14}\n", "amplitudes", "forward", "backward");
  text += train_line("fundamental, free", trains.fundamental);
  if (trains.has_harmonics) {
    text += train_line("second harmonic, bound", trains.bound);
    text += train_line("second harmonic, free", trains.free);
  }
  return text + line("reflection coefficient", fmt::format("{:.3f}", trains.reflection()),
                     "backward / forward of the fundamental");
}

}  // namespace

std::string analysis_text(const RecordAnalysis& analysis) {
  return head_of(analysis.records) + crossings_text(analysis) + trains_text(analysis);
}

std::string analysis_table(const std::vector<RecordAnalysis>& analyses) {
  std::size_t width = 4;
  for (const RecordAnalysis& analysis : analyses) {
    width = std::max(width, characters(analysis.records.file));
  }
  const auto pad = [width](const std::string& file) {
    return file + std::string(width - characters(file), ' ');
  };
  std::string text =
      fmt::format("{}  {:>6}  {:<9}  {:>9}  {:>10}  {:>10}  {:>10}  {:>10}\n", pad("file"),
                  "probes", "waves", "period", "height", "forward", "backward", "reflection");
  bool regular = false;
  bool irregular = false;
  for (const RecordAnalysis& analysis : analyses) {
    std::string kind = "-", period = "-", height = "-", forward = "-", backward = "-", ratio = "-";
    if (analysis.crossings) {
      kind = analysis.crossings->regular ? "regular" : "irregular";
      period = fmt::format("{:.3f} s", analysis.crossings->period);
      height = length(analysis.crossings->height);
      (analysis.crossings->regular ? regular : irregular) = true;
    }
    if (analysis.trains) {
      forward = length(analysis.trains->fundamental.forward);
      backward = length(analysis.trains->fundamental.backward);
      ratio = fmt::format("{:.3f}", analysis.trains->reflection());
    }
    text += fmt::format("{}  {:>6}  {:<9}  {:>9}  {:>10}  {:>10}  {:>10}  {:>10}\n",
                        pad(analysis.records.file), analysis.records.probes.size(), kind, period,
                        height, forward, backward, ratio);
  }
  text += "\n";
  if (regular) text += "regular: median period and height (reg_t), means over the probes\n";
  if (irregular) {
    text +=
        "irregular: period and height of the wave at two thirds in order of height (sig_t, "
        "sig_h; not H1/3)\n";
  }
  return text + "forward, backward: amplitudes of the fundamental; reflection: their ratio\n";
}

}  // namespace Cli
