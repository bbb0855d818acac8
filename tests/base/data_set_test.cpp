#include "base/data_set.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstddef>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

#include "support/thrown.h"

namespace {

using Base::Cvector;
using Base::DataSet;
using Base::FFT_Plan;
using Base::FFT_Type;
using Base::Params;
using Base::Quantity;
using Base::resolve_units;
using Base::Vector;
using Testing::thrown;
namespace Category = Base::Category;
using Complex = std::complex<double>;
using Values = std::vector<double>;

constexpr double two_pi = 2.0 * std::numbers::pi;
const Quantity hundred_hertz(100.0, Category::frequency);

// A mean of 0.25 and a wave of amplitude 2 at the third harmonic, a quarter cycle late.
Vector wave(std::size_t n, const char* units = "m") {
  Values samples(n);
  for (std::size_t j = 0; j < n; ++j) {
    samples[j] =
        0.25 + 2.0 * std::sin(two_pi * 3.0 * static_cast<double>(j) / static_cast<double>(n));
  }
  return Vector("wave", resolve_units(units), samples);
}

void expect_near(const Values& actual, const Values& expected) {
  ASSERT_EQ(actual.size(), expected.size());
  for (std::size_t i = 0; i < actual.size(); ++i) {
    EXPECT_NEAR(actual[i], expected[i], 1e-12) << i;
  }
}

Params with_rate(double value, const char* units) {
  Params params;
  params.insert("rate", value, units);
  params.insert("depth", 0.7, "m");
  return params;
}

TEST(DataSet, ATimeGivenAsRateIsTheSampleInterval) {
  const DataSet set(wave(8), Quantity(0.01, resolve_units("s")));
  EXPECT_DOUBLE_EQ(set.rate().value, 100.0);
  EXPECT_EQ(set.rate().units, resolve_units("Hz"));
  EXPECT_EQ(set.rate().state, (Base::ValueState{0, 1}));
  // The rate is a new value: it does not take the state of the interval.
  const DataSet high(wave(8), Quantity(0.01, resolve_units("s"), {'*', 3}));
  EXPECT_EQ(high.rate().state, (Base::ValueState{0, 1}));
  const DataSet milli(Cvector("f", {8, 0}, {1.0}), Quantity(20.0, resolve_units("msec")));
  EXPECT_DOUBLE_EQ(milli.rate().value, 50.0);
}

TEST(DataSet, AFrequencyGivenAsRateIsKeptUnchanged) {
  const Quantity rate(0.1, resolve_units("kHz"), {'*', 3});
  const DataSet set(wave(8), rate);
  EXPECT_EQ(set.rate().value, 0.1);
  EXPECT_EQ(set.rate().units, resolve_units("kHz"));
  EXPECT_EQ(set.rate().state, (Base::ValueState{'*', 3}));
  EXPECT_EQ(DataSet(wave(8), hundred_hertz).rate().value, 100.0);
  EXPECT_EQ(DataSet(wave(8), Quantity(3.0, Category::angrate)).rate().units,
            resolve_units("rad/s"));
}

TEST(DataSet, ARateOfAnotherKindIsRefused) {
  const std::string message = "rate value of wrong type";
  EXPECT_EQ(thrown([] { DataSet(wave(8), Quantity(1.0, resolve_units("m"))); }), message);
  EXPECT_EQ(thrown([] { DataSet(wave(8), Quantity()); }), message);
  EXPECT_EQ(thrown([] { DataSet(Cvector(), Quantity(1.0, resolve_units("m"))); }), message);
  EXPECT_EQ(thrown([] { DataSet(wave(8), Quantity(resolve_units("s"))); }), "Invalid value");
}

TEST(DataSet, TheRateParameterMustBeAFrequency) {
  EXPECT_EQ(DataSet(wave(8), with_rate(5.0, "Hz")).rate().value, 5.0);
  const DataSet angular(wave(8), with_rate(5.0, "rad/s"));
  EXPECT_EQ(angular.rate().units, resolve_units("rad/s"));
  EXPECT_EQ(DataSet(Cvector("f", {8, 0}, {1.0}), with_rate(5.0, "Hz")).rate().value, 5.0);
  EXPECT_EQ(thrown([] { DataSet(wave(8), with_rate(5.0, "s")); }), "rate::not convertable");
  EXPECT_EQ(thrown([] { DataSet(wave(8), Params()); }), "rate::Not found");
  EXPECT_EQ(thrown([] { DataSet(Cvector(), Params()); }), "rate::Not found");
}

TEST(DataSet, KeepsItsOwnCopyOfTheParameters) {
  Params params = with_rate(5.0, "Hz");
  const DataSet set(wave(8), params);
  params.clear();
  EXPECT_EQ(set.param("depth").value, 0.7);
  EXPECT_EQ(thrown([&] { set.param("width"); }), "width::Not found");
  EXPECT_EQ(thrown([] { DataSet(wave(8), hundred_hertz).param("rate"); }), "rate::Not found");
}

TEST(DataSet, AGivenTimeFormIsReturnedUnchanged) {
  DataSet set(wave(8), hundred_hertz);
  double interval = 0.0;
  const Vector& time = set.time(interval);
  EXPECT_DOUBLE_EQ(interval, 0.01);
  EXPECT_EQ(time.data, wave(8).data);
  EXPECT_EQ(time.label, "wave");
  DataSet angular(wave(8), Quantity(two_pi * 4.0, Category::angrate));
  angular.time(interval);
  EXPECT_DOUBLE_EQ(interval, 0.25);
}

TEST(DataSet, ComputesTheFrequencyForm) {
  DataSet set(wave(200, "mm"), hundred_hertz);
  double step = 0.0;
  const Cvector& freq = set.freq(step);
  EXPECT_DOUBLE_EQ(step, 0.5);
  EXPECT_EQ(freq.length, 200u);
  EXPECT_EQ(freq.units, resolve_units("mm"));
  EXPECT_EQ(freq.label, "");
  ASSERT_EQ(freq.data.size(), 101u);
  EXPECT_NEAR(std::abs(freq.data[0] - 0.25), 0.0, 1e-12);
  EXPECT_NEAR(std::abs(freq.data[3] - Complex(0, -2)), 0.0, 1e-12);
  EXPECT_NEAR(std::abs(freq.data[4]), 0.0, 1e-12);
  EXPECT_NEAR(Base::rms(freq), std::sqrt(2.0), 1e-12);
}

TEST(DataSet, ComputesTheTimeForm) {
  Cvector freq("wave", resolve_units("mm"), std::vector<Complex>(8));
  freq.data[0] = 0.25;
  freq.data[3] = {0, -2};
  DataSet set(freq, hundred_hertz);
  EXPECT_EQ(set.length(), 8u);
  const Vector& time = set.time();
  EXPECT_EQ(time.label, "wave");
  EXPECT_EQ(time.units, resolve_units("mm"));
  EXPECT_EQ(time.length, 8u);
  expect_near(time.data, wave(8).data);
}

TEST(DataSet, OddAndEvenLengthsSurviveTheRoundTrip) {
  for (const std::size_t n : {200u, 201u}) {
    DataSet forth(wave(n), hundred_hertz);
    const Cvector freq = forth.freq();
    EXPECT_EQ(freq.data.size(), 101u);
    DataSet back(freq, hundred_hertz);
    EXPECT_EQ(back.length(), n);
    EXPECT_EQ(back.time().length, n);
    EXPECT_EQ(back.length(), n);
    expect_near(back.time().data, wave(n).data);
  }
}

TEST(DataSet, AConstantSeriesHasNoRms) {
  DataSet set(Vector("c", resolve_units("m"), Values(64, 3.5)), hundred_hertz);
  EXPECT_NEAR(Base::rms(set.freq()), 0.0, 1e-14);
  EXPECT_NEAR(set.freq().data[0].real(), 3.5, 1e-14);
}

TEST(DataSet, AComputedFormIsKept) {
  Cvector freq("wave", resolve_units("m"), std::vector<Complex>(8));
  DataSet set(freq, hundred_hertz);
  set.time();
  set.freq().data[0] = 5.0;
  expect_near(set.time().data, Values(8, 0.0));
}

TEST(DataSet, EachCallWithAPlanTransformsAgain) {
  Cvector freq("wave", resolve_units("mm"), std::vector<Complex>(8));
  DataSet set(freq, hundred_hertz);
  FFT_Plan plan(8, 8, FFT_Type::freq_to_time);
  expect_near(set.time(plan).data, Values(8, 0.0));
  set.freq().data[0] = 5.0;
  const Vector& time = set.time(plan);
  expect_near(time.data, Values(8, 5.0));
  EXPECT_EQ(time.label, "wave");
  EXPECT_EQ(time.units, resolve_units("mm"));
  EXPECT_EQ(time.length, 8u);
  plan.freeFFTBuffers();
}

TEST(DataSet, AValidTimeFormIgnoresThePlan) {
  DataSet set(wave(8), hundred_hertz);
  FFT_Plan other_size(5, 3, FFT_Type::freq_to_time);
  EXPECT_EQ(set.time(other_size).data, wave(8).data);
}

TEST(DataSet, TakeReturnsTheFormThatWouldBeRead) {
  for (const std::size_t n : {0u, 1u, 200u, 201u}) {
    DataSet forth(wave(n, "mm"), hundred_hertz);
    const Cvector freq = forth.freq();
    const Cvector taken = DataSet(wave(n, "mm"), hundred_hertz).take_freq();
    EXPECT_EQ(taken.data, freq.data);
    EXPECT_EQ(taken.units, freq.units);
    EXPECT_EQ(taken.length, n);
    EXPECT_EQ(std::move(forth).take_time().data, wave(n).data);

    DataSet back(freq, hundred_hertz);
    const Vector time = DataSet(freq, hundred_hertz).take_time();
    EXPECT_EQ(time.data, back.time().data);
    EXPECT_EQ(time.units, freq.units);
    EXPECT_EQ(time.length, n);
  }
  const Cvector named("wave", resolve_units("m"), std::vector<Complex>(8));
  EXPECT_EQ(DataSet(named, hundred_hertz).take_time().label, "wave");
}

TEST(DataSet, LengthComesFromTheValidForm) {
  EXPECT_EQ(DataSet(wave(7), hundred_hertz).length(), 7u);
  EXPECT_EQ(DataSet(Cvector("f", {8, 0}, std::vector<Complex>(5)), hundred_hertz).length(), 5u);
  // If both forms are valid, the length field of the time form counts, not its sample count.
  Vector longer("v", resolve_units("m"), {1, 2, 3});
  longer.length = 4;
  DataSet both(longer, hundred_hertz);
  EXPECT_EQ(both.freq().length, 3u);
  EXPECT_EQ(both.length(), 4u);
}

TEST(DataSet, WithoutEitherFormEveryRequestFails) {
  DataSet set(wave(8), hundred_hertz);
  static_cast<void>(std::move(set).take_freq());
  const std::string no_time = "Time data requested for empty data object";
  const std::string no_freq = "Freq data requested for empty data object";
  double number = 0.0;
  Vector out;
  EXPECT_EQ(thrown([&] { set.time(); }), no_time);
  EXPECT_EQ(thrown([&] { set.time(number); }), no_time);
  EXPECT_EQ(thrown([&] { set.scale(2.0); }), no_time);
  EXPECT_EQ(thrown([&] { set.fold(0); }), no_time);
  EXPECT_EQ(thrown([&] { set.freq(); }), no_freq);
  EXPECT_EQ(thrown([&] { std::move(set).take_time(); }), no_time);
  EXPECT_EQ(thrown([&] { std::move(set).take_freq(); }), no_freq);
  EXPECT_EQ(thrown([&] { set.freq(number); }), no_freq);
  EXPECT_EQ(thrown([&] { set.spectrum(out); }), no_freq);
  EXPECT_EQ(thrown([&] { set.variance(out); }), no_freq);
  EXPECT_EQ(thrown([&] { set.length(); }), "Length requested for empty data item");
  // A call with a plan does not check.
  FFT_Plan plan(0, 0, FFT_Type::freq_to_time);
  EXPECT_TRUE(set.time(plan).data.empty());
}

// Checks the frequency form against the transform of the time form.
void expect_fresh_spectrum(DataSet& set) {
  DataSet fresh(set.time(), hundred_hertz);
  ASSERT_EQ(set.freq().length, fresh.freq().length);
  ASSERT_EQ(set.freq().data.size(), fresh.freq().data.size());
  for (std::size_t h = 0; h < fresh.freq().data.size(); ++h) {
    EXPECT_NEAR(std::abs(set.freq().data[h] - fresh.freq().data[h]), 0.0, 1e-13) << h;
  }
}

TEST(DataSet, EditsInvalidateTheFrequencyForm) {
  const Values values = {1, 2, 3, 4, 5, 6};
  const auto edited = [&](auto edit) {
    DataSet set(Vector("v", resolve_units("m"), values), hundred_hertz);
    set.freq();
    edit(set);
    expect_fresh_spectrum(set);
    EXPECT_EQ(set.length(), set.time().data.size());
    return set.time().data;
  };
  EXPECT_EQ(edited([](DataSet& set) { set.erase(2, 1); }), (Values{3, 4, 5}));
  EXPECT_EQ(edited([](DataSet& set) { set.pad(1, 2, 9.0); }), (Values{9, 1, 2, 3, 4, 5, 6, 9, 9}));
  EXPECT_EQ(edited([](DataSet& set) { set.fold(2); }), (Values{6, 8, 3, 4}));
  EXPECT_EQ(edited([](DataSet& set) { set.scale(-2.0); }), (Values{-2, -4, -6, -8, -10, -12}));
}

TEST(DataSet, EditsApplyToTheTimeFormOfAFrequencyForm) {
  Cvector freq("f", resolve_units("m"), std::vector<Complex>(4));
  freq.data[0] = 2.0;
  DataSet set(freq, hundred_hertz);
  set.erase(1, 0);
  expect_near(set.time().data, Values(3, 2.0));
  DataSet scaled(freq, hundred_hertz);
  scaled.scale(3.0);
  EXPECT_NEAR(scaled.freq().data[0].real(), 6.0, 1e-14);
}

TEST(DataSet, FoldAddsTheLastSamplesToTheFirst) {
  const auto folded = [](std::uint64_t count) {
    DataSet set(Vector("v", resolve_units("m"), {1, 2, 3, 4, 5}), hundred_hertz);
    set.fold(count);
    return set.time().data;
  };
  EXPECT_EQ(folded(2), (Values{5, 7, 3}));
  // Only two samples remain, so of the last three, 3, 4 and 5, only 3 and 4 are added.
  EXPECT_EQ(folded(3), (Values{4, 6}));
  EXPECT_EQ(folded(5), Values{});
}

TEST(DataSet, FoldOfZeroSamplesInvalidatesTheFrequencyForm) {
  DataSet set(wave(8), hundred_hertz);
  set.freq().data[0] = 77.0;
  set.fold(0);
  EXPECT_EQ(set.time().data, wave(8).data);
  EXPECT_NEAR(set.freq().data[0].real(), 0.25, 1e-13);
}

TEST(DataSet, FailedEditsChangeNothing) {
  DataSet set(Vector("v", resolve_units("m"), {1, 2, 3}), hundred_hertz);
  EXPECT_EQ(thrown([&] { set.fold(4); }), "Fold of more samples than there are");
  EXPECT_EQ(thrown([&] { set.erase(2, 2); }), "BaseVec erase of more elements than there are");
  EXPECT_EQ(set.time().data, (Values{1, 2, 3}));

  Vector longer("v", resolve_units("m"), {1, 2, 3});
  longer.length = 4;
  DataSet mismatched(longer, hundred_hertz);
  const std::string erase_text = "BaseVec length does not equal size on erase";
  EXPECT_EQ(thrown([&] { mismatched.fold(1); }), erase_text);
  EXPECT_EQ(thrown([&] { mismatched.fold(0); }), erase_text);
  EXPECT_EQ(thrown([&] { mismatched.erase(0, 0); }), erase_text);
  EXPECT_EQ(thrown([&] { mismatched.pad(0, 0, 1.0); }),
            "BaseVec length does not equal size on insert");
  EXPECT_EQ(mismatched.time().data, (Values{1, 2, 3}));
}

TEST(DataSet, TheFrequencyFormHasTheLengthOfTheSamples) {
  Vector longer("v", resolve_units("m"), {1, 2, 3});
  longer.length = 4;
  DataSet set(longer, hundred_hertz);
  EXPECT_EQ(set.freq().length, 3u);
  EXPECT_EQ(set.freq().data.size(), 2u);
}

TEST(DataSet, SpectrumHoldsTheMagnitudes) {
  DataSet set(wave(201, "mm"), hundred_hertz);
  Vector out("old", resolve_units("s"), {1, 2, 3});
  set.spectrum(out);
  EXPECT_EQ(out.label, "Spectrum");
  EXPECT_EQ(out.units, resolve_units("mm"));
  EXPECT_EQ(out.length, 101u);
  ASSERT_EQ(out.data.size(), 101u);
  EXPECT_NEAR(out.data[0], 0.25, 1e-12);
  EXPECT_NEAR(out.data[3], 2.0, 1e-12);
  EXPECT_NEAR(out.data[50], 0.0, 1e-12);
}

TEST(DataSet, VarianceIsADensityInSquareMetreSeconds) {
  DataSet set(wave(200, "mm"), Quantity(0.05, resolve_units("kHz")));
  Vector out;
  set.variance(out);
  EXPECT_EQ(out.label, "Variance");
  EXPECT_EQ(out.units, resolve_units("m2s"));
  EXPECT_EQ(out.length, 101u);
  ASSERT_EQ(out.data.size(), 101u);
  // The variance of 2 mm amplitude, 2 mm2, lies in one step of 50 Hz / 200.
  EXPECT_NEAR(out.data[3], 2.0e-6 / 0.25, 1e-18);
  EXPECT_NEAR(out.data[0], 0.5 * 0.0625e-6 / 0.25, 1e-18);
}

// Exact to the last bit: the duration is rounded first, and 5 * 7 / 6 rounds differently.
TEST(DataSet, VarianceMultipliesByTheRoundedDuration) {
  Cvector freq("f", resolve_units("m"), std::vector<Complex>(7));
  freq.data[1] = {1, 2};
  DataSet set(freq, Quantity(6.0, Category::frequency));
  Vector out;
  set.variance(out);
  EXPECT_EQ(out.data[1], 5.0 * (7.0 / 6.0) * 0.5);
}

TEST(DataSet, VarianceNeedsLengths) {
  DataSet set(wave(8, "s"), hundred_hertz);
  Vector out("old", resolve_units("s"), {1, 2, 3});
  EXPECT_EQ(thrown([&] { set.variance(out); }), "Unable to convert from \"s\" to \"m\"");
  EXPECT_EQ(out.label, "old");
  EXPECT_EQ(out.data, (Values{1, 2, 3}));
}

}  // namespace
