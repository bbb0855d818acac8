// What a ready sea or change may be given, and what it refuses.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "jobs/ready_sea.h"
#include "ready.h"
#include "sea/piecewise_text.h"
#include "support/thrown.h"

namespace {

using Jobs::ReadyParameter;
using Jobs::ReadySea;
using Testing::completed;
using Testing::thrown;
using Testing::Values;

const Values heights{{"hs", 80, "mm"}, {"tp", 1.6, "s"}};
const std::map<std::string, Values> good{
    {"pierson_moskowitz", {{"hs", 80, "mm"}}},
    {"bretschneider", heights},
    {"ittc", {{"hs", 80, "mm"}, {"t1", 1.3, "s"}}},
    {"jonswap", heights},
    {"tma", heights},
    {"ochi_hubble",
     {{"hs1", 60, "mm"},
      {"tp1", 2.2, "s"},
      {"lambda1", 3, ""},
      {"hs2", 50, "mm"},
      {"tp2", 1.1, "s"},
      {"lambda2", 1, ""}}},
    {"gaussian_swell", {{"hs", 80, "mm"}, {"tp", 1.6, "s"}, {"width", 0.03, "Hz"}}},
    {"white_noise", {{"hs", 80, "mm"}}},
    {"regular", {{"height", 100, "mm"}, {"period", 1.6, "s"}}},
    {"focused", {{"crest", 120, "mm"}, {"tp", 1.6, "s"}}}};

// The good values of a sea with one of them replaced or added.
std::string failure(const std::string& name, const Testing::Value& other) {
  Values values;
  for (const Testing::Value& value : good.at(name)) {
    if (std::string(value.name) != other.name) values.push_back(value);
  }
  values.push_back(other);
  return thrown([&] { completed(name, values); });
}

TEST(ReadyValues, EverySeaOfTheListIsFoundByItsNameAndWorks) {
  std::set<std::string> names;
  for (const ReadySea& sea : Jobs::ready_seas()) {
    names.insert(sea.name);
    EXPECT_EQ(Jobs::find_ready_sea(sea.name), &sea);
    EXPECT_EQ(thrown([&] { completed(sea.name, good.at(sea.name)); }), Testing::nothing_thrown);
    EXPECT_FALSE(sea.title.empty());
    EXPECT_FALSE(sea.source.empty());
  }
  std::set<std::string> wanted;
  for (const auto& [name, values] : good) wanted.insert(name);
  EXPECT_EQ(names, wanted);
  EXPECT_EQ(Jobs::find_ready_sea("JONSWAP"), nullptr);
  EXPECT_EQ(Jobs::find_ready_sea(""), nullptr);
}

TEST(ReadyValues, SeasAndChangesCiteTheirPublications) {
  const auto cites = [](const std::string& name, const std::string& publication) {
    const ReadySea* sea = Jobs::find_ready_sea(name);
    const std::string source = sea ? sea->source : Jobs::find_ready_change(name)->source;
    EXPECT_NE(source.find(publication), std::string::npos) << name << ": " << source;
  };
  cites(
      "pierson_moskowitz",
      "Pierson and Moskowitz 1964, \"A proposed spectral form for fully developed wind seas based "
      "on the similarity theory of S. A. Kitaigorodskii\"");
  cites(
      "bretschneider",
      "Bretschneider 1959, \"Wave variability and wave spectra for wind-generated gravity waves\"");
  cites("ittc", "International Towing Tank Conference 1978");
  cites("ochi_hubble", "Ochi and Hubble 1976, \"Six-parameter wave spectra\"");
  cites("jonswap",
        "Hasselmann et al. 1973, \"Measurements of wind-wave growth and swell decay during the "
        "Joint North Sea Wave Project (JONSWAP)\"");
  cites("tma",
        "Bouws, Guenther, Rosenthal and Vincent 1985, \"Similarity of the wind wave spectrum in "
        "finite depth water: 1. Spectral form\"");
  cites("tma", "Kitaigorodskii, Krasitskii and Zaslavskii 1975");
  cites("tma", "Guo 2002, \"Simple and explicit solution of wave dispersion equation\"");
  cites("focused",
        "Tromans, Anaturk and Hagemeijer 1991, \"A new model for the kinematics of large ocean "
        "waves - application as a design wave\"");
  cites("cos2s",
        "Longuet-Higgins, Cartwright and Smith 1963, \"Observations of the directional spectrum of "
        "sea waves using the motions of a floating buoy\"");
  cites("cosn",
        "Pierson, Neumann and James 1955, \"Practical methods for observing and forecasting ocean "
        "waves\"");
  cites("goda",
        "Goda and Suzuki 1975, \"Computation of refraction and diffraction of sea waves with "
        "Mitsuyasu's directional spectrum\"");
  cites("random_phases", "Rice 1944, \"Mathematical analysis of random noise\"");
}

// What the library declares for a text is what the sea says that its parameters are.
TEST(ReadyValues, ParametersAreThoseOfTheFormula) {
  for (const ReadySea& sea : Jobs::ready_seas()) {
    if (sea.makes == ReadySea::Makes::single_wave) continue;
    SCOPED_TRACE(sea.name);
    Base::Params declared;
    Synthesis::parse_component_text(sea.formula).declare(declared);
    std::map<std::string, std::string> known;
    for (const auto* list : {&sea.parameters, &sea.computed}) {
      for (const ReadyParameter& parameter : *list) known[parameter.name] = parameter.units;
    }
    if (sea.name == "tma") known.erase("depth");  // it is in tau
    std::map<std::string, std::string> found;
    for (const Base::Param& param : declared.param_list()) found[param.name()] = param.units();
    EXPECT_EQ(found, known);
  }
}

TEST(ReadyValues, ADensityIsFiniteFromTheLongestToTheShortestWaves) {
  for (const auto& [name, values] : good) {
    if (name == "regular") continue;
    const Testing::LibraryDensity density(name, values);
    for (double f = 1e-4; f < 1000.0; f *= 1.1) {
      EXPECT_TRUE(std::isfinite(density(f)) && density(f) >= 0.0) << name << " at " << f;
    }
  }
}

TEST(ReadyValues, LimitsAreTheSitesUnlessTheyAreGiven) {
  const Base::Params site = completed("jonswap", heights);
  EXPECT_EQ(site.get("f_min", "Hz"), 0.35);
  EXPECT_EQ(site.get("f_max", "Hz"), 1.4);
  Values values = heights;
  values.push_back({"f_max", 900, "mHz"});
  const Base::Params given = completed("jonswap", values);
  EXPECT_EQ(given.get("f_min", "Hz"), 0.35);
  EXPECT_DOUBLE_EQ(given.get("f_max", "Hz"), 0.9);
}

TEST(ReadyValues, ValuesOutOfRangeAreRefusedByName) {
  EXPECT_EQ(failure("jonswap", {"hs", 0, "m"}), "hs::must be above 0");
  EXPECT_EQ(failure("pierson_moskowitz", {"hs", -80, "mm"}), "hs::must be above 0");
  EXPECT_EQ(failure("bretschneider", {"tp", 0, "s"}), "tp::must be above 0");
  EXPECT_EQ(failure("ittc", {"t1", -1, "s"}), "t1::must be above 0");
  EXPECT_EQ(failure("jonswap", {"gamma", 0.9, ""}), "gamma::must be from 1 to 100");
  EXPECT_EQ(failure("jonswap", {"gamma", 101, ""}), "gamma::must be from 1 to 100");
  EXPECT_EQ(failure("tma", {"sigma_a", 0, ""}), "sigma_a::must be from 0.001 to 1");
  EXPECT_EQ(failure("tma", {"depth", 0, "m"}), "depth::must be above 0");
  EXPECT_EQ(failure("focused", {"sigma_b", 2, ""}), "sigma_b::must be from 0.001 to 1");
  EXPECT_EQ(failure("focused", {"crest", 0, "m"}), "crest::must be above 0");
  EXPECT_EQ(failure("ochi_hubble", {"lambda2", 0, ""}), "lambda2::must be above 0 and at most 150");
  EXPECT_EQ(failure("ochi_hubble", {"hs1", 0, "m"}), "hs1::must be above 0");
  EXPECT_EQ(failure("gaussian_swell", {"width", 0, "Hz"}), "width::must be above 0");
  EXPECT_EQ(failure("regular", {"period", 0, "s"}), "period::must be above 0");
  EXPECT_EQ(failure("regular", {"height", 0, "m"}), "height::must be above 0");
  EXPECT_EQ(failure("white_noise", {"f_min", -1, "Hz"}), "f_min::must be at least 0");
  EXPECT_EQ(failure("white_noise", {"f_max", 0, "Hz"}), "f_max::must be above 0");
}

TEST(ReadyValues, ValuesThatAreNotFiniteAreRefusedByName) {
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(failure("jonswap", {"tp", infinity, "s"}), "tp::must be a finite number");
  EXPECT_EQ(failure("jonswap", {"hs", std::nan(""), "m"}), "hs::must be a finite number");
  EXPECT_EQ(failure("regular", {"phase", infinity, "rad"}), "phase::must be a finite number");
}

TEST(ReadyValues, ValuesThatTogetherGiveNoFiniteWaveAreRefused) {
  const std::string message = "these values together give no finite wave";
  EXPECT_EQ(failure("jonswap", {"hs", 1e200, "m"}), message);
  EXPECT_EQ(failure("jonswap", {"hs", 1e-200, "m"}), message);
  EXPECT_EQ(failure("bretschneider", {"hs", 1e200, "m"}), message);
  EXPECT_EQ(failure("tma", {"depth", 1e300, "m"}), message);
  EXPECT_EQ(failure("regular", {"period", 1e-320, "s"}), message);
}

TEST(ReadyValues, LimitsThatDoNotRiseAreRefused) {
  EXPECT_EQ(failure("jonswap", {"f_min", 1.4, "Hz"}),
            "f_min::must be below f_max, which is 1.4 Hz");
  EXPECT_EQ(failure("white_noise", {"f_max", 0.2, "Hz"}),
            "f_max::must be above f_min, which is 0.35 Hz");
}

TEST(ReadyValues, AFocusedGroupOutsideTheFrequenciesOfTheRunIsRefused) {
  const std::string message =
      "tp::less than 1 % of this group lies at frequencies that can be made";
  EXPECT_EQ(failure("focused", {"tp", 20, "s"}), message);
  EXPECT_EQ(failure("focused", {"tp", 0.2, "s"}), message);
}

TEST(ReadyValues, ChangesTakeTheParametersOfTheirFormulas) {
  for (const Jobs::ReadyChange& change : Jobs::ready_changes()) {
    SCOPED_TRACE(change.name);
    EXPECT_EQ(Jobs::find_ready_change(change.name), &change);
    const Base::UnitCategory output =
        change.modifier == "AngleChange" ? Base::Category::angle : Base::Category::unit;
    Base::Params declared;
    Synthesis::parse_modifier_text(change.formula, Base::Category::frequency, output)
        .declare(declared);
    std::set<std::string> found;
    for (const auto& entry : declared.entries()) found.insert(entry.first);
    std::set<std::string> known;
    for (const ReadyParameter& parameter : change.parameters) known.insert(parameter.name);
    EXPECT_EQ(found, known);
  }
  EXPECT_EQ(Jobs::find_ready_change("Cos2S"), nullptr);
}

TEST(ReadyValues, PowersThatTheLawDoesNotCoverAreRefused) {
  const auto refusal = [](const char* change, const char* name, double value) {
    return thrown([&] {
      Jobs::check_values(Jobs::find_ready_change(change)->parameters,
                         Testing::params_of({{name, value, ""}}));
    });
  };
  EXPECT_EQ(refusal("cos2s", "s", 0.4), "s::must be from 0.5 to 500000");
  EXPECT_EQ(refusal("cosn", "n", 0.9), "n::must be from 1 to 1e+06");
  EXPECT_EQ(refusal("gain", "factor", -1), "factor::must be at least 0");
  EXPECT_EQ(refusal("goda", "s_max", 0), "s_max::must be from 0.5 to 500000");
  EXPECT_EQ(refusal("cos2s", "s", 0.5), Testing::nothing_thrown);
}

}  // namespace

TEST(ReadyValues, ARangeIsDescribedByTheLimitsThatItHas) {
  const double infinity = std::numeric_limits<double>::infinity();
  Jobs::ReadyParameter parameter;
  parameter.above = parameter.least = -infinity;
  parameter.most = 5;
  EXPECT_EQ(Jobs::range_of(parameter), "at most 5");
  parameter.most = infinity;
  EXPECT_EQ(Jobs::range_of(parameter), "");
}
