#include "outputs/packed.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "outputs/deflated.h"
#include "outputs/page_data.h"

namespace Outputs {
namespace {

using Counts = std::vector<std::int16_t>;

// The counts that come back, and the axis of differences.
void expect_round_trip(const Counts& counts, const std::vector<std::size_t>& shape, int axis) {
  const Packed packed = pack(counts, shape, 0.5);
  EXPECT_EQ(packed.differences, axis);
  EXPECT_EQ(Testing::counts_of(json_of(packed)), std::vector<int>(counts.begin(), counts.end()));
}

TEST(Packed, GivesBackCountsWithDifferencesAlongTheSmoothestAxis) {
  Counts along_frames;
  Counts along_rows;
  Counts along_columns;
  const auto rough = [](std::size_t i) { return static_cast<int>(i * 7919 % 2003) - 1000; };
  for (std::size_t t = 0; t < 5; ++t) {
    for (std::size_t y = 0; y < 4; ++y) {
      for (std::size_t x = 0; x < 3; ++x) {
        along_frames.push_back(static_cast<std::int16_t>(rough(3 * y + x) + static_cast<int>(t)));
        along_rows.push_back(static_cast<std::int16_t>(rough(3 * t + x) + static_cast<int>(y)));
        along_columns.push_back(static_cast<std::int16_t>(rough(4 * t + y) + static_cast<int>(x)));
      }
    }
  }
  expect_round_trip(along_frames, {5, 4, 3}, 0);
  expect_round_trip(along_rows, {5, 4, 3}, 1);
  expect_round_trip(along_columns, {5, 4, 3}, 2);
}

TEST(Packed, GivesBackNoise) {
  std::mt19937 random(1);
  Counts counts(600);
  for (std::int16_t& count : counts) count = static_cast<std::int16_t>(random());
  const Packed packed = pack(counts, {20, 30}, 1.0);
  EXPECT_EQ(Testing::counts_of(json_of(packed)), std::vector<int>(counts.begin(), counts.end()));
}

TEST(Packed, LetsDifferencesWrap) {
  // Small differences modulo 2^16, although they lead from one end of the range to the other.
  Counts counts;
  for (int i = 0; i < 100; ++i) {
    counts.push_back(static_cast<std::int16_t>(i % 4 < 2 ? 32760 + i % 2 : -32760 - i % 2));
  }
  expect_round_trip(counts, {100}, 0);
}

TEST(Packed, GivesBackOneSample) {
  expect_round_trip({123}, {1}, -1);
  expect_round_trip({-32768}, {1, 1, 1}, -1);
}

TEST(Packed, GivesBackNumbersWithinHalfAStep) {
  const double nan = std::nan("");
  const std::vector<double> numbers{0.0, 0.1, -0.25, nan, 1e-9, 0.2, nan, nan};
  const Packed packed = pack_numbers(numbers, {2, 4});
  EXPECT_DOUBLE_EQ(packed.step, 0.25 / 32000);
  const std::vector<double> back = Testing::numbers_of(json_of(packed));
  ASSERT_EQ(back.size(), numbers.size());
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    if (std::isnan(numbers[i])) {
      EXPECT_TRUE(std::isnan(back[i])) << i;
    } else {
      EXPECT_NEAR(back[i], numbers[i], 0.5001 * packed.step) << i;
    }
  }
}

TEST(Packed, HasAStepForZerosAndNaN) {
  for (const double number : {0.0, std::nan("")}) {
    const Packed packed = pack_numbers({number, number}, {2});
    EXPECT_EQ(packed.step, 1.0);
    const std::vector<double> back = Testing::numbers_of(json_of(packed));
    EXPECT_EQ(std::isnan(back[1]), std::isnan(number));
    if (number == 0.0) {
      EXPECT_EQ(back, (std::vector<double>{0.0, 0.0}));
    }
  }
}

TEST(Packed, KeepsFiniteNumbersApartFromNaN) {
  EXPECT_EQ(count_of(-1e300, 1.0), -32767);
  EXPECT_EQ(count_of(1e300, 1.0), 32767);
  EXPECT_EQ(count_of(-std::numeric_limits<double>::infinity(), 1.0), -32767);
}

TEST(Base64, AgreesWithTheExamplesOfItsStandard) {
  // RFC 4648, section 10.
  EXPECT_EQ(base64(""), "");
  EXPECT_EQ(base64("f"), "Zg==");
  EXPECT_EQ(base64("fo"), "Zm8=");
  EXPECT_EQ(base64("foo"), "Zm9v");
  EXPECT_EQ(base64("foob"), "Zm9vYg==");
  EXPECT_EQ(base64("fooba"), "Zm9vYmE=");
  EXPECT_EQ(base64("foobar"), "Zm9vYmFy");
}

TEST(Base64, GivesBackBytesOfSeveralPieces) {
  std::mt19937 random(2);
  std::string bytes(7'000'001, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  EXPECT_EQ(Testing::from_base64(base64(bytes)), bytes);
}

}  // namespace
}  // namespace Outputs
