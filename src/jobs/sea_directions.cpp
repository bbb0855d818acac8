#include "jobs/sea_directions.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "jobs/made_band.h"

namespace Jobs {
namespace {

constexpr std::size_t most_rows = 32;

// Adds what a law makes of the variance in each row of the grid.
void add_law(const SpreadLaw& law, const std::vector<double>& by_row, const DirectionGrid& grid,
             double repeat, Sectors& sectors) {
  double last = NAN;
  Sectors shares{};
  for (std::size_t row = 0; row < by_row.size(); ++row) {
    if (by_row[row] == 0.0) continue;
    const auto between =
        static_cast<double>(grid.first_harmonic(row) + grid.first_harmonic(row + 1) - 1);
    const double s = value_or_nan(law.power, 0.5 * between / repeat);
    if (!(s == last)) shares = sector_shares(law, s);
    last = s;
    for (std::size_t i = 0; i < sector_count; ++i) sectors[i] += by_row[row] * shares[i];
  }
}

std::optional<Sectors> asked_sectors(const JudgedRun& judged) {
  const DirectionGrid& grid = judged.fates.made_sectors;
  Sectors sectors{};
  for (std::uint32_t s = 0; s < judged.run.seas.size(); ++s) {
    const BuiltSea& sea = judged.run.seas[s];
    const Carried& carried = judged.carried[s];
    std::vector<double> by_row(grid.rows().size());
    for (const auto& front : judged.run.experiment.fronts(judged.run.definition, s)) {
      const double f = static_cast<double>(front.harmonic) / judged.repeat;
      const double v = front.amp * front.amp / 2.0 * (carried ? value_or_nan(carried, f) : 1.0);
      if (!std::isfinite(v) || !std::isfinite(front.angle)) continue;
      if (sea.spread) {
        by_row[grid.row_of(front.harmonic)] += v;
      } else {
        sectors[sector_of(front.angle)] += v;
      }
    }
    if (sea.spread) add_law(*sea.spread, by_row, grid, judged.repeat, sectors);
  }
  const bool known =
      std::all_of(sectors.begin(), sectors.end(), [](double v) { return std::isfinite(v); });
  return known ? std::optional<Sectors>(sectors) : std::nullopt;
}

}  // namespace

std::optional<SeaDirections> sea_directions(const JudgedRun& judged) {
  const auto band = made_band(judged.fates.made);
  if (!band) return std::nullopt;
  const DirectionGrid& grid = judged.fates.made_sectors;
  const std::size_t first = grid.row_of(band->lowest);
  const std::size_t count = grid.row_of(band->highest) - first + 1;
  const std::size_t rows = std::min(count, most_rows);
  const auto edge = [&](std::size_t row) {
    return (static_cast<double>(grid.first_harmonic(row)) - 0.5) / judged.repeat;
  };
  SeaDirections directions;
  directions.variance.assign(rows, Sectors{});
  directions.f.push_back(edge(first));
  for (std::size_t row = 0; row < rows; ++row) {
    const std::size_t from = first + row * count / rows;
    const std::size_t to = first + (row + 1) * count / rows;
    for (std::size_t i = from; i < to; ++i) {
      for (std::size_t sector = 0; sector < sector_count; ++sector) {
        directions.variance[row][sector] += grid.rows()[i][sector];
      }
    }
    directions.f.push_back(edge(to));
  }
  directions.asked = asked_sectors(judged);
  return directions;
}

}  // namespace Jobs
