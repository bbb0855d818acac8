#include "cli/judgement_table.h"

#include <sstream>
#include <string>
#include <vector>

#include "gtest/gtest.h"

using Jobs::Finding;
using Jobs::Judgement;
using Jobs::Verdict;

namespace {

Finding finding(const std::string& key, const std::string& quantity, const std::string& asked,
                const std::string& made, const std::string& criterion, Verdict verdict,
                const std::string& remark, bool minor = false) {
  Finding result;
  result.group = "sea";
  result.key = key;
  result.quantity = quantity;
  result.asked_text = asked;
  result.made_text = made;
  result.criterion = criterion;
  result.verdict = verdict;
  result.remark = remark;
  result.minor = minor;
  return result;
}

Judgement storm() {
  Judgement judgement;
  judgement.findings = {finding("hs", "Hs", "80.0 mm", "79.5 mm", "within 2 %", Verdict::good, ""),
                        finding("velocity_peak.main", "velocity", "", "0.19 rad/s", "",
                                Verdict::none, "paddle 17 at 122.4 s"),
                        finding("waves_per_run", "waves per run", "", "171", "at least 500",
                                Verdict::look, "repeat of 750 s would do"),
                        finding("kd", "kd", "", "2.5", "", Verdict::none, "intermediate", true)};
  judgement.judged = 2;
  judgement.looks = 1;
  return judgement;
}

std::vector<std::string> lines_of(const std::string& text) {
  std::istringstream in(text);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

}  // namespace

TEST(JudgementTable, AlignsItsColumns) {
  EXPECT_EQ(Cli::findings_table(storm()),
            "                 asked    made        criterion\n"
            "  Hs             80.0 mm  79.5 mm     within 2 %    good\n"
            "  velocity                0.19 rad/s                      paddle 17 at 122.4 s\n"
            "  waves per run           171         at least 500  FEW   repeat of 750 s would do\n"
            "\n"
            "1 of 2 needs a look. --verbose shows 1 more.\n");
}

TEST(JudgementTable, ShowsMinorFindingsOnRequest) {
  const std::string table = Cli::findings_table(storm(), {false, true, 0});
  EXPECT_NE(table.find("intermediate"), std::string::npos);
  EXPECT_EQ(table.find("--verbose"), std::string::npos);
}

TEST(JudgementTable, WrapsRemarksBesideTheColumns) {
  const auto lines = lines_of(Cli::findings_table(storm(), {false, false, 85}));
  EXPECT_EQ(lines[3],
            "  waves per run           171         at least 500  FEW   repeat of 750 s would do");
  Judgement judgement = storm();
  judgement.findings[2].remark = "repeat of 750 s would do, and a finer one too";
  const auto wrapped = lines_of(Cli::findings_table(judgement, {false, false, 85}));
  EXPECT_EQ(wrapped[3], lines[3] + ",");
  EXPECT_EQ(wrapped[4], std::string(58, ' ') + "and a finer one too");
}

TEST(JudgementTable, PutsRemarksBelowOnANarrowTerminal) {
  const auto lines = lines_of(Cli::findings_table(storm(), {false, false, 60}));
  EXPECT_EQ(lines[4], "  waves per run           171         at least 500  FEW");
  EXPECT_EQ(lines[5], "      repeat of 750 s would do");
}

TEST(JudgementTable, CountsCharactersInsteadOfBytes) {
  Judgement judgement = storm();
  judgement.findings[0].quantity = "Höhe";
  const auto lines = lines_of(Cli::findings_table(judgement));
  EXPECT_EQ(lines[1], "  Höhe           80.0 mm  79.5 mm     within 2 %    good");
}

TEST(JudgementTable, KeepsControlCharactersFromTheTerminal) {
  Judgement judgement = storm();
  judgement.findings[0].quantity = "H\033[2Js\x7F";
  judgement.findings[0].remark = "a\nb";
  const std::string table = Cli::findings_table(judgement);
  EXPECT_EQ(table.find('\033'), std::string::npos);
  EXPECT_EQ(table.find('\x7F'), std::string::npos);
  EXPECT_NE(table.find("a b"), std::string::npos);
}

TEST(JudgementTable, ColoursOnlyTheVerdicts) {
  const std::string plain = Cli::findings_table(storm());
  std::string coloured = Cli::findings_table(storm(), {true, false, 0});
  EXPECT_NE(coloured.find("\033[32mgood\033[0m"), std::string::npos);
  EXPECT_NE(coloured.find("\033[1;31mFEW\033[0m"), std::string::npos);
  for (const std::string code : {"\033[32m", "\033[1;31m", "\033[0m"}) {
    for (std::size_t at; (at = coloured.find(code)) != std::string::npos;) {
      coloured.erase(at, code.size());
    }
  }
  EXPECT_EQ(coloured, plain);
}

TEST(JudgementTable, TakesWavesInOtherDirectionsForNoLoss) {
  Finding lost = finding("refracted", "", "", "", "", Verdict::look, "");
  lost.group = "lost";
  EXPECT_EQ(Cli::verdict_word(lost), "LOST");
  lost.key = "redirected";
  EXPECT_EQ(Cli::verdict_word(lost), "LOOK");
}

TEST(JudgementTable, SumsUp) {
  Judgement judgement = storm();
  EXPECT_EQ(Cli::summary_line(judgement), "1 of 2 needs a look.");
  judgement.looks = 2;
  EXPECT_EQ(Cli::summary_line(judgement), "2 of 2 need a look.");
  judgement.looks = 0;
  EXPECT_EQ(Cli::summary_line(judgement), "All 2 are good.");
  EXPECT_EQ(Cli::summary_line(Judgement()), "Nothing to judge.");
}

TEST(JudgementTable, NamesWhatNeedsALook) {
  Finding lost = finding("cut_above", "", "", "", "", Verdict::look, "");
  lost.group = "lost";
  EXPECT_EQ(Cli::verdict_word(lost), "LOST");
  EXPECT_EQ(Cli::verdict_word(finding("stroke_peak.main", "", "", "", "", Verdict::look, "")),
            "HIGH");
  EXPECT_EQ(Cli::verdict_word(finding("hs", "", "", "", "", Verdict::look, "")), "LOOK");
  EXPECT_EQ(Cli::verdict_word(finding("hs", "", "", "", "", Verdict::none, "")), "");
}
