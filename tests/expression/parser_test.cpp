#include "expression/parser.h"

#include <gtest/gtest.h>
#include <pthread.h>

#include <functional>
#include <memory>
#include <string>

#include "testutil.h"

namespace Expression {
namespace {

// Runs on a stack of 128 KB, an eighth of what a thread of a JVM has.
void on_a_small_stack(std::function<void()> work) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, 128 * 1024), 0);
  pthread_t thread;
  const auto run = [](void* argument) -> void* {
    (*static_cast<std::function<void()>*>(argument))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &work), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

std::string repeated(const std::string& text, int times) {
  std::string result;
  for (int i = 0; i < times; ++i) result += text;
  return result;
}

std::string syntax_error_of(const std::string& formula, std::string* output) {
  testing::internal::CaptureStdout();
  const std::string message = thrown([&] { Function{formula}; });
  *output = testing::internal::GetCapturedStdout();
  return message;
}

TEST(Parser, ReportsASyntaxErrorOnStandardOutput) {
  std::string output;
  EXPECT_EQ(syntax_error_of("1+*2 @m", &output), "Error while parsing expression ::1+*2 ");
  EXPECT_EQ(output, "Helpsyntax error\n");
}

TEST(Parser, WritesNothingForUnknownUnits) {
  std::string output;
  EXPECT_EQ(syntax_error_of("x[rubbish]", &output), "Unknown units - rubbish");
  EXPECT_EQ(output, "");
}

TEST(Parser, ResolvesTheUnitsOfTheResultFirst) {
  std::string output;
  EXPECT_EQ(syntax_error_of("1+*2[rubbish]@m@s", &output), "Unknown units - m@s");
  EXPECT_EQ(output, "");
}

// An empty formula, before and behind the @.
TEST(Parser, RefusesAnEmptyText) {
  std::string output;
  for (const char* text : {"", " ", "\t", ";", "@", "@m", " @"}) {
    const std::string formula = std::string(text).substr(0, std::string(text).find('@'));
    EXPECT_EQ(syntax_error_of(text, &output), "Error while parsing expression ::" + formula);
    EXPECT_EQ(output, "Helpsyntax error\n");
  }
}

// What the stack of 200 holds easily, and what it cannot hold. Each opening takes an entry or two.
TEST(Parser, RefusesNestingBeyondItsStack) {
  struct Nesting {
    const char* open;
    const char* close;
    int fits;
  };
  for (const Nesting& n : {Nesting{"(", ")", 190}, Nesting{"-", "", 190}, Nesting{"2^", "", 95},
                           Nesting{"sin(", ")", 95}, Nesting{"pow(1,", ")", 47}}) {
    SCOPED_TRACE(n.open);
    const auto nested = [&](int depth) {
      return repeated(n.open, depth) + "1" + repeated(n.close, depth);
    };
    EXPECT_NO_THROW(evaluated(nested(n.fits)));
    std::string output;
    const std::string deep = nested(n.fits * 11 / 10);
    EXPECT_EQ(syntax_error_of(deep, &output), "Error while parsing expression ::" + deep);
    EXPECT_EQ(output, "Helpmemory exhausted\n");
    const std::string endless = nested(100000);
    EXPECT_EQ(syntax_error_of(endless, &output), "Error while parsing expression ::" + endless);
  }
}

TEST(Parser, NestingUpToItsStackIsSafeOnASmallStack) {
  on_a_small_stack([] {
    Function function(repeated("-sin(2^(1+", 20) + "$[Hz]" + repeated("))", 20));
    Base::Params none;
    EXPECT_FALSE(function.bind(none, none));
    EXPECT_NE(function.evaluate(quantity(1.0, "Hz")).value, 0.0);
    EXPECT_FALSE(printed(function).empty());
  });
}

// A sum does not nest: its length is bounded by memory alone.
TEST(Parser, ChainsOfAnyLengthAreSafeOnASmallStack) {
  constexpr int Terms = 100000;
  on_a_small_stack([] {
    Function function("$[Hz]" + repeated("+x", Terms));
    Base::Params declared;
    function.declare(declared);
    EXPECT_EQ(declared.entries().size(), 1U);
    EXPECT_FALSE(function.is_constant());
    EXPECT_TRUE(function.compatible(Base::resolve_units("Hz").row));
    Base::Params source;
    Base::Params used;
    source.insert("x", 2.0, "");
    EXPECT_FALSE(function.bind(source, used));
    EXPECT_EQ(function.evaluate(quantity(1.0, "Hz")).value, 1.0 + 2.0 * Terms);
    EXPECT_EQ(printed(function), repeated("(", Terms) + "$[Hz]" + repeated(" + x[])", Terms));
    function.parse("x" + repeated("*1-$[Hz]", Terms));
    EXPECT_FALSE(function.bind(source, used));
    EXPECT_EQ(function.evaluate(quantity(1.0, "Hz")).value, 2.0 - Terms);
    function.parse("x" + repeated("-1", Terms));
    EXPECT_TRUE(function.bind(source, used));
    EXPECT_EQ(function.constant().value, 2.0 - Terms);
  });
}

// Cut at every place, a formula is read or refused, and leaves nothing behind: the build with the
// leak checker would tell.
TEST(Parser, AFormulaCutAnywhereIsReadOrRefused) {
  const std::string formula =
      "2*$[Hz]^2 + sqrt(depth[m])/pi - atan2(0x1F, -.5)**(x + exp(1.5)) @m2/Hz";
  testing::internal::CaptureStdout();
  int read = 0;
  int refused = 0;
  for (std::size_t length = 0; length <= formula.size(); ++length) {
    const std::string text = formula.substr(0, length);
    try {
      Function function(text);
      EXPECT_FALSE(printed(function).empty());
      ++read;
    } catch (const std::string& message) {
      const bool known = message == "Error while parsing expression ::" + text ||
                         message.starts_with("Unknown units - ");
      EXPECT_TRUE(known) << message;
      ++refused;
    }
  }
  testing::internal::GetCapturedStdout();
  EXPECT_GT(read, 5);
  EXPECT_GT(refused, 30);
}

// The report itself, as a parser's owner sees it.
TEST(Parser, CallsItsErrorOperationWithTheReport) {
  class Reporter final : public ExpressionParser {
   public:
    void error(const std::string& report) override { throw report; }
  };
  Reporter parser;
  EXPECT_EQ(thrown([&] { parser.push(0, TokenValue{}); }), "syntax error");
}

}  // namespace
}  // namespace Expression
