#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sea/piecewise_text.h"
#include "support/output.h"
#include "support/thrown.h"

namespace {

using Synthesis::parse_component_text;
using Synthesis::Piecewise;
using Testing::nothing_thrown;
using Testing::printed;
using Testing::thrown;
using Strings = std::vector<std::string>;

// The message of a refused text.
std::string refusal(const std::string& text) {
  return thrown([&] { parse_component_text(text); });
}

TEST(PiecewiseText, SplitsAtEveryHashAndKeepsBlanksAndEmptyPieces) {
  EXPECT_EQ(Synthesis::split_pieces(""), Strings{""});
  EXPECT_EQ(Synthesis::split_pieces(" a # b"), (Strings{" a ", " b"}));
  EXPECT_EQ(Synthesis::split_pieces("#a##"), (Strings{"", "a", "", ""}));
}

TEST(PiecewiseText, TextWithoutHashHasTooFewPieces) {
  EXPECT_EQ(refusal("1@Hz"), "There must be at least 2  sub expressions");
  EXPECT_EQ(refusal(""), "There must be at least 2  sub expressions");
}

TEST(PiecewiseText, EvenNumberOfPiecesIsRefused) {
  EXPECT_EQ(refusal("1@Hz#1@m"), "There must be an odd number of sub expressions");
  EXPECT_EQ(refusal("1@Hz#1@m#2@Hz#"), "There must be an odd number of sub expressions");
}

TEST(PiecewiseText, PiecesAreCountedBeforeAnyIsParsed) {
  EXPECT_EQ(refusal("("), "There must be at least 2  sub expressions");
  EXPECT_EQ(refusal("(#("), "There must be an odd number of sub expressions");
}

TEST(PiecewiseText, EmptyLastPieceIsRefusedByTheParser) {
  std::string message;
  printed([&] { message = refusal("1@Hz#1@m#"); });
  EXPECT_EQ(message, "Error while parsing expression ::");
}

TEST(PiecewiseText, PiecesAreParsedBeforeTheirUnitsAreChecked) {
  EXPECT_EQ(refusal("1@kg#1@m#2@furlong"), "Unknown units - furlong");
}

TEST(PiecewiseText, BlankAfterUnitsIsPartOfTheUnits) {
  EXPECT_EQ(refusal("1@Hz #1@m#2@Hz"), "Unknown units - Hz ");
  EXPECT_EQ(refusal("  1@Hz#  1 @m#  2 @Hz"), nothing_thrown);
}

TEST(PiecewiseText, LimitsAreFrequenciesOrTimes) {
  for (const char* text : {"1@Hz#1@m#2@Hz", "1@rad/s#1@m#2@Hz", "1@min#1@m#2@s"}) {
    EXPECT_EQ(refusal(text), nothing_thrown) << text;
  }
  EXPECT_EQ(refusal("1@m#1@m#2@m"), "Unsupported limit units");
  EXPECT_EQ(refusal("1#1@m#2"), "Unsupported limit units");
}

TEST(PiecewiseText, LaterLimitsAgreeWithTheFirst) {
  EXPECT_EQ(refusal("1@Hz#1@m#2@s"), "Inconsistent limit units");
  EXPECT_EQ(refusal("1@rad/s#1@m#2@s"), "Inconsistent limit units");
  EXPECT_EQ(refusal("1@s#1@m#2@s#1@m#3@Hz"), "Inconsistent limit units");
  EXPECT_EQ(refusal("1@min#1@m#2@s#1@m#3@Hz"), "Inconsistent limit units");
}

TEST(PiecewiseText, FunctionsReturnVarianceAmplitudeDensityOrLength) {
  for (const char* text : {"1@Hz#1@ft2s#2@Hz", "1@Hz#1@m/Hz#2@Hz", "1@Hz#1@mm#2@Hz"}) {
    EXPECT_EQ(refusal(text), nothing_thrown) << text;
  }
  EXPECT_EQ(refusal("1@Hz#1@s#2@Hz"), "Unsupported output units");
  EXPECT_EQ(refusal("1@Hz#1#2@Hz"), "Unsupported output units");
}

TEST(PiecewiseText, LaterFunctionsReturnTheSame) {
  const Strings kinds = {"1@ft2s", "1@m/Hz", "1@mm"};
  for (const std::string& first : kinds) {
    for (const std::string& second : kinds) {
      EXPECT_EQ(refusal("1@Hz#" + first + "#2@Hz#" + second + "#3@Hz"),
                first == second ? nothing_thrown : "Inconsistent output units")
          << first << " " << second;
    }
  }
  EXPECT_EQ(refusal("1@Hz#1@m#2@Hz#1@ft#3@Hz"), nothing_thrown);
}

TEST(PiecewiseText, FunctionsTakeFrequencyOrTime) {
  for (const char* text : {"1@Hz#$[Hz]@m#2@Hz", "1@Hz#$[rad/s]@m#2@Hz", "1@Hz#$[s]@m#2@Hz"}) {
    EXPECT_EQ(refusal(text), nothing_thrown) << text;
  }
  EXPECT_EQ(refusal("1@Hz#$[m]@m#2@Hz"), "Unsupported input units");
  EXPECT_EQ(refusal("1@Hz#$[s]*$[Hz]@m#2@Hz"), "Unsupported input units");
}

TEST(PiecewiseText, LaterFunctionsTakeTheSame) {
  EXPECT_EQ(refusal("1@Hz#$[Hz]@m#2@Hz#$[rad/s]@m#3@Hz"), nothing_thrown);
  EXPECT_EQ(refusal("1@Hz#$[Hz]@m#2@Hz#$[s]@m#3@Hz"), "Inconsistent input units");
  EXPECT_EQ(refusal("1@Hz#$[rad/s]@m#2@Hz#$[s]@m#3@Hz"), "Inconsistent input units");
  EXPECT_EQ(refusal("1@Hz#$[s]@m#2@Hz#$[Hz]@m#3@Hz"), "Inconsistent input units");
  EXPECT_EQ(refusal("1@Hz#$[Hz]@m#2@Hz#$[m]@m#3@Hz"), "Inconsistent input units");
}

TEST(PiecewiseText, ConstantFunctionsMatchAnyInput) {
  for (const char* text : {"1@Hz#1@m2s#2@Hz", "1@Hz#top[m]@m#2@Hz", "1@Hz#4@m#2@Hz#$[Hz]@m#3@Hz",
                           "1@Hz#4@m#2@Hz#$[s]@m#3@Hz", "1@Hz#$[s]@m#2@Hz#4@m#3@Hz"}) {
    EXPECT_EQ(refusal(text), nothing_thrown) << text;
  }
  EXPECT_EQ(refusal("1@Hz#$[Hz]@m#2@Hz#4@m#3@Hz#$[s]@m#4@Hz"), "Inconsistent input units");
}

TEST(PiecewiseText, LimitsHaveNoVariable) {
  EXPECT_EQ(refusal("$[Hz]@Hz#1@m#2@Hz"), "Non constant separator function");
  EXPECT_EQ(refusal("1@Hz#1@m#2@Hz#1@m#2*$[Hz]@Hz"), "Non constant separator function");
}

TEST(PiecewiseText, UnitsAreCheckedInOrder) {
  // Each text fails all later checks as well.
  EXPECT_EQ(refusal("1@m#$[m]@s#$[Hz]@s#1@m#3@Hz"), "Unsupported limit units");
  EXPECT_EQ(refusal("1@Hz#$[m]@s#$[Hz]@s#1@m#3@Hz"), "Inconsistent limit units");
  EXPECT_EQ(refusal("1@Hz#$[m]@s#$[Hz]@Hz#$[s]@m#3@Hz"), "Unsupported output units");
  EXPECT_EQ(refusal("1@Hz#$[m]@m#$[Hz]@Hz#$[s]@s#3@Hz"), "Inconsistent output units");
  EXPECT_EQ(refusal("1@Hz#$[m]@m#$[Hz]@Hz#$[s]@m#3@Hz"), "Unsupported input units");
  EXPECT_EQ(refusal("1@Hz#$[Hz]@m#$[Hz]@Hz#$[s]@m#3@Hz"), "Inconsistent input units");
  EXPECT_EQ(refusal("1@Hz#$[Hz]@m#$[Hz]@Hz#$[Hz]@m#3@Hz"), "Non constant separator function");
}

TEST(Piecewise, BindingStoresOnlyTheParametersThatAreUsed) {
  Piecewise expression = parse_component_text("low[Hz]@Hz#1@m#2@Hz");
  Base::Params in;
  in.insert("low", 1.0, "Hz");
  in.insert("foreign", 1.0, "Hz");
  Base::Params stored;
  expression.bind_with_limits(in, stored);
  EXPECT_EQ(stored.entries().size(), 1U);
  EXPECT_EQ(stored.get("low", "Hz"), 1.0);
}

TEST(Piecewise, BindingAgainReplacesTheLimits) {
  Piecewise expression = parse_component_text("low[Hz]@Hz#1@m#2@Hz");
  for (const double low : {0.5, 1.5}) {
    Base::Params in;
    in.insert("low", low, "Hz");
    Base::Params stored;
    expression.bind_with_limits(in, stored);
    EXPECT_EQ(expression.limits(), (Synthesis::Limits{low, 2.0}));
  }
}

TEST(Piecewise, AFailedBindingLeavesTheLimitsBeforeIt) {
  Piecewise expression = parse_component_text("1@Hz#1@m#middle[Hz]@Hz#1@m#3@Hz");
  const Base::Params none;
  Base::Params stored;
  EXPECT_EQ(thrown([&] { expression.bind_with_limits(none, stored); }), "middle::Not found");
  EXPECT_EQ(expression.limits(), Synthesis::Limits{1.0});
  EXPECT_FALSE(expression.has_all_limits());
}

}  // namespace
