// Parts of reading TOML, with texts that the parser refuses or never gives.
#include <gtest/gtest.h>

#include <memory>

#include "jobs/job_files.h"
#include "jobs/key_path.h"
#include "jobs/toml_bounds.h"
#include "jobs/toml_fault.h"

namespace {

std::string fault_of(const std::string& text, const std::string& description) {
  const Jobs::TextPlaces places(
      std::make_shared<Jobs::SourceText>(Jobs::SourceText{"job.toml", text}));
  return Jobs::syntax_fault(places, {1, 1}, description).fault;
}

TEST(KeyPath, AQuotationMarkWithinANameIsRefused) {
  EXPECT_EQ(Jobs::split_key_path("\"a\"b\""), std::nullopt);
  EXPECT_EQ(Jobs::split_key_path("'a"), std::nullopt);
  EXPECT_EQ(Jobs::split_key_path("\"a.b\".c")->front().name, "a.b");
}

TEST(KeyPath, ANumberHasUpToNineDigits) {
  EXPECT_EQ(Jobs::number_of("999999999"), 999999999u);
  EXPECT_EQ(Jobs::number_of("1000000000"), 0u);
  EXPECT_EQ(Jobs::number_of(""), 0u);
  EXPECT_EQ(Jobs::number_of("1a"), 0u);
}

TEST(TomlFault, ADescriptionOfAnotherFormIsShownWhole) {
  EXPECT_EQ(fault_of("[a", "something is wrong"), "this is not TOML: something is wrong");
  EXPECT_EQ(fault_of("[a", "Error while parsing table header: it is odd"),
            "this is not TOML: it is odd");
  EXPECT_EQ(fault_of("[a", "Error while parsing nothing"), "this is not TOML: nothing");
  EXPECT_EQ(fault_of("[a", "encountered end-of-file"), "this is not TOML: encountered end-of-file");
  EXPECT_EQ(fault_of("[a", "Error while parsing array: encountered end-of-file"),
            "the file ends in the middle of a value or table");
}

TEST(TomlFault, ARepeatedKeyIsNamedWhereItIsQuoted) {
  EXPECT_EQ(fault_of("a = 1", "Error while parsing table: cannot redefine existing string 'a'"),
            "`a` is given twice");
  EXPECT_EQ(fault_of("a = 1", "Error while parsing table: cannot redefine existing string"),
            "`` is given twice");
}

TEST(TomlFault, AMissingValueIsNoValueWithoutQuotationMarks) {
  for (const char* text : {"a =", "a = # 80 mm", "a = , 80 mm"}) {
    const Jobs::TextPlaces places(
        std::make_shared<Jobs::SourceText>(Jobs::SourceText{"job.toml", text}));
    EXPECT_EQ(Jobs::syntax_fault(places, {1, 4}, "Error while parsing value: odd").fault,
              "this is not TOML: odd")
        << text;
  }
}

TEST(TomlBounds, BracketsThatCloseWithoutOpeningAreNoLevels) {
  EXPECT_FALSE(Jobs::find_broken_bound("]}]}"));
  const std::string deep = "a = " + std::string(Jobs::most_toml_levels, '[');
  EXPECT_FALSE(Jobs::find_broken_bound("]]\n" + deep));
  EXPECT_TRUE(Jobs::find_broken_bound("]]\n" + deep + "["));
}

// A string on one line ends with its line even if its quotation mark is missing.
TEST(TomlBounds, AStringWithoutAnEndEndsWithItsLine) {
  const std::string deep = std::string(Jobs::most_toml_levels + 1, '[');
  EXPECT_FALSE(Jobs::find_broken_bound("a = \"" + deep + "\n"));
  EXPECT_TRUE(Jobs::find_broken_bound("a = \"\n" + deep));
}

TEST(ReadToml, AWholeNumberThatIsNoDoubleIsOfAnotherKind) {
  EXPECT_EQ(JobFiles::dump(JobFiles::parse("a = 9007199254740992")), "{a=9.0072e+15}");
  EXPECT_EQ(JobFiles::dump(JobFiles::parse("a = 9007199254740993")), "{a=other}");
}

}  // namespace
