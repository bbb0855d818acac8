#include "jobs/sea_sentence.h"

#include "gtest/gtest.h"
#include "jobs/job_folder.h"

using namespace Testing;

namespace {

std::string sentence(const std::string& sea, const std::vector<std::string>& options = {}) {
  const JobFolder folder;
  folder.write("job.toml", "site = \"x.site\"\n[run]\nrepeat = \"64 s\"\n[[sea]]\n" + sea);
  Jobs::Diagnostics faults;
  Jobs::Run run;
  run.job = Jobs::read_job(folder.file("job.toml"), options, faults);
  return Jobs::sea_sentence(run, run.job.seas.at(0));
}

std::string wave(const std::string& rest) { return "[[sea.wave]]\n" + rest; }

}  // namespace

TEST(SeaSentence, HasValuesAsTheJobGivesThemInTheOrderOfTheSea) {
  EXPECT_EQ(sentence(wave("kind = \"jonswap\"\ntp = \"1.80 s\"\nf_max = \"1.2 Hz\"\n"
                          "hs = \"80 mm\"\n"
                          "[[sea.change]]\nkind = \"goda\"\nangle = \"10 deg\"\ntp = \"1.8 s\"\n"
                          "s_max = 25\nseed = 1\n"
                          "[[sea.change]]\nkind = \"random_phases\"\nseed = 2\n")),
            "JONSWAP, hs 80 mm, tp 1.80 s, gamma 3.3, f_max 1.2 Hz; "
            "goda, s_max 25, tp 1.8 s, angle 10 deg; random phases");
}

TEST(SeaSentence, HasTheDefaultOfGammaOnlyWhereTheJobLeavesIt) {
  EXPECT_EQ(sentence(wave("kind = \"tma\"\nhs = \"8 cm\"\ntp = \"2 s\"\ngamma = 6.5\n")),
            "TMA, hs 8 cm, tp 2 s, gamma 6.5");
  EXPECT_EQ(sentence(wave("kind = \"gaussian_swell\"\nhs = \"8 cm\"\ntp = \"2 s\"\n"
                          "width = \"0.02 Hz\"\n")),
            "Gaussian swell, hs 8 cm, tp 2 s, width 0.02 Hz");
}

TEST(SeaSentence, FollowsOptions) {
  EXPECT_EQ(sentence(wave("kind = \"regular\"\nheight = \"50 mm\"\nperiod = \"1.6 s\"\n"),
                     {"sea.height=60 mm"}),
            "Regular, height 60 mm, period 1.6 s");
}

TEST(SeaSentence, NamesTheLibrarysOwnKindsAsTheyAre) {
  EXPECT_EQ(sentence(wave("kind = \"single\"\nf = \"0.8 Hz\"\na = \"25 mm\"\n"
                          "[[sea.change]]\nkind = \"AngleChange\"\nformula = \"10@deg\"\n"
                          "set = true\n")),
            "single, f 0.8 Hz, a 25 mm; AngleChange, formula 10@deg, set true");
}

TEST(SeaSentence, CutsLongListsAndSaysHowManyFollow) {
  const auto waves = [](int count) {
    std::string text;
    for (int i = 1; i <= count; ++i) {
      text += wave("kind = \"single\"\nf = \"0." + std::to_string(i) + " Hz\"\na = \"1 mm\"\n");
    }
    return text;
  };
  const std::string four =
      "single, f 0.1 Hz, a 1 mm; single, f 0.2 Hz, a 1 mm; single, f 0.3 Hz, a 1 mm; "
      "single, f 0.4 Hz, a 1 mm";
  EXPECT_EQ(sentence(waves(4)), four);
  EXPECT_EQ(sentence(waves(5)), four + "; and 1 more wave");
  EXPECT_EQ(sentence(waves(6)), four + "; and 2 more waves");
  std::string values;
  for (char name = 'a'; name <= 'j'; ++name) values += std::string(1, name) + " = 1\n";
  EXPECT_EQ(sentence(wave("kind = \"spectrum\"\n" + values)),
            "spectrum, a 1, b 1, c 1, d 1, e 1, f 1, g 1, h 1, and 2 more values");
}

TEST(SeaSentence, CountsTheWavesThatItLeavesOut) {
  const std::string single = wave("kind = \"single\"\nf = \"0.8 Hz\"\n");
  const std::string four = "single, f 0.8 Hz; single, f 0.8 Hz; single, f 0.8 Hz; single, f 0.8 Hz";
  EXPECT_EQ(sentence(single + single + single + single), four);
  EXPECT_EQ(sentence(single + single + single + single + single), four + "; and 1 more wave");
  EXPECT_EQ(sentence(single + single + single + single + single + single),
            four + "; and 2 more waves");
}

TEST(SeaSentence, ShowsEveryKindOfValue) {
  EXPECT_EQ(sentence(wave("kind = \"spectrum\"\na = false\nb = true\nc = [1]\nfile = 3\n"
                          "[[sea.change]]\nkind = \"PhaseRandom\"\nran_gen = \"Default\"\n")),
            "spectrum, a false, b true, c ..., file 3; PhaseRandom");
}

TEST(SeaSentence, CutsLongTextsBetweenCharacters) {
  std::string long_text;
  std::string shown;
  for (int i = 0; i < 100; ++i) long_text += "\xC3\xB6";
  for (int i = 0; i < 60; ++i) shown += "\xC3\xB6";
  EXPECT_EQ(sentence(wave("kind = \"record\"\nfile = \"" + long_text + "\"\n")),
            "record, file " + shown + "...");
}

TEST(SeaSentence, NamesFilesAsBelowInputs) {
  const JobFolder folder;
  folder.write("a/probe.csv", "eta [mm]\n1\n-1\n2\n-2\n");
  folder.write("b/probe.csv", "eta [mm]\n2\n-2\n2\n-2\n");
  const std::string rest = "\"\ncolumn = 1\nrate = \"10 Hz\"\n";
  const auto run = folder.prepare(
      flume_job("[[sea]]\n[[sea.wave]]\nkind = \"record\"\nfile = \"a/probe.csv" + rest +
                "[[sea.wave]]\nkind = \"record\"\nfile = \"b/../b/probe.csv" + rest));
  EXPECT_EQ(Jobs::sea_sentence(*run, run->job.seas.at(0)),
            "record, file probe.csv, column 1, rate 10 Hz; "
            "record, file probe-2.csv, column 1, rate 10 Hz");
}

TEST(SeaSentence, KeepsMarkupAsItIs) {
  EXPECT_EQ(sentence(wave("kind = \"record\"\nfile = '<script>\"x\"</script>'\n")),
            "record, file <script>\"x\"</script>");
}
