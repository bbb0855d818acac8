#include "jobs/density_moments.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

namespace Jobs {
namespace {

using Four = std::array<double, 4>;

// A stretch of the frequency axis. A tail is integrated over u = 1 / f, which makes an infinite
// stretch finite and a power of f a power of u.
struct Piece {
  double from = 0.0;
  double to = 0.0;
  bool tail = false;
  Four value{};
  Four error{};
};

// Abscissas and weights of the pair of rules with 7 and 15 points, and their common centre.
constexpr std::array<double, 8> kronrod_x = {
    0.991455371120812639206854697526329, 0.949107912342758524526189684047851,
    0.864864423359769072789712788640926, 0.741531185599394439863864773280788,
    0.586087235467691130294144838258730, 0.405845151377397166906606412076961,
    0.207784955007898467600689403773245, 0.0};
constexpr std::array<double, 8> kronrod_w = {
    0.022935322010529224963732008058970, 0.063092092629978553290700663189204,
    0.104790010322250183839876322541518, 0.140653259715525918745189590510238,
    0.169004726639267902826583426598550, 0.190350578064785409913256402421014,
    0.204432940075298892414161999234649, 0.209482141084727828012999174891714};
constexpr std::array<double, 4> gauss_w = {
    0.129484966168869693270611432679082, 0.279705391489276667901467771423780,
    0.381830050505118944950369775488975, 0.417959183673469387755102040816327};

Four integrand(const Density& density, double at, bool tail) {
  const double f = tail ? 1.0 / at : at;
  const double asked = density(f);
  if (asked == 0.0) return {};  // the powers of a very high frequency may overflow
  const double s = asked * (tail ? f * f : 1.0);
  return {s / f, s, s * f, s * f * f};
}

void evaluate(const Density& density, Piece& piece) {
  const double centre = 0.5 * (piece.from + piece.to);
  const double half = 0.5 * (piece.to - piece.from);
  Four gauss{};
  piece.value = Four{};
  const auto add = [&](const Four& at, std::size_t i) {
    for (std::size_t n = 0; n < 4; ++n) {
      piece.value[n] += kronrod_w[i] * half * at[n];
      if (i % 2 == 1) gauss[n] += gauss_w[i / 2] * half * at[n];
    }
  };
  for (std::size_t i = 0; i + 1 < kronrod_x.size(); ++i) {
    add(integrand(density, centre - half * kronrod_x[i], piece.tail), i);
    add(integrand(density, centre + half * kronrod_x[i], piece.tail), i);
  }
  add(integrand(density, centre, piece.tail), kronrod_x.size() - 1);
  for (std::size_t n = 0; n < 4; ++n) piece.error[n] = std::fabs(piece.value[n] - gauss[n]);
}

struct Sum {
  Four value{};
  Four error{};
};

Sum sum_of(const std::vector<Piece>& pieces) {
  Sum sum;
  for (const Piece& piece : pieces) {
    for (std::size_t n = 0; n < 4; ++n) {
      sum.value[n] += piece.value[n];
      sum.error[n] += piece.error[n];
    }
  }
  return sum;
}

// The piece whose error weighs most in the moment that is known worst.
std::size_t worst_of(const std::vector<Piece>& pieces, const Four& scale) {
  std::size_t worst = 0;
  double greatest = -1.0;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    for (std::size_t n = 0; n < 4; ++n) {
      const double weight = pieces[i].error[n] / scale[n];
      if (weight > greatest) {
        greatest = weight;
        worst = i;
      }
    }
  }
  return worst;
}

std::vector<Piece> pieces_of(double from, double to, const std::vector<double>& breaks,
                             const std::vector<double>& peaks) {
  std::vector<double> edges = breaks;
  double last_peak = 0.0;
  for (const double peak : peaks) {
    if (!(peak > 0.0) || !std::isfinite(peak)) continue;
    last_peak = std::max(last_peak, peak);
    for (const double factor :
         {0.25, 0.5, 0.7, 0.85, 0.94, 0.98, 1.0, 1.02, 1.06, 1.15, 1.4, 2.0, 4.0}) {
      edges.push_back(peak * factor);
    }
  }
  if (edges.empty()) edges = {0.01, 0.1, 0.3, 1.0, 3.0, 10.0};  // Hz: where tanks make waves
  std::sort(edges.begin(), edges.end());

  std::vector<Piece> pieces;
  double at = from;
  for (const double edge : edges) {
    if (!(edge > at) || !(edge < to)) continue;
    pieces.push_back({at, edge, false, {}, {}});
    at = edge;
  }
  if (std::isfinite(to)) {
    if (to > at) pieces.push_back({at, to, false, {}, {}});
  } else {
    if (!(at > 0.0)) {
      pieces.push_back({at, 1.0, false, {}, {}});
      at = 1.0;
    }
    pieces.push_back({0.0, 1.0 / at, true, {}, {}});
  }
  return pieces;
}

}  // namespace

Moments density_moments(const Density& density, double from, double to,
                        const std::vector<double>& breaks, const std::vector<double>& peaks) {
  constexpr double tolerance = 1e-8;
  constexpr double acceptable = 1e-4;  // beyond it a moment counts as not convergent
  constexpr std::size_t most_pieces = 300;

  std::vector<Piece> pieces = pieces_of(std::max(from, 0.0), to, breaks, peaks);
  for (Piece& piece : pieces) evaluate(density, piece);
  Sum sum = sum_of(pieces);
  Four scale{};
  while (!pieces.empty() && pieces.size() < most_pieces) {
    bool done = true;
    for (std::size_t n = 0; n < 4; ++n) {
      scale[n] = std::max(std::fabs(sum.value[n]), std::numeric_limits<double>::min());
      if (!std::isfinite(sum.value[n])) return {NAN, NAN, NAN, NAN};
      done = done && sum.error[n] <= tolerance * scale[n];
    }
    if (done) break;
    Piece& left = pieces[worst_of(pieces, scale)];
    Piece right = left;
    left.to = right.from = 0.5 * (left.from + left.to);
    evaluate(density, left);
    evaluate(density, right);
    pieces.push_back(right);
    sum = sum_of(pieces);
  }
  for (std::size_t n = 0; n < 4; ++n) {
    if (!(sum.error[n] <= acceptable * std::fabs(sum.value[n]))) sum.value[n] = NAN;
  }
  return {sum.value[0], sum.value[1], sum.value[2], sum.value[3]};
}

}  // namespace Jobs
