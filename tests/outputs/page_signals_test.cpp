// Signals, points and spectra of pages that are made from files written by hand.
#include <gtest/gtest.h>

#include "outputs/made_netcdf.h"
#include "outputs/made_page.h"

namespace Outputs {
namespace {

using Testing::Json;
using Testing::numbers_of;

constexpr double pi = 3.14159265358979323846;

class PageSignals : public testing::Test {
 protected:
  Json page() {
    dir.write("summary.json", summary.dump());
    return Testing::made_page(dir.path());
  }
  template <typename Signal>
  void write_drive(std::size_t paddles, std::size_t samples, double rate, Signal signal) {
    summary["drive"] = Testing::drive_of(paddles, samples, rate);
    std::ostringstream file;
    file.precision(17);
    file << "# comment\ntime [s]";
    for (std::size_t p = 0; p < paddles; ++p) file << ",paddle " << p + 1 << " [m]";
    for (std::size_t i = 0; i < samples; ++i) {
      file << '\n' << static_cast<double>(i) / rate;
      for (std::size_t p = 0; p < paddles; ++p) file << ',' << signal(p, i);
    }
    dir.write("drive_1.csv", file.str() + "\n");
  }
  void write_point(std::size_t samples, double rate,
                   const std::function<std::string(double)>& eta) {
    summary["points"] = {{{"name", "p"}, {"rate", rate}, {"samples", samples}}};
    std::string file = "time [s],eta [m]\n";
    for (std::size_t i = 0; i < samples; ++i) {
      file += "0," + eta(static_cast<double>(i) / rate) + "\n";
    }
    dir.write("point_1.csv", file);
  }

  Json summary = Testing::bare_summary();
  Testing::TempDir dir;
};

TEST_F(PageSignals, HaveStrokeVelocityAndAmplitudesOfASine) {
  // Harmonic 20 of 10 s: 2 Hz, 16 samples a period.
  write_drive(2, 320, 32.0, [](std::size_t paddle, std::size_t i) {
    return 0.05 * static_cast<double>(paddle + 1) *
           std::sin(2.0 * pi * static_cast<double>(i) / 16);
  });
  const Json bank = page().at("drive").at(0);
  EXPECT_EQ(bank.at("every"), 1);
  EXPECT_EQ(bank.at("paddles"), (Json{0, 1}));
  EXPECT_NEAR(bank.at("highest").at(1), 0.1, 1e-12);
  EXPECT_NEAR(bank.at("lowest").at(0), -0.05, 1e-12);
  EXPECT_NEAR(bank.at("velocity").at(1), 0.1 * 2.0 * pi * 2.0, 1e-4);
  const Json& spectrum = bank.at("spectrum");
  EXPECT_DOUBLE_EQ(spectrum.at("df"), 0.1);
  EXPECT_EQ(spectrum.at("first"), 20);
  const std::vector<double> amplitude = numbers_of(spectrum.at("amplitude"));
  const std::size_t columns = amplitude.size() / 2;
  ASSERT_GT(columns, 5U);
  EXPECT_NEAR(amplitude[0], 0.05, 1e-5);
  EXPECT_NEAR(amplitude[columns], 0.1, 1e-5);
  EXPECT_NEAR(amplitude[1], 0.0, 1e-5);
}

TEST_F(PageSignals, AreThinnedInTime) {
  write_drive(1, 1600, 160.0, [](std::size_t, std::size_t i) { return static_cast<double>(i); });
  const Json bank = page().at("drive").at(0);
  EXPECT_EQ(bank.at("every"), 8);  // 20 Hz for waves of 2 Hz
  EXPECT_DOUBLE_EQ(bank.at("rate"), 20.0);
  const std::vector<double> signal = numbers_of(bank.at("signals"));
  ASSERT_EQ(signal.size(), 200U);
  EXPECT_NEAR(signal[199], 199 * 8, 0.03);
  EXPECT_EQ(bank.at("highest").at(0), 1599);
}

TEST_F(PageSignals, MayBeOneSampleOfOnePaddle) {
  write_drive(1, 1, 0.1, [](std::size_t, std::size_t) { return 0.25; });
  const Json bank = page().at("drive").at(0);
  EXPECT_EQ(numbers_of(bank.at("signals")), std::vector<double>{0.25});
  EXPECT_EQ(bank.at("velocity").at(0), 0.0);
  EXPECT_EQ(numbers_of(bank.at("spectrum").at("amplitude")), std::vector<double>{0.25});
}

TEST_F(PageSignals, AreThoseOfBanksWithPaddles) {
  write_drive(1, 2, 0.2, [](std::size_t, std::size_t) { return 0.5; });
  std::filesystem::rename(dir.file("drive_1.csv"), dir.file("drive_2.csv"));
  Json& banks = summary["drive"]["banks"];
  banks = {banks[0], banks[0]};
  banks[0]["paddles"] = 0;
  const Json drive = page().at("drive");
  ASSERT_EQ(drive.size(), 1U);
  EXPECT_EQ(drive.at(0).at("bank"), 1);
  EXPECT_EQ(numbers_of(drive.at(0).at("signals")), (std::vector<double>{0.5, 0.5}));
}

TEST_F(PageSignals, AreNoneWithoutSamples) {
  write_drive(1, 0, 0.1, [](std::size_t, std::size_t) { return 0.5; });
  EXPECT_EQ(page().at("drive"), Json::array());
}

TEST_F(PageSignals, ThatAreNotFiniteAreReportedWithTheirFile) {
  summary["drive"] = Testing::drive_of(2, 2, 0.2);
  {
    Testing::MadeNetcdf file(dir.file("drive.nc"));
    file.put(file.variable("drive_1", NC_DOUBLE, {2, 2}), {0.0, 1.0, 2.0, HUGE_VAL});
  }
  dir.write("summary.json", summary.dump());
  EXPECT_EQ(Testing::no_page(dir.path()),
            "x.out/drive.nc: the signal of paddle 2 of bank 1 is not finite");
}

TEST_F(PageSignals, OfOverAThousandPaddlesAreSomeOfThemWithTheWorst) {
  // 1,000,000 samples are 250 signals of 4,000. The file has more than are held at a time: it is
  // read in two parts, and again for the signals that are kept. Paddle 617 goes farthest, 123 is
  // the fastest.
  summary["run"]["highest_harmonic"] = 4000;
  write_drive(1100, 4000, 400.0, [](std::size_t paddle, std::size_t i) {
    if (paddle == 617) return i < 2000 ? 9.0 : 8.0;
    if (paddle == 123) return 7.0 * std::cos(static_cast<double>(i) * pi / 4.0);
    return 1.0;
  });
  const Json bank = page().at("drive").at(0);
  const std::vector<std::size_t> paddles = bank.at("paddles");
  EXPECT_EQ(bank.at("every"), 1);
  EXPECT_LE(paddles.size(), 250U);
  EXPECT_GE(paddles.size(), 248U);
  EXPECT_EQ(bank.at("highest").size(), 1100U);
  EXPECT_EQ(bank.at("highest").at(617), 9);
  EXPECT_NEAR(bank.at("lowest").at(123), -7.0, 1e-9);
  const std::vector<double> signals = numbers_of(bank.at("signals"));
  for (const std::size_t wanted : {std::size_t{617}, std::size_t{123}}) {
    const auto at = std::find(paddles.begin(), paddles.end(), wanted);
    ASSERT_NE(at, paddles.end()) << wanted;
    const auto row = static_cast<std::size_t>(at - paddles.begin());
    EXPECT_NEAR(signals[row * 4000], wanted == 617 ? 9.0 : 7.0, 1e-3);
    EXPECT_NEAR(signals[row * 4000 + 3996], wanted == 617 ? 8.0 : -7.0, 1e-3);
  }
}

TEST_F(PageSignals, AtAPointHaveTheVarianceOfTheWave) {
  // 0.2 m at 1.5 Hz: a variance of 0.02 m2.
  write_point(400, 40.0,
              [](double t) { return std::to_string(0.2 * std::cos(2.0 * pi * 1.5 * t)); });
  const Json point = page().at("points").at(0);
  EXPECT_EQ(point.at("every"), 1);
  const Json& spectrum = point.at("spectrum");
  EXPECT_EQ(spectrum.at("first"), 15);
  const std::vector<double> density = numbers_of(spectrum.at("density"));
  EXPECT_NEAR(density[0] * spectrum.at("df").get<double>(), 0.02, 1e-5);
}

TEST_F(PageSignals, AtAPointKeepTheVarianceInBands) {
  // 6,600 harmonics are shown in bands of 15. Each second one from 100 has 1 mm.
  summary["run"] = {{"repeat", 1000.0}, {"highest_harmonic", 6000}};
  std::vector<double> eta(20'000);
  for (std::size_t h = 100; h <= 140; h += 2) {
    for (std::size_t i = 0; i < eta.size(); ++i) {
      const double cycles = static_cast<double>(h * i % eta.size()) / 20'000.0;
      eta[i] += 0.001 * std::cos(2.0 * pi * cycles);
    }
  }
  std::size_t i = 0;
  write_point(eta.size(), 20.0, [&](double) {
    std::ostringstream text;
    text.precision(17);
    text << eta[i++];
    return text.str();
  });
  const Json spectrum = page().at("points").at(0).at("spectrum");
  const double df = spectrum.at("df");
  EXPECT_DOUBLE_EQ(df, 0.015);
  const std::vector<double> density = numbers_of(spectrum.at("density"));
  double sum = 0.0;
  for (const double value : density) sum += value * df;
  EXPECT_NEAR(sum, 21 * 0.5e-6, 1e-9);
  const std::size_t first = spectrum.at("first");
  EXPECT_EQ(first, 7U);  // harmonics 98 to 112
  EXPECT_NEAR(density[0] * df, 7 * 0.5e-6, 1e-9);
}

// 6,608 harmonics in bands of 15: the last one has its middle at 6,615.
TEST_F(PageSignals, AtAPointEndWithTheLastBand) {
  summary["run"] = {{"repeat", 1000.0}, {"highest_harmonic", 6008}};
  std::size_t i = 0;
  write_point(20'000, 20.0, [&](double) {
    const auto wave = [&](std::size_t h) {
      return std::cos(2.0 * pi * static_cast<double>(h * i % 20'000) / 20'000.0);
    };
    const double eta = 0.02 * wave(6620) + 0.01 * wave(6623);
    ++i;
    return std::to_string(eta);
  });
  const Json spectrum = page().at("points").at(0).at("spectrum");
  EXPECT_EQ(spectrum.at("first"), 441);
  const std::vector<double> density = numbers_of(spectrum.at("density"));
  ASSERT_EQ(density.size(), 1U);
  EXPECT_NEAR(density[0] * spectrum.at("df").get<double>(), 0.5 * 0.02 * 0.02, 1e-8);
}

TEST_F(PageSignals, AtPointsWithoutSamplesAreNotShown) {
  write_point(0, 0.1, [](double) { return "0"; });
  EXPECT_EQ(page().at("points"), Json::array());
}

TEST_F(PageSignals, AtAPointMayBeNaN) {
  write_point(40, 4.0, [](double t) { return t == 5.0 ? "nan" : "0.5"; });
  const Json point = page().at("points").at(0);
  EXPECT_FALSE(point.contains("spectrum"));
  const std::vector<double> eta = numbers_of(point.at("eta"));
  for (std::size_t i = 0; i < eta.size(); ++i) EXPECT_EQ(std::isnan(eta[i]), i == 20) << i;
}

TEST_F(PageSignals, OfLongPointsAreThinned) {
  write_point(150'000, 15'000.0, [](double) { return "1"; });
  const Json point = page().at("points").at(0);
  EXPECT_EQ(point.at("every"), 750);
  EXPECT_EQ(point.at("eta").at("shape"), Json{200});
}

}  // namespace
}  // namespace Outputs
