#include "jobs/direction_sectors.h"

#include <cmath>
#include <numeric>

#include "gtest/gtest.h"
#include "support/integral.h"

using Jobs::sector_count;
using Jobs::sector_edge;
using Jobs::Sectors;
using Jobs::SpreadLaw;

namespace {

constexpr double degree = M_PI / 180;

double sum(const Sectors& sectors) { return std::accumulate(sectors.begin(), sectors.end(), 0.0); }

SpreadLaw law_of(bool half_angle, double mean) {
  SpreadLaw law;
  law.half_angle = half_angle;
  law.mean = mean;
  return law;
}

// Of a direction from the mean, in (-pi, pi].
double deviation(double direction, double mean) {
  return std::remainder(direction - mean, 2 * M_PI);
}

// The share of each sector by Simpson's rule with many steps; the weight is that of a direction.
template <typename Weight>
void expect_shares(const Sectors& shares, Weight weight, double tolerance = 1e-6) {
  Sectors expected{};
  double all = 0;
  for (std::size_t i = 0; i < sector_count; ++i) {
    expected[i] = Testing::simpson(weight, sector_edge(i), sector_edge(i + 1), 4000);
    all += expected[i];
  }
  for (std::size_t i = 0; i < sector_count; ++i) {
    EXPECT_NEAR(shares[i], expected[i] / all, tolerance) << i;
  }
  EXPECT_NEAR(sum(shares), 1, 1e-12);
}

}  // namespace

TEST(DirectionSectors, HaveMultiplesOfFiveDegreesInTheirMiddle) {
  for (int i = -36; i < 36; ++i) {
    const std::size_t sector = Jobs::sector_of(5 * i * degree);
    EXPECT_EQ(sector, static_cast<std::size_t>(i + 36));
    EXPECT_NEAR(0.5 * (sector_edge(sector) + sector_edge(sector + 1)), 5 * i * degree, 1e-12);
    EXPECT_EQ(Jobs::sector_of((5 * i + 2.49) * degree), sector);
    EXPECT_EQ(Jobs::sector_of((5 * i - 2.49) * degree), sector);
  }
  EXPECT_EQ(Jobs::sector_of(M_PI), 0u);
  EXPECT_EQ(Jobs::sector_of(370 * degree), Jobs::sector_of(10 * degree));
  EXPECT_NEAR(sector_edge(sector_count) - sector_edge(0), 2 * M_PI, 1e-12);
}

TEST(DirectionSectors, OfALawAreItsIntegrals) {
  for (const double mean : {0.0, 0.3, 3.0, -2.9}) {
    for (const double s : {0.5, 1.0, 10.0, 75.0}) {
      expect_shares(Jobs::sector_shares(law_of(true, mean), s), [&](double theta) {
        return std::pow(std::cos(deviation(theta, mean) / 2), 2 * s);
      });
    }
    for (const double n : {2.0, 4.0, 30.0}) {
      expect_shares(Jobs::sector_shares(law_of(false, mean), n), [&](double theta) {
        return std::pow(std::max(std::cos(deviation(theta, mean)), 0.0), n);
      });
    }
  }
}

TEST(DirectionSectors, OfALawEndAtTheLimitsThatAreAskedFor) {
  SpreadLaw law = law_of(true, 0);
  law.below = 17.5 * degree;  // edges of sectors
  law.above = 32.5 * degree;
  const auto weight = [&](double theta) {
    const bool inside = theta > -law.below && theta < law.above;
    return inside ? std::pow(std::cos(theta / 2), 20) : 0.0;
  };
  const Sectors free = Jobs::sector_shares(law, 10);
  EXPECT_GT(free[Jobs::sector_of(60 * degree)], 0);
  law.limits_asked = true;
  expect_shares(Jobs::sector_shares(law, 10), weight, 1e-4);
}

TEST(DirectionSectors, OfANarrowLawAreOne) {
  const Sectors narrow = Jobs::sector_shares(law_of(true, 20 * degree), 1e6);
  EXPECT_NEAR(narrow[Jobs::sector_of(20 * degree)], 1, 1e-12);
  SpreadLaw closed = law_of(true, 20 * degree);
  closed.limits_asked = true;
  EXPECT_EQ(Jobs::sector_shares(closed, 10)[Jobs::sector_of(20 * degree)], 1);
}

TEST(DirectionSectors, OfAPowerOfZeroAreEqual) {
  for (const double share : Jobs::sector_shares(law_of(true, 1), 0)) {
    EXPECT_NEAR(share, 1.0 / 72, 1e-12);
  }
}

TEST(DirectionSectors, OfAPowerThatIsNotFiniteAreNaN) {
  EXPECT_TRUE(std::isnan(sum(Jobs::sector_shares(law_of(true, 0), NAN))));
  EXPECT_TRUE(std::isnan(sum(Jobs::sector_shares(law_of(true, 0), -1))));
  EXPECT_TRUE(std::isnan(sum(Jobs::sector_shares(law_of(true, 0), INFINITY))));
}

TEST(DirectionGrid, KeepsTheVarianceOfEveryHarmonic) {
  for (const std::uint64_t highest : {7u, 2006u, 2007u, 12345u}) {
    Jobs::DirectionGrid grid(7, highest);
    EXPECT_LE(grid.rows().size(), 2000u);
    for (std::uint64_t h = 7; h <= highest; ++h) {
      grid.add(h, 0.1, 1);
      const std::size_t row = grid.row_of(h);
      EXPECT_LE(grid.first_harmonic(row), h);
      EXPECT_GT(grid.first_harmonic(row + 1), h);
    }
    double all = 0;
    for (const Sectors& row : grid.rows()) all += row[Jobs::sector_of(0.1)];
    EXPECT_EQ(all, static_cast<double>(highest - 6));
    EXPECT_EQ(grid.first_harmonic(grid.rows().size()), highest + 1);
  }
}
