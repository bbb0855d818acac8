// `kelpbox seas`.
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/sea_page.h"
#include "jobs/add_change.h"
#include "jobs/add_wave.h"
#include "jobs/change_kinds.h"
#include "jobs/job_folder.h"
#include "text_console.h"

namespace {

using Json = nlohmann::json;

class Seas : public testing::Test, public Testing::TextConsole {
 protected:
  int seas(const std::string& name = "") {
    out_stream.str("");
    err_stream.str("");
    return Cli::seas({name}, console);
  }
};

bool is_long(const std::string& line) { return line.size() > 100; }

std::vector<std::string> lines_of(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

TEST_F(Seas, ListsEveryKindThatAJobCanName) {
  EXPECT_EQ(seas(), 0);
  std::set<std::string> shown;
  for (const std::string& line : lines_of(out())) {
    EXPECT_FALSE(is_long(line)) << line;
    if (line.size() > 2 && line.substr(0, 2) == "  " && line[2] != ' ') {
      shown.insert(line.substr(2, line.find(' ', 2) - 2));
    }
  }
  std::set<std::string> known;
  for (const std::string& name : Jobs::wave_kinds()) known.insert(name);
  for (const std::string& name : Jobs::change_kinds()) known.insert(name);
  EXPECT_EQ(shown, known);
}

TEST_F(Seas, ListsRequiredParametersBeforeThoseInParentheses) {
  seas();
  EXPECT_NE(out().find("hs tp  (gamma sigma_a sigma_b f_min f_max)\n"), std::string::npos);
}

TEST_F(Seas, SayWhichColumnsAFileNeeds) {
  const auto meaning_of_file = [](const std::string& kind) {
    for (const Cli::SeaPage& page : Cli::sea_pages()) {
      for (const Cli::PageParameter& parameter : page.parameters) {
        if (page.name == kind && parameter.name == "file") return parameter.meaning;
      }
    }
    return std::string();
  };
  EXPECT_EQ(meaning_of_file("fronts"),
            "a CSV file, relative to the job, with the columns f and a, and angle and phase where "
            "they are not 0; units in its heads, such as a [mm]");
  EXPECT_EQ(meaning_of_file("table"),
            "a CSV file, relative to the job, with the columns f and S; units in its heads, such "
            "as S [m2/Hz]; straight lines between them");
  EXPECT_EQ(meaning_of_file("record"), "a CSV file, relative to the job");
}

TEST_F(Seas, DescribesEachKindInLinesThatFitATerminal) {
  for (const Cli::SeaPage& page : Cli::sea_pages()) {
    SCOPED_TRACE(page.name);
    EXPECT_EQ(seas(page.name), 0);
    EXPECT_EQ(out().substr(0, page.name.size() + 2), page.name + "  ");
    for (const std::string& line : lines_of(out())) EXPECT_FALSE(is_long(line)) << line;
    for (const Cli::PageParameter& parameter : page.parameters) {
      EXPECT_FALSE(parameter.meaning.empty()) << parameter.name;
      EXPECT_NE(out().find("\n  " + parameter.name + " "), std::string::npos) << parameter.name;
    }
    EXPECT_EQ(err(), "");
  }
}

TEST_F(Seas, AWrappedFormulaIsTheFormulaWithLineEndsAndIndents) {
  for (const Cli::SeaPage& page : Cli::sea_pages()) {
    if (page.formula.empty()) continue;
    seas(page.name);
    const std::size_t head = out().find("\nFormula");
    const std::size_t begin = out().find('\n', head + 1);
    const std::size_t end = out().find("\n\n", begin);
    std::string joined;
    for (const char c : out().substr(begin, end - begin)) {
      if (c != ' ' && c != '\n') joined += c;
    }
    EXPECT_EQ(joined, page.formula);
  }
}

TEST_F(Seas, BreaksFormulasBeforeOperatorsThatAreNotPartOfAUnit) {
  int continued = 0;
  for (const Cli::SeaPage& page : Cli::sea_pages()) {
    if (page.formula.empty()) continue;
    seas(page.name);
    const std::size_t head = out().find("\nFormula");
    for (const std::string& line : lines_of(out().substr(head, out().find("\n\n", head) - head))) {
      EXPECT_EQ(std::count(line.begin(), line.end(), '['),
                std::count(line.begin(), line.end(), ']'))
          << line;
      if (line.substr(0, 6) != "      ") continue;
      ++continued;
      EXPECT_NE(std::string("*/+").find(line.at(6)), std::string::npos) << line;
    }
  }
  EXPECT_GT(continued, 5);
}

TEST_F(Seas, AnUnknownNameIsRefusedWithTheNearest) {
  EXPECT_EQ(seas("jonswp"), 2);
  EXPECT_EQ(out(), "");
  EXPECT_EQ(err(), "error: there is no sea or change called `jonswp`: did you mean `jonswap`?\n");
  EXPECT_EQ(seas("tsunami"), 2);
  EXPECT_NE(err().find("`kelpbox seas` lists them"), std::string::npos);
}

TEST_F(Seas, JsonHasWhatThePagesHave) {
  console.json = true;
  seas();
  const Json list = Json::parse(out());
  EXPECT_EQ(list["seas"].size(), Cli::sea_pages().size());
  seas("jonswap");
  const Json sea = Json::parse(out());
  EXPECT_EQ(sea["name"], "jonswap");
  EXPECT_EQ(sea["for"], "sea.wave");
  EXPECT_EQ(sea["ready"], true);
  EXPECT_EQ(sea["parameters"][0]["name"], "hs");
  EXPECT_EQ(sea["parameters"][0]["units"], "m");
  EXPECT_EQ(sea["parameters"][0]["required"], true);
  EXPECT_EQ(sea["parameters"][2]["default"], "3.3");
  EXPECT_EQ(sea["parameters"][2]["range"], "from 1 to 100");
  EXPECT_EQ(sea["computed"][0]["name"], "norm");
  EXPECT_EQ(sea["formula"].get<std::string>().substr(0, 13), "f_min[Hz]@Hz#");
  seas("cos2s");
  const Json change = Json::parse(out());
  EXPECT_EQ(change["for"], "sea.change");
  EXPECT_EQ(change["stands_for"], "AngleSpread");
  EXPECT_EQ(change["fixed"]["function"], "Cos2S");
  EXPECT_EQ(seas("jonswp"), 2);
  EXPECT_EQ(Json::parse(out())["error"]["code"], 2);
}

// A basin's job with that example.
std::string job_with(const Cli::SeaPage& page) {
  const std::string wave = "[[sea.wave]]\nkind = \"jonswap\"\nhs = \"80 mm\"\ntp = \"1.6 s\"\n";
  return Testing::basin_job("[[sea]]\n" + (page.is_change ? wave : std::string()) + page.example);
}

TEST(SeaExamples, AllWorkAsTheyStand) {
  const Testing::JobFolder folder;
  folder.write("measured.csv", "t [s],eta [mm]\n0,0\n0.1,5\n0.2,0\n0.3,-5\n");
  folder.write("fronts.csv", "f [Hz],a [mm]\n0.5,20\n0.625,30\n");
  folder.write("spectrum.csv", "f [Hz],S [m2/Hz]\n0.4,0\n0.6,0.001\n1.2,0\n");
  for (const Cli::SeaPage& page : Cli::sea_pages()) {
    EXPECT_EQ(folder.refusal(job_with(page)), "") << page.example;
  }
}

}  // namespace
