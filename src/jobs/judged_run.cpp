#include "jobs/judged_run.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numeric>

#include "jobs/made_surface.h"
#include "maths/power_of_two.h"
#include "maths/sample_count.h"
#include "maths/tank_run.h"
#include "point/two_d.h"

namespace Jobs {
namespace {

using Kelpbox::Experiment;

BankFaces faces_of(const Common::Paddles& paddles) {
  BankFaces faces;
  faces.width = paddles.machine().paddle_width;
  for (std::size_t p = 0; p < paddles.pad_pos.size(); ++p)
    faces.normals[paddles.pad_pos[p].angle]++;
  return faces;
}

WavePath path_of(Run& run, const DriveSignals* drive) {
  Experiment& experiment = run.experiment;
  Common::Context& site = experiment.context();
  WavePath path;
  path.tank = site.tank_config();
  path.run = experiment.repeat(run.definition);
  for (std::uint32_t b = 0; b < experiment.paddle_banks(); ++b) {
    path.banks.push_back(faces_of(site.wavemaker_bank[b]));
  }
  const std::size_t samples =
      drive != nullptr ? drive->samples() : Maths::sample_count(path.run.value(), run.drive.rate);
  path.last_harmonic = samples / 2;
  path.x = run.seas.empty() ? 0.0 : run.seas.front().position.x;
  return path;
}

// Seas at other depths than that of the reference point are compared there.
std::vector<Carried> carried_to_reference(const JudgedRun& judged) {
  std::vector<Carried> carried;
  for (const BuiltSea& sea : judged.run.seas) {
    Carried& ratio = carried.emplace_back();
    const double own = depth_at(judged.path, sea.position.x);
    if (own == judged.depth) continue;
    ratio = [own, depth = judged.depth, g = judged.g](double f) {
      return variance_ratio(f, own, depth, g);
    };
  }
  return carried;
}

void ask(JudgedRun& judged) {
  for (const Sea& sea : judged.run.job.seas) {
    const SeaChanges changes = changes_of(sea);
    judged.random_amplitudes = judged.random_amplitudes || changes.random_amplitudes;
    judged.fan = judged.fan || changes.fan;
    judged.changes.push_back(changes);
  }
  judged.carried = carried_to_reference(judged);
  judged.asked = asked_sea(judged.run.seas, judged.changes, judged.carried);
  const AskedSea& asked = judged.asked;
  judged.below = asked.moments(0.0, judged.band_low);
  judged.band = asked.moments(judged.band_low, judged.band_high);
  judged.above = asked.moments(judged.band_high, std::numeric_limits<double>::infinity());
  judged.all = judged.below;
  judged.all += judged.band;
  judged.all += judged.above;
  if (!asked.density) return;
  double to = judged.band_high;
  for (const double peak : asked.peaks) to = std::max(to, 4.0 * peak);
  std::vector<double> hints = asked.breaks;
  hints.insert(hints.end(), asked.peaks.begin(), asked.peaks.end());
  judged.peak = density_peak(asked.density, asked.low, std::min(to, asked.high), hints);
}

// Most laws have one power for all frequencies, so moments are computed again only where it
// changes.
LawAt law_at(const SpreadLaw& law, double repeat) {
  return [law, repeat, last = NAN, moments = LawMoments()](std::uint64_t harmonic) mutable {
    const double s = value_or_nan(law.power, static_cast<double>(harmonic) / repeat);
    if (s != last) {
      moments = {asked_moment(law, s), first_moment(law, s)};
      last = s;
    }
    return moments;
  };
}

void follow_fronts(JudgedRun& judged) {
  Run& run = judged.run;
  judged.fates = no_fronts(judged.path);
  for (std::uint32_t s = 0; s < run.experiment.run_size(run.definition); ++s) {
    LawAt law;
    if (s < run.seas.size() && run.seas[s].spread) {
      judged.spread_by_law = true;
      law = law_at(*run.seas[s].spread, judged.repeat);
    }
    add_fronts(run.experiment.fronts(run.definition, s), run.experiment.position(run.definition, s),
               judged.path, judged.fates, law);
  }
  judged.made = judged.fates.made;
  if (judged.fan) {
    // The directions of a fan meet in phase: their amplitudes add up, not their energies.
    const auto surface = made_surface(run.experiment.fronts(run.definition, true), judged.path,
                                      judged.reference.x, judged.reference.y);
    for (std::size_t h = 0; h < surface.size(); ++h) judged.made[h] = std::norm(surface[h]) / 2.0;
  }
  double squares = 0.0;
  for (std::size_t h = 1; h < judged.made.size(); ++h) {
    if (!(judged.made[h] > 0.0)) continue;
    judged.made_moments.add(static_cast<double>(h) / judged.repeat, judged.made[h]);
    squares += judged.made[h] * judged.made[h];
  }
  if (!std::isfinite(judged.made_moments.m0)) throw std::string("their variance is not finite");
  // Each variance is exponentially distributed, and Hs goes with the root of their sum.
  if (judged.random_amplitudes && judged.made_moments.m0 > 0.0) {
    judged.amplitude_chance = 0.5 * std::sqrt(squares / 2.0) / judged.made_moments.m0;
  }
}

void build_record(JudgedRun& judged) {
  Run& run = judged.run;
  // 8 samples and more in the shortest wave, and a number of samples that is fast to transform.
  constexpr std::uint64_t most_samples = std::uint64_t{1} << 24;
  const std::uint64_t samples =
      std::clamp(Maths::next_pow2(8 * judged.path.run.size()), std::uint64_t{64}, most_samples);
  Base::Params params;
  params.insert("rate", static_cast<double>(samples) / judged.repeat, "Hz");
  params.insert("x", judged.reference.x, "m");
  params.insert("y", judged.reference.y, "m");
  params.insert("delta_angle", 45.0, "deg");
  run.experiment.twod_build(run.definition, params);
  judged.record = run.experiment.twod_data(run.definition, Synthesis::TwoD::time);
  judged.record_rate = static_cast<double>(judged.record.size()) / judged.repeat;
  const std::vector<double>& density =
      run.experiment.twod_data(run.definition, Synthesis::TwoD::variance);
  judged.record_m0 = std::accumulate(density.begin(), density.end(), 0.0) / judged.repeat;
  judged.highest = highest_wave(judged.record, judged.record_rate);
}

void find_crests(JudgedRun& judged) {
  Run& run = judged.run;
  for (std::size_t s = 0; s < run.seas.size(); ++s) {
    const BuiltSea& sea = run.seas[s];
    if (judged.changes[s].random_phases) continue;
    double asked = 0.0;
    bool focused = false;
    for (const AskedWave& wave : sea.asked) {
      focused = focused || wave.crest.has_value();
      asked += wave.crest.value_or(0.0);
    }
    if (!focused) continue;
    const auto surface = made_surface(run.experiment.fronts(run.definition, true), judged.path,
                                      sea.position.x, sea.position.y);
    const bool alone = run.seas.size() == 1 && !sea.gain &&
                       std::all_of(sea.asked.begin(), sea.asked.end(),
                                   [](const AskedWave& wave) { return wave.crest.has_value(); });
    judged.crests.push_back(
        {sea.name, asked, elevation(surface, judged.repeat, sea.position.t), alone});
  }
}

}  // namespace

double JudgedRun::characteristic_frequency() const {
  const std::optional<double> top = greatest_harmonic(made);
  if (!top) return std::numeric_limits<double>::quiet_NaN();
  if (peak && peak->frequency >= band_low && peak->frequency <= band_high) return peak->frequency;
  if (asked.kind != SeaKind::irregular) return *top / repeat;
  return 1.0 / tm01(made_moments);
}

double depth_at(const WavePath& path, double x) {
  if (x == 0.0) return path.tank.paddle_depth;
  return Maths::TankRun(path.tank, path.run).depth_at(x);
}

JudgedRun examine(Run& run, const DriveSignals* drive) {
  JudgedRun judged(run, drive);
  judged.path = path_of(run, drive);
  if (!run.seas.empty()) judged.reference = run.seas.front().position;
  judged.depth = depth_at(judged.path, judged.reference.x);
  const Maths::RunData& grid = judged.path.run;
  judged.repeat = grid.value();
  judged.g = judged.path.tank.g;
  judged.band_low = (static_cast<double>(grid.min_harmonic()) - 0.5) / judged.repeat;
  judged.band_high = (static_cast<double>(grid.max_harmonic()) + 0.5) / judged.repeat;
  ask(judged);
  follow_fronts(judged);
  build_record(judged);
  find_crests(judged);
  return judged;
}

}  // namespace Jobs
