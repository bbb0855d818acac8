// Memory for which large pages were asked.
#include "base/large_pages.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <numeric>
#include <vector>

namespace {

TEST(LargePages, MemoryIsUsedAsAnyOther) {
  for (const std::size_t count : {0u, 1u, 500u, 600'000u, 2'000'001u}) {
    std::vector<double> samples(count);
    std::iota(samples.begin(), samples.end(), 1.0);
    std::vector<double> copy;
    copy.reserve(count);
    Base::prefer_large_pages(copy.data(), copy.capacity() * sizeof(double));
    copy.assign(samples.begin(), samples.end());
    EXPECT_EQ(copy, samples);
    copy.resize(2 * count, -1.0);
    samples.resize(2 * count, -1.0);
    EXPECT_EQ(copy, samples);
  }
}

TEST(LargePages, MemoryAroundThemKeepsItsContents) {
  std::vector<double> before(100'000, 1.0);
  std::vector<double> middle;
  middle.reserve(1'000'000);
  std::vector<double> after(100'000, 2.0);
  Base::prefer_large_pages(middle.data(), middle.capacity() * sizeof(double));
  middle.assign(1'000'000, 3.0);
  EXPECT_EQ(before, std::vector<double>(100'000, 1.0));
  EXPECT_EQ(after, std::vector<double>(100'000, 2.0));
}

}  // namespace
