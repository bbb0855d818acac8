// `kelpbox explain`: each message is explained by the page that lists it.
#include <gtest/gtest.h>

#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/embedded_file.h"
#include "cli/explanations.h"
#include "cli/markdown.h"
#include "cli/page_messages.h"
#include "text_console.h"

namespace {

struct Known {
  std::string page;
  std::string section;
  std::string part;  // of the explanation
  std::string message;
};

std::vector<Known> known_messages() {
  std::ifstream file(TEST_ROOT "/cli/messages.txt");
  std::vector<Known> known;
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line[0] == '#') continue;
    std::vector<std::string> fields;
    std::size_t begin = 0;
    for (int i = 0; i < 3; ++i) {
      const std::size_t end = line.find(" | ", begin);
      fields.push_back(line.substr(begin, end - begin));
      begin = end + 3;
    }
    known.push_back({"docs/" + fields[0], fields[1], fields[2], line.substr(begin)});
  }
  return known;
}

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

// The explanation from that place, or null.
const Cli::Explanation* at_place(const Cli::Answer& answer, const Known& known) {
  for (const Cli::Explanation& found : answer.fitting) {
    if (found.page == known.page && found.section == known.section) return &found;
  }
  return nullptr;
}

TEST(Explain, FindsEachMessageAtItsOwnPlace) {
  const std::vector<Known> all = known_messages();
  ASSERT_GT(all.size(), 100U);
  for (const Known& known : all) {
    const Cli::Answer answer = Cli::explain_message(known.message);
    const Cli::Explanation* found = at_place(answer, known);
    ASSERT_NE(found, nullptr) << known.message;
    EXPECT_NE(joined(found->lines).find(known.part), std::string::npos) << known.message;
  }
}

TEST(Explain, TheListCoversEveryRowOfTheTablesOfMessages) {
  std::set<std::string> covered;
  for (const Known& known : known_messages()) {
    for (const Cli::Explanation& found : Cli::explain_message(known.message).fitting) {
      covered.insert(found.page + found.section + joined(found.lines));
    }
  }
  const std::set<std::string> pages{"docs/limits.md",           "docs/components.md",
                                    "docs/modifiers.md",        "docs/expressions.md",
                                    "docs/native-failures.md",  "docs/job-file.md",
                                    "docs/analysing-records.md"};
  std::size_t rows = 0;
  for (const Cli::PageMessage& message : Cli::page_messages()) {
    const Cli::Explanation& row = message.explanation;
    if (!message.listed || pages.count(row.page) == 0) continue;
    if (row.message == "those of an experiment") continue;  // refers to the table above it
    ++rows;
    EXPECT_EQ(covered.count(row.page + row.section + joined(row.lines)), 1U) << row.message;
  }
  EXPECT_GT(rows, 120U);
}

TEST(Explain, ReadsTheExplanationOfTheWholeRow) {
  const Cli::Answer answer = Cli::explain_message(
      "Array of 300000 elements is too large: at most "
      "100000 can be made at once");
  ASSERT_EQ(answer.fitting.size(), 1U);
  EXPECT_EQ(
      answer.fitting[0].lines,
      (std::vector<std::string>{"What: elements of an array, in one statement", "Bound: 100 000"}));
}

TEST(Explain, IgnoresWhatOthersPutBeforeAMessage) {
  const std::string message = "Sweep has zero output";
  for (const std::string prefix :
       {"Uncaught Exception in Run Build: ", "error: ",
        "tidelab.waves.component.WaveSynthesisException: ",
        "Exception in thread \"main\" tidelab.waves.component.WaveSynthesisException: ",
        "tidelab.waves.component.WaveSynthesisException: Uncaught Exception in Run Build: ",
        "error:   "}) {
    const Cli::Answer answer = Cli::explain_message(prefix + message);
    ASSERT_FALSE(answer.fitting.empty()) << prefix;
    EXPECT_EQ(answer.fitting[0].section, "AngleSweep") << prefix;
  }
  EXPECT_FALSE(Cli::explain_message(message + " Error::  ").fitting.empty());
}

TEST(Explain, FindsAMessageByAPartOfIt) {
  const Cli::Answer answer = Cli::explain_message("outside dimensions of");
  ASSERT_EQ(answer.fitting.size(), 1U);
  EXPECT_EQ(answer.fitting[0].section, "Waves");
}

TEST(Explain, FindsAMessageThatIsRememberedRoughly) {
  const Cli::Answer answer = Cli::explain_message("the sweep has no output");
  EXPECT_TRUE(answer.fitting.empty());
  EXPECT_TRUE(answer.likely);
  EXPECT_EQ(answer.similar[0].section, "AngleSweep");
}

TEST(Explain, FindsAMessageByItsBeginning) {
  const Cli::Answer answer =
      Cli::explain_message("Knum calculation failed for omega=3.9 and depth = inf with g=9.81");
  ASSERT_FALSE(answer.fitting.empty());
  EXPECT_EQ(answer.fitting[0].page, "docs/site-keys.md");
}

TEST(Explain, KnowsEmptyRangesAndMissingKeys) {
  const Cli::Answer range = Cli::explain_message("y_max not greater than y_min");
  ASSERT_FALSE(range.fitting.empty());
  EXPECT_EQ(range.fitting[0].section, "The grid");
  const Cli::Answer key = Cli::explain_message("it does not set context{tank{section[2]{x = $;}}}");
  ASSERT_FALSE(key.fitting.empty());
  EXPECT_EQ(key.fitting[0].page, "docs/site-keys.md");
}

TEST(Explain, ListsNoSimilarMessageTwice) {
  for (const std::string message : {"the sweep has no output", "harmonic less than", "no unit"}) {
    std::set<std::string> shown;
    for (const Cli::Explanation& similar : Cli::explain_message(message).similar) {
      EXPECT_TRUE(shown.insert(Cli::normal_form(similar.message)).second) << similar.message;
    }
  }
}

class ExplainCommand : public testing::Test, public Testing::TextConsole {};

TEST_F(ExplainCommand, ShowsMessageExplanationAndPlace) {
  EXPECT_EQ(Cli::explain({"There", "must", "be", "an odd number of sub expressions"}, console), 0);
  EXPECT_EQ(out(),
            "There must be an odd number of sub expressions\n\n"
            "  a limit or a function is missing\n\n"
            "  docs/components.md, The expression of Spectrum and TimeExp\n");
  EXPECT_EQ(err(), "");
}

TEST_F(ExplainCommand, FailsForAMessageThatNoPageHas) {
  EXPECT_EQ(Cli::explain({"the boat is sinking in the harbour"}, console), 2);
  EXPECT_EQ(out(), "");
  EXPECT_NE(err().find("no page has a message like this"), std::string::npos);
  EXPECT_EQ(Cli::explain({}, console), 2);
  EXPECT_EQ(Cli::explain({" "}, console), 2);
}

TEST_F(ExplainCommand, SaysThatAMessageIsOnlySimilar) {
  EXPECT_EQ(Cli::explain({"the sweep has no output"}, console), 0);
  EXPECT_NE(out().find("AngleSweep"), std::string::npos);
  EXPECT_EQ(err(), "note: no page has exactly this message; this one is the most similar\n");
}

TEST_F(ExplainCommand, ReadsAStackTraceFromStandardInput) {
  std::istringstream trace(
      "Exception in thread \"main\" tidelab.waves.component.WaveSynthesisException: Value x=31 is "
      "outside dimensions of tank\n\tat tidelab.Host.main(Host.java:7)\n");
  std::streambuf* const before = std::cin.rdbuf(trace.rdbuf());
  const int code = Cli::explain({"-"}, console);
  std::cin.rdbuf(before);
  EXPECT_EQ(code, 0);
  EXPECT_NE(out().find("a position outside the tank"), std::string::npos);
}

TEST_F(ExplainCommand, WritesJson) {
  console.json = true;
  EXPECT_EQ(Cli::explain({"Value x=31 is outside dimensions of tank"}, console), 0);
  const auto json = nlohmann::json::parse(out());
  EXPECT_EQ(json["exact"], true);
  EXPECT_EQ(json["explanations"][0]["page"], "docs/limits.md");
  EXPECT_EQ(json["explanations"][0]["section"], "Waves");
}

TEST_F(ExplainCommand, WritesSimilarMessagesAsJson) {
  console.json = true;
  EXPECT_EQ(Cli::explain({"harmonic of the boat in the harbour"}, console), 2);
  const auto json = nlohmann::json::parse(out());
  EXPECT_EQ(json["error"]["code"], 2);
  EXPECT_FALSE(json["similar"].empty());
}

TEST_F(ExplainCommand, ShowsTheWholeExplanationOfEachMessage) {
  for (const Known& known : known_messages()) {
    out_stream.str("");
    EXPECT_EQ(Cli::explain({known.message}, console), 0) << known.message;
    EXPECT_NE(out().find("  " + known.page + ", " + known.section + "\n"), std::string::npos)
        << known.message;
  }
}

TEST_F(ExplainCommand, TakesTheFirstLineThatAPageHas) {
  std::istringstream log("\n \nthe boat\nis sinking\nSweep has zero output\n");
  std::streambuf* const before = std::cin.rdbuf(log.rdbuf());
  EXPECT_EQ(Cli::explain({"-"}, console), 0);
  std::cin.rdbuf(before);
  EXPECT_NE(out().find("AngleSweep"), std::string::npos);
}

TEST_F(ExplainCommand, DoesNotReadALongLogToItsEnd) {
  std::string text;
  for (int i = 0; i < 200; ++i) text += "zzzz\n";
  std::istringstream log(text + "Sweep has zero output\n");
  std::streambuf* const before = std::cin.rdbuf(log.rdbuf());
  EXPECT_EQ(Cli::explain({"-"}, console), 2);
  std::cin.rdbuf(before);
}

TEST_F(ExplainCommand, ReportsAMessageThatIsOnlySimilarAsJson) {
  console.json = true;
  EXPECT_EQ(Cli::explain({"the sweep has no output"}, console), 0);
  EXPECT_EQ(nlohmann::json::parse(out())["exact"], false);
}

TEST_F(ExplainCommand, ReportsAMessageLikeNoneAsJson) {
  console.json = true;
  EXPECT_EQ(Cli::explain({"zzzz"}, console), 2);
  const auto json = nlohmann::json::parse(out());
  EXPECT_EQ(json["error"]["code"], 2);
  EXPECT_FALSE(json.contains("similar"));
}

TEST(Markdown, RemovesMarks) {
  EXPECT_EQ(Cli::plain_text("**Bold** and *slanted*, `code`, [a page](x.md#y), a[1], 2^3"),
            "Bold and slanted, code, a page, a[1], 2^3");
  EXPECT_EQ(Cli::plain_text("`` `gama` in a wave ``"), "`gama` in a wave");
}

TEST(Markdown, KeepsQuotesInsideAQuotedMessage) {
  EXPECT_EQ(Cli::quoted_parts(R"("File "..." includes itself", "x_step::... m", `a b`)"),
            (std::vector<std::string>{R"(File "..." includes itself)", "x_step::... m", "a b"}));
  EXPECT_EQ(Cli::quoted_parts(R"(reported: "Unable to convert from "s" to "m"". Then)"),
            (std::vector<std::string>{R"(Unable to convert from "s" to "m")"}));
}

TEST(MessagePattern, VariesWhereThePageDoes) {
  const Cli::MessagePattern pattern(R"(Section[3] 8.25 in "m", ... of <name>)");
  EXPECT_TRUE(pattern.fit(R"(section[17] -1e-05  in "rad", 3 of the "main" bank)"));
  EXPECT_FALSE(pattern.fit(R"(Section[] 8.25 in "m", 3 of it)"));
  EXPECT_FALSE(pattern.fit(R"(Section[3] 8.25 in "m", 3 off it)"));
  EXPECT_FALSE(Cli::MessagePattern("in m2s").fit("in m3s"));
  EXPECT_TRUE(Cli::MessagePattern("N samples").fit("nan samples"));
}

}  // namespace
