// Waves and changes of jobs that cannot be run: each fault is reported once, and nothing that only
// follows from another fault.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "jobs/job_folder.h"

namespace Jobs {
namespace {

using Testing::flume_job;
using Testing::JobFolder;

std::string wave(const std::string& keys) { return "[[sea]]\n[[sea.wave]]\n" + keys + "\n"; }
std::string change(const std::string& keys) { return "[[sea.change]]\n" + keys + "\n"; }

// A sea of each kind of wave, with the changes of all slots.
std::string every_kind() {
  return wave("kind = \"single\"\nf = \"0.5 Hz\"\na = \"20 mm\"") +
         wave("kind = \"jonswap\"\nhs = \"40 mm\"\ntp = \"1.5 s\"") +
         change("kind = \"random_phases\"\nseed = 3") +
         change(
             "kind = \"AngleSpread\"\nfunction = \"CosS\"\nformula = \"9\"\nangle = \"10 "
             "deg\"\nseed = 4") +
         change("kind = \"GainAdjust\"\nformula = \"0.5\"") +
         wave("kind = \"spectrum\"\nformula = \"0.5@Hz#0.0001@m2s#1.5@Hz\"") +
         change("kind = \"cos2s\"\ns = 8\nangle = \"20 deg\"\nseed = 5") +
         wave("kind = \"time\"\nformula = \"0@s#0.02*cos(pi*$[s])@m#64@s\"\nrate = \"16 Hz\"") +
         wave("kind = \"fronts\"\nfile = \"fronts.csv\"") +
         wave("kind = \"table\"\nfile = \"table.csv\"") +
         wave("kind = \"record\"\nfile = \"record.csv\"");
}

struct Refusals : testing::Test {
  Refusals() {
    folder.write("fronts.csv", "f [Hz],a [mm]\n0.5,20\n");
    folder.write("table.csv", "f [Hz],S [cm2/Hz]\n0.3,0\n0.9,2\n1.4,0\n");
    folder.write("record.csv", "time [s],eta [mm]\n0,1\n0.1,2\n0.2,1\n");
    folder.write("two.csv", "a [mm],b [mm]\n0,1\n0.1,2\n");
  }
  std::string refusal(const std::string& sea) const { return folder.refusal(flume_job(sea)); }

  JobFolder folder;
};

using WaveRefusals = Refusals;

TEST_F(WaveRefusals, AJobOfEveryKindIsAccepted) { EXPECT_EQ(refusal(every_kind()), ""); }

TEST_F(WaveRefusals, WithoutARepeatTimeOnlyThatIsReported) {
  EXPECT_EQ(folder.refusal(flume_job(every_kind(), "0 s")), "3: `repeat` must be above 0\n");
}

TEST_F(WaveRefusals, WithoutASiteOnlyThatIsReported) {
  const std::string text =
      folder.refusal("site = \"none.site\"\n[run]\nrepeat = \"64 s\"\n" + every_kind());
  EXPECT_TRUE(text.starts_with("1: ")) << text;
  EXPECT_EQ(text.find('\n'), text.size() - 1) << text;
}

TEST_F(WaveRefusals, APartWithoutAKindIsReportedOnce) {
  const std::string waves = refusal(wave("f = \"0.5 Hz\""));
  EXPECT_TRUE(waves.starts_with("5: a [[sea.wave]] needs a `kind`: ")) << waves;
  EXPECT_EQ(waves.find('\n'), waves.size() - 1) << waves;
  const std::string changes =
      refusal(wave("kind = \"jonswap\"\nhs = \"40 mm\"\ntp = \"1.5 s\"") + change("seed = 3"));
  EXPECT_TRUE(changes.starts_with("9: a [[sea.change]] needs a `kind`: ")) << changes;
  EXPECT_EQ(changes.find('\n'), changes.size() - 1) << changes;
}

TEST_F(WaveRefusals, TheLimitsOfAFormulaAreOfTheKindOfTheWave) {
  EXPECT_EQ(refusal(wave("kind = \"time\"\nformula = \"0.5@Hz#0.0001@m2s#1.5@Hz\"")),
            "7: the limits of a `time` formula are times "
            "(such as `0@s#0.1*cos(pi*$[s])@m#64@s`)\n");
  EXPECT_EQ(refusal(wave("kind = \"spectrum\"\nformula = \"0@s#0.02@m#64@s\"")),
            "7: the limits of a `spectrum` formula are frequencies "
            "(such as `0.2@Hz#0.0001@m2s#2@Hz`)\n");
}

TEST_F(WaveRefusals, AFormulaThatIsMissingIsReported) {
  for (const char* kind : {"time", "spectrum"}) {
    const std::string text = refusal(wave("kind = \"" + std::string(kind) + "\""));
    EXPECT_NE(text.find("`formula` is missing"), std::string::npos) << text;
  }
}

TEST_F(WaveRefusals, AFormulaMustHaveAllOfItsParameters) {
  const std::string time = refusal(
      wave("kind = \"time\"\nformula = \"0@s#a[m]*cos(pi*$[s])@m#64@s\"\nrate = \"16 Hz\""));
  EXPECT_NE(time.find("`a` is missing"), std::string::npos) << time;
  const std::string spectrum =
      refusal(wave("kind = \"spectrum\"\nformula = \"0.5@Hz#q[m]*0.0001[m]@m2s#1.5@Hz\""));
  EXPECT_NE(spectrum, "");
}

TEST_F(WaveRefusals, ATimeFormulaThatIsNotFiniteIsRefused) {
  EXPECT_EQ(refusal(wave("kind = \"time\"\nformula = \"0@s#0.02/($[s]-1)@m#64@s\"\n"
                         "rate = \"16 Hz\"")),
            "7: `formula` is not finite at all times of the run\n");
}

TEST_F(WaveRefusals, AValueOfAnotherKindIsShownAsTheJobHasIt) {
  const auto of_height = [&](const std::string& value) {
    return refusal(wave("kind = \"jonswap\"\ntp = \"1.5 s\"\nhs = " + value));
  };
  for (const auto& [value, shown] :
       {std::pair{"true", "true"}, std::pair{"false", "false"}, std::pair{"[1, 2]", "an array"},
        std::pair{"{a = 1}", "a table"}, std::pair{"2026-01-01", "a value of another kind"}}) {
    const std::string text = of_height(value);
    EXPECT_TRUE(text.starts_with("8: ")) << text;
    EXPECT_NE(text.find(shown), std::string::npos) << text;
  }
}

TEST_F(WaveRefusals, AMemberOfAnEnumerationIsNamed) {
  const std::string sea = wave("kind = \"jonswap\"\nhs = \"40 mm\"\ntp = \"1.5 s\"");
  const std::string spread =
      refusal(sea + change("kind = \"AngleSpread\"\nformula = \"9\"\nangle = \"10 deg\"\n"
                           "function = 3"));
  EXPECT_NE(spread.find("CosS, Cos2S"), std::string::npos) << spread;
  const std::string set =
      refusal(sea + change("kind = \"AngleChange\"\nformula = \"10@deg\"\nset = 3"));
  EXPECT_NE(set.find("use False, True"), std::string::npos) << set;
}

TEST_F(WaveRefusals, AMissingListIsReportedForEachKind) {
  for (const char* kind : {"fronts", "table", "record"}) {
    EXPECT_EQ(
        refusal(wave("kind = \"" + std::string(kind) + "\"\nfile = \"none.csv\"")),
        "7: the file `none.csv` does not exist (looked for in the folder " + folder.path() + ")\n")
        << kind;
  }
}

TEST_F(WaveRefusals, AListHasNoOtherKeys) {
  for (const char* kind : {"fronts", "table"}) {
    const std::string text = refusal(wave("kind = \"" + std::string(kind) + "\"\nfile = \"" +
                                          std::string(kind) + ".csv\"\nhs = 3"));
    EXPECT_NE(text.find("`hs`"), std::string::npos) << text;
    EXPECT_TRUE(text.starts_with("8: ")) << text;
  }
}

TEST_F(WaveRefusals, AFrontMayHaveNoFiniteAngleColumn) {
  folder.write("bare.csv", "f [Hz],a [mm],angle,phase [m]\n0.5,20,3,1\n");
  const std::string text = refusal(wave("kind = \"fronts\"\nfile = \"bare.csv\""));
  EXPECT_NE(text.find("column `angle`"), std::string::npos) << text;
  EXPECT_NE(text.find("column `phase`"), std::string::npos) << text;
}

TEST_F(WaveRefusals, ATableNeedsItsColumns) {
  folder.write("f.csv", "f [Hz]\n0.3\n");
  folder.write("S.csv", "S [cm2/Hz]\n0.3\n");
  for (const char* file : {"f.csv", "S.csv"}) {
    const std::string text =
        refusal(wave("kind = \"table\"\nfile = \"" + std::string(file) + "\""));
    EXPECT_NE(text.find("there is no column"), std::string::npos) << text;
  }
}

TEST_F(WaveRefusals, TheColumnOfARecordIsANameOrANumber) {
  const std::string base = "kind = \"record\"\nfile = \"two.csv\"\nrate = \"10 Hz\"\n";
  EXPECT_EQ(refusal(wave(base + "column = true")), "9: `column` is a text\n");
  EXPECT_EQ(refusal(wave(base + "column = \"c\"")),
            "9: there is no column \"c\": there are \"a [mm]\", \"b [mm]\"\n");
}

TEST_F(WaveRefusals, TheRampOfARecordIsNotNegative) {
  EXPECT_EQ(refusal(wave("kind = \"record\"\nfile = \"record.csv\"\nramp_time = \"-1 s\"")),
            "8: `ramp_time` must not be negative\n");
}

}  // namespace
}  // namespace Jobs
