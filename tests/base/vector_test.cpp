#include "base/vector.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <limits>
#include <stdexcept>
#include <vector>

#include "support/thrown.h"

namespace {

using Base::Cvector;
using Base::Units;
using Base::Vector;
using Testing::thrown;
using Complex = std::complex<double>;
using Values = std::vector<double>;

const Units metre{8, 0};

TEST(Vector, DefaultIsEmpty) {
  const Vector vector;
  EXPECT_EQ(vector.length, 0u);
  EXPECT_EQ(vector.label, "");
  EXPECT_EQ(vector.units, (Units{0, 0}));
  EXPECT_TRUE(vector.data.empty());
}

TEST(Vector, LengthZeroIsTakenFromTheData) {
  const Vector vector("a", metre, {1, 2, 3, 4, 5}, 0);
  EXPECT_EQ(vector.length, 5u);
  EXPECT_EQ(vector.label, "a");
  EXPECT_EQ(vector.units, metre);
  EXPECT_EQ(vector.data, (Values{1, 2, 3, 4, 5}));
  EXPECT_EQ(Vector("a", metre, {1, 2, 3, 4, 5}).length, 5u);
}

TEST(Vector, ANonzeroLengthMustEqualTheNumberOfElements) {
  EXPECT_EQ(Vector("a", metre, {1, 2, 3, 4}, 4).length, 4u);
  EXPECT_EQ(thrown([] { Vector("a", metre, {1, 2, 3, 4}, 5); }), "Mismatched length");
  EXPECT_EQ(thrown([] { Vector("a", metre, {1, 2, 3, 4}, 3); }), "Mismatched length");
  EXPECT_EQ(thrown([] { Cvector("a", metre, std::vector<Complex>(101), 200); }),
            "Mismatched length");
}

TEST(Vector, StorageSizeFollowsTheForm) {
  const Vector vector;
  EXPECT_EQ(vector.storage_size(0), 0u);
  EXPECT_EQ(vector.storage_size(201), 201u);
  const Cvector spectrum;
  EXPECT_EQ(spectrum.storage_size(0), 1u);
  EXPECT_EQ(spectrum.storage_size(1), 1u);
  EXPECT_EQ(spectrum.storage_size(2), 2u);
  EXPECT_EQ(spectrum.storage_size(200), 101u);
  EXPECT_EQ(spectrum.storage_size(201), 101u);
}

TEST(Vector, AtReturnsTheElements) {
  Vector vector("a", metre, {1, 2, 3});
  vector.at(1) = 7.0;
  EXPECT_EQ(vector.data, (Values{1, 7, 3}));
  const Vector& constant = vector;
  EXPECT_EQ(&constant.at(2), &vector.data[2]);
}

TEST(Vector, AtAcceptsOnePastTheEnd) {
  Vector vector("a", metre, {1, 2, 3});
  const Vector& constant = vector;
  EXPECT_NO_THROW(constant.at(3));
  // A write there changes no element.
  vector.at(3) += 5.0;
  EXPECT_EQ(vector.data, (Values{1, 2, 3}));
  EXPECT_EQ(vector.length, 3u);
  Vector empty;
  EXPECT_NO_THROW(empty.at(0) = 1.0);
  EXPECT_TRUE(empty.data.empty());
}

TEST(Vector, AtRefusesIndicesFurtherPastTheEnd) {
  Vector vector("a", metre, {1, 2, 3});
  const Vector& constant = vector;
  EXPECT_EQ(thrown([&] { vector.at(4); }), "Index 4 out of range");
  EXPECT_EQ(thrown([&] { constant.at(4); }), "Index 4 out of range");
  EXPECT_EQ(thrown([&] { constant.at(std::numeric_limits<std::uint64_t>::max()); }),
            "Index 18446744073709551615 out of range");
  Cvector spectrum("f", metre, std::vector<Complex>(2));
  EXPECT_NO_THROW(spectrum.at(2));
  EXPECT_EQ(thrown([&] { spectrum.at(3); }), "Index 3 out of range");
}

TEST(Vector, EraseRemovesFromBothEnds) {
  Vector vector("a", metre, {1, 2, 3, 4, 5, 6});
  vector.erase(2, 1);
  EXPECT_EQ(vector.data, (Values{3, 4, 5}));
  EXPECT_EQ(vector.length, 3u);
  vector.erase(1, 2);
  EXPECT_TRUE(vector.data.empty());
  EXPECT_EQ(vector.length, 0u);
}

TEST(Vector, EraseOfTooMuchIsRefused) {
  Vector vector("a", metre, {1, 2, 3});
  const std::string message = "BaseVec erase of more elements than there are";
  constexpr std::uint64_t huge = std::numeric_limits<std::uint64_t>::max();
  EXPECT_EQ(thrown([&] { vector.erase(2, 2); }), message);
  EXPECT_EQ(thrown([&] { vector.erase(4, 0); }), message);
  EXPECT_EQ(thrown([&] { vector.erase(0, 4); }), message);
  EXPECT_EQ(thrown([&] { vector.erase(2, huge); }), message);
  EXPECT_EQ(vector.data, (Values{1, 2, 3}));
}

TEST(Vector, InsertAddsAtBothEnds) {
  Vector vector("a", metre, {1, 2});
  vector.insert(2, 3, 9.0);
  EXPECT_EQ(vector.data, (Values{9, 9, 1, 2, 9, 9, 9}));
  EXPECT_EQ(vector.length, 7u);
  vector.insert(1, 1, vector.data[2]);
  EXPECT_EQ(vector.data, (Values{1, 9, 9, 1, 2, 9, 9, 9, 1}));
}

TEST(Vector, InsertOfTooMuchChangesNothing) {
  Vector vector("a", metre, {1, 2});
  constexpr std::uint64_t huge = std::numeric_limits<std::uint64_t>::max();
  EXPECT_THROW(vector.insert(0, huge, 0.0), std::length_error);
  EXPECT_THROW(vector.insert(huge, 2, 0.0), std::length_error);
  EXPECT_EQ(vector.data, (Values{1, 2}));
}

TEST(Vector, EditingNeedsALengthEqualToTheSize) {
  Vector vector("a", metre, {1, 2});
  vector.length = 3;
  EXPECT_EQ(thrown([&] { vector.erase(0, 0); }), "BaseVec length does not equal size on erase");
  EXPECT_EQ(thrown([&] { vector.insert(0, 0, 1.0); }),
            "BaseVec length does not equal size on insert");
  EXPECT_EQ(vector.data, (Values{1, 2}));
  EXPECT_EQ(vector.length, 3u);
  Cvector spectrum("f", metre, std::vector<Complex>(3));
  spectrum.length = 4;
  EXPECT_EQ(thrown([&] { spectrum.erase(1, 0); }), "BaseVec length does not equal size on erase");
}

TEST(Rms, IsTheRootOfHalfTheSumOfSquaresWithoutTheMean) {
  const Cvector spectrum("f", metre, {{100, 100}, {3, 4}, {0, 2}, {-1, 0}});
  EXPECT_DOUBLE_EQ(Base::rms(spectrum), std::sqrt(0.5 * (25.0 + 4.0 + 1.0)));
}

TEST(Rms, OfOneElementOrNoneIsZero) {
  EXPECT_EQ(Base::rms(Cvector()), 0.0);
  EXPECT_EQ(Base::rms(Cvector("f", metre, {{3, 4}})), 0.0);
}

}  // namespace
