#include "jobs/front_fate.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "base/constants.h"
#include "maths/dalrymple.h"
#include "maths/tank_run.h"

namespace Jobs {
namespace {

// A part of a front, at the paddle line.
struct Component {
  double angle = 0.0;
  double share = 0.0;  // of the front's variance
};

double turned_by(double angle, double ratio) {
  const double folded = std::asin(std::clamp(std::sin(angle) * ratio, -1.0, 1.0));
  if (std::cos(angle) >= 0.0) return folded;
  return folded > 0.0 ? Base::Pi - folded : -Base::Pi - folded;
}

// The modes between side walls that a front becomes. The mean square over the width of a front of
// amplitude 1 is that of all its modes, also of those that do not propagate (Parseval's theorem).
std::vector<Component> modes_of(double angle, double k, double width) {
  if (std::fabs(angle) < 1e-6) return {{angle, 1.0}};
  const bool back = std::cos(angle) <= 0.0;
  const double modes = std::floor(k * width / Base::Pi);
  constexpr double most_modes = 1e5;  // the library refuses more
  if (!(modes >= 0.0 && modes <= most_modes)) return {{angle, 1.0}};
  std::vector<double> amplitudes(static_cast<std::size_t>(modes) + 1);
  Maths::dalrymple_angles(k, width, back ? -angle : angle, amplitudes);
  std::vector<Component> parts;
  for (std::size_t m = 0; m < amplitudes.size(); ++m) {
    const double square = amplitudes[m] * amplitudes[m];
    const double sine = std::min(static_cast<double>(m) * Base::Pi / (k * width), 1.0);
    const double mode = back ? std::asin(sine) - Base::Pi : std::asin(sine);
    parts.push_back({mode, square});
    if (m > 0) parts.push_back({back ? Base::Pi - std::asin(sine) : -mode, square});
  }
  return parts;
}

bool finite(const Maths::TransferFront& front) {
  return std::isfinite(front.amp) && std::isfinite(front.angle) && std::isfinite(front.phase);
}

bool oblique(const WavePath& path, double angle) {
  const double degree = Base::Pi / 180.0;
  for (const BankFaces& bank : path.banks) {
    for (const auto& [normal, count] : bank.normals) {
      if (std::cos(angle - normal) >= std::cos(degree)) return false;
    }
  }
  return true;
}

// Carries the fronts of one sea, harmonic by harmonic.
class Way {
 public:
  Way(const WavePath& path, const Maths::Position& position, FrontFates& fates, const LawAt& law)
      : path_(path),
        position_(position),
        fates_(fates),
        law_(law),
        plain_(path.tank, path.run),
        own_(path.tank, path.run),
        reference_(path.tank, path.run) {}

  void add(const Maths::TransferFront& front) {
    if (!finite(front)) {
      if (fates_.undefined++ == 0) fates_.undefined_harmonic = front.harmonic;
      return;
    }
    begin(front.harmonic);
    const double own = front.amp * front.amp / 2.0;
    const double v = own * to_reference_ * to_reference_;
    fates_.asked += v;
    if (law_) {
      fates_.asked_directions.add(moments_.asked, own);
      fates_.limited_directions.add(moments_.limited, own);
    } else {
      fates_.asked_directions.add(front.angle, own);
      fates_.limited_directions.add(front.angle, own);
    }

    constexpr double rounding = 1e-9;
    const bool impossible = std::fabs(std::sin(front.angle) * turn_) > 1.0 + rounding;
    const double angle = turned_by(front.angle, turn_);
    if (!own_.angle_in_range(angle)) {
      (impossible ? fates_.turned : fates_.outside_limits) += v;
      return;
    }
    if (impossible) fates_.redirected += v;
    if (!arrives(front.harmonic, angle)) {
      fates_.not_finite += v;
      return;
    }
    if (path_.tank.has_walls && path_.run.dalrymple()) {
      double left = 1.0;
      for (const Component& part : modes_of(angle, paddle_k_, path_.tank.width)) {
        make(part.angle, v * part.share);
        left -= part.share;
      }
      fates_.evanescent += v * std::max(left, 0.0);
    } else {
      make(angle, v);
    }
  }

 private:
  // Whether a wave from the paddles reaches both places.
  bool arrives(std::uint64_t harmonic, double angle) {
    return std::isfinite(own_.phase_lag(harmonic, position_.x, 0.0, angle)) &&
           (same_ || std::isfinite(reference_.phase_lag(harmonic, path_.x, 0.0, angle)));
  }

  void begin(std::uint64_t harmonic) {
    if (harmonic == harmonic_) return;
    harmonic_ = harmonic;
    // As the library refers a front to the paddles, with the first depth of the profile.
    paddle_k_ = plain_.wave_num_at(harmonic, 0.0);
    turn_ = plain_.wave_num_at(harmonic, position_.x) / paddle_k_;
    const double own = own_.shoaling(harmonic, position_.x);
    to_reference_ = same_ ? 1.0 : reference_.shoaling(harmonic, path_.x) / own;
    const std::vector<Maths::KnumStep>& ladder = same_ ? own_.ladder() : reference_.ladder();
    arrive_ = ladder.front().k / ladder.back().k;
    if (law_) moments_ = law_(harmonic);
  }

  void make(double angle, double v) {
    fates_.arriving[harmonic_] += v;
    fates_.arriving_squares[harmonic_] += v * v;
    if (oblique(path_, angle)) fates_.oblique += v;
    const PaddleShares shares = paddle_shares(path_, harmonic_, angle);
    fates_.above_half_rate += v * shares.above_half_rate;
    fates_.behind += v * shares.behind;
    for (std::size_t b = 0; b < shares.withheld.size(); ++b) {
      fates_.withheld[b] += v * shares.withheld[b];
    }
    const double made = v * shares.made;
    if (made == 0.0) return;
    fates_.made[harmonic_] += made;
    const double at_reference = turned_by(angle, arrive_);
    fates_.made_directions.add(at_reference, made);
    fates_.made_sectors.add(harmonic_, at_reference, made);
    const double cosine = std::fabs(std::cos(at_reference));
    fates_.refracted += std::min(cosine, std::fabs(std::cos(angle))) > 1e-3
                            ? made * std::fabs(std::cos(angle)) / cosine
                            : made;
  }

  const WavePath& path_;
  Maths::Position position_;
  FrontFates& fates_;
  const LawAt& law_;
  Maths::TankRun plain_;      // never builds a ladder
  Maths::TankRun own_;        // to the position of the sea
  Maths::TankRun reference_;  // to the reference point
  bool same_ = position_.x == path_.x;
  std::uint64_t harmonic_ = 0;  // no front has the harmonic 0, which is the mean
  double paddle_k_ = 0.0;
  double turn_ = 1.0;          // sine at the paddles / sine at the position
  double arrive_ = 1.0;        // sine at the reference point / sine at the paddles
  double to_reference_ = 1.0;  // amplitude at the reference point / amplitude at the position
  LawMoments moments_;
};

}  // namespace

double FrontFates::made_total() const { return std::accumulate(made.begin(), made.end(), 0.0); }

FrontFates no_fronts(const WavePath& path) {
  FrontFates fates;
  fates.withheld.assign(path.banks.size(), 0.0);
  fates.arriving.assign(path.run.size(), 0.0);
  fates.arriving_squares.assign(path.run.size(), 0.0);
  fates.made.assign(path.run.size(), 0.0);
  fates.made_sectors = DirectionGrid(path.run.min_harmonic(), path.run.max_harmonic());
  return fates;
}

void add_fronts(const std::vector<Maths::TransferFront>& fronts, const Maths::Position& position,
                const WavePath& path, FrontFates& fates, const LawAt& law) {
  Way way(path, position, fates, law);
  for (const Maths::TransferFront& front : fronts) way.add(front);
}

}  // namespace Jobs
