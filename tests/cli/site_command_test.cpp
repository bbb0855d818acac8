// `kelpbox site`. Expected values are those of the scripts in examples/.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>

#include "cli/program_run.h"
#include "cli/sample_jobs.h"
#include "cli/site_report.h"

using Testing::example;
using Testing::Ran;
using Testing::run_program;

namespace {

bool has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

constexpr double pi = 3.14159265358979323846;

}  // namespace

TEST(SiteCommand, ShowsTankLimitsAndBanks) {
  const Ran ran = run_program({"site", example("basin.site")});
  EXPECT_EQ(ran.code, 0);
  EXPECT_EQ(ran.err, "");
  for (const std::string part :
       {"Hydraulics Laboratory, Wave basin, ridge", "#0x", "x = 0 to 30 m, y = 0 to 20 m",
        "the side walls at y = 0 m and y = 20 m reflect", "2 m at the paddle line",
        "0.1 to 2 Hz, -60 to 60 deg", "64 Hz", "9.81 m/s2",
        "absorber_porosity = 0.45, from 0.3 to 0.6", "main: 40 flaps, each 0.5 m wide",
        "1.5 m below the water line", "x = 0 m, y = 0.25 to 19.75 m, every 0.5 m, facing 0 deg",
        "-15 to 15 deg, counts as clipped at 14 deg", "gear_ratio = 12.5", "rod_length = 650 mm"}) {
    EXPECT_TRUE(has(ran.out, part)) << part << '\n' << ran.out;
  }
}

TEST(SiteCommand, ShowsEachBankAndThePistonsFoot) {
  const Ran ran = run_program({"site", example("l_basin.site")});
  for (const std::string part : {"no side wall reflects", "bank 1     end wall: 24 pistons",
                                 "bank 2     side wall: 16 pistons",
                                 "1 m below the water line, at the bed", "facing 90 deg"}) {
    EXPECT_TRUE(has(ran.out, part)) << part << '\n' << ran.out;
  }
}

TEST(SiteCommand, SaysWhyNoWaveCanBeMade) {
  const Testing::TempDir folder;
  std::filesystem::copy(example("common"), folder.file("common"));
  std::ifstream file(example("flume.site"));
  const std::string flume(std::istreambuf_iterator<char>(file), {});
  const std::string depth = "depth = \"0.7\"";
  ASSERT_TRUE(has(flume, depth));
  const auto with_depth = [&](const std::string& formula) {
    std::string text = flume;
    text.replace(text.find(depth), depth.size(), "depth = \"" + formula + "\"");
    return run_program({"site", folder.write("x.site", text)});
  };
  const Ran dry = with_depth("-0.7");
  EXPECT_EQ(dry.code, 0) << dry.err;
  EXPECT_TRUE(has(dry.out, "no wave can be made here: the depth at the paddle line is not above 0"))
      << dry.out;
  for (const std::string formula : {"1/0", "0/0"}) {
    const Ran bottomless = with_depth(formula);
    EXPECT_EQ(bottomless.code, 2);
    EXPECT_TRUE(has(bottomless.err, "its depth is not usable: it must be finite everywhere"))
        << bottomless.err;
  }
  EXPECT_FALSE(has(run_program({"site", example("flume.site")}).out, "no wave"));
}

TEST(SiteCommand, KeepsItsLinesWithinAHundredColumns) {
  for (const std::string site : {"basin.site", "flume.site", "l_basin.site"}) {
    std::istringstream lines(run_program({"site", example(site)}).out);
    for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 100U) << line;
  }
}

TEST(SiteCommand, WritesJson) {
  const auto site =
      nlohmann::json::parse(run_program({"site", example("l_basin.site"), "--json"}).out);
  EXPECT_EQ(site.at("tank"), "L basin");
  EXPECT_EQ(site.at("x").at("maximum"), 20.0);
  EXPECT_EQ(site.at("walls"), "none");
  EXPECT_NEAR(site.at("frequency").at("maximum").get<double>(), 1.8, 1e-12);
  EXPECT_NEAR(site.at("angle").at("minimum").get<double>(), -pi, 1e-12);
  EXPECT_NEAR(site.at("base_rate").at("value").get<double>(), 32.0, 1e-9);
  EXPECT_EQ(site.at("profile").at("x").size(), site.at("profile").at("depth").size());
  EXPECT_EQ(site.at("profile").at("depth").front(), 1.0);
  EXPECT_NEAR(site.at("profile").at("depth").back().get<double>(), 0.6, 1e-12);
  const auto bank = site.at("banks").at(1);
  EXPECT_EQ(bank.at("name"), "side wall");
  EXPECT_EQ(bank.at("machine"), "piston");
  EXPECT_EQ(bank.at("paddles"), 16);
  EXPECT_NEAR(bank.at("spacing").at("maximum").get<double>(), 0.4, 1e-12);
  EXPECT_EQ(bank.at("motion").at("units"), "mm");
  EXPECT_EQ(bank.at("motion").at("clip"), 290.0);
}

TEST(SiteCommand, TunesValues) {
  const std::string site = example("flume.site");
  EXPECT_TRUE(has(run_program({"site", site}).out, "drive_gain = 1, from 0.75 to 1.25"));
  const Ran ran = run_program(
      {"site", site, "--set", "drive_gain=1.1", "--set", "still_water_correction=1 cm"});
  EXPECT_TRUE(has(ran.out, "drive_gain = 1.1, from 0.75 to 1.25")) << ran.out << ran.err;
  EXPECT_TRUE(has(ran.out, "still_water_correction = 10 mm")) << ran.out;
}

TEST(SiteCommand, RefusesValuesThatTheSiteDoesNotHave) {
  const std::string site = example("flume.site");
  const Ran misspelt = run_program({"site", site, "--set", "drive_gian=1.1"});
  EXPECT_EQ(misspelt.code, 2);
  EXPECT_EQ(misspelt.out, "");
  EXPECT_TRUE(has(misspelt.err, "did you mean `drive_gain`?")) << misspelt.err;
  EXPECT_EQ(run_program({"site", site, "--set", "drive_gain=1.1 mm"}).code, 2);
  EXPECT_EQ(run_program({"site", site, "--set", "drive_gain"}).code, 2);
  EXPECT_EQ(run_program({"site", site, "--set", "=1"}).code, 2);
}

TEST(SiteCommand, PointsAtTheFaultOfAScript) {
  const Testing::TempDir folder;
  folder.write("bad.site", "context {\n    site_name = \"X\";\n    tank_nam = \"a\";\n}\n");
  const Ran ran = run_program({"site", "bad.site"}, {.folder = folder.path()});
  EXPECT_EQ(ran.code, 2);
  EXPECT_EQ(ran.out, "");
  EXPECT_TRUE(has(ran.err, " --> bad.site:3:5\n")) << ran.err;
  EXPECT_TRUE(has(ran.err, "    tank_nam = \"a\";\n")) << ran.err;
}

TEST(SiteCommand, ReportsScriptsThatCannotBeRead) {
  const Testing::TempDir folder;
  folder.write("divides.site", "context { base_rate = 1/0; }\n");
  folder.write("binary.site", std::string("\x7f"
                                          "ELF\0\1\2\3",
                                          8));
  folder.write("empty.site", "");
  for (const std::string name : {"divides.site", "binary.site", "empty.site", "nix.site", "."}) {
    const Ran ran = run_program({"site", name}, {.folder = folder.path()});
    EXPECT_EQ(ran.code, 2) << name;
    EXPECT_EQ(ran.out, "") << name;
    EXPECT_EQ(ran.err.rfind("error: ", 0), 0U) << name << '\n' << ran.err;
  }
}
