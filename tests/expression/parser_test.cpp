#include "expression/parser.h"

#include <gtest/gtest.h>
#include <pthread.h>

#include <functional>
#include <memory>
#include <string>

#include "support/output.h"
#include "support/thrown.h"
#include "testutil.h"

namespace Expression {
namespace {

using Testing::printed;
using Testing::thrown;

// Runs on a stack of 128 KB, an eighth of a usual JVM thread's.
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

std::string repeated(const std::string& part, int times) {
  std::string result;
  for (int i = 0; i < times; ++i) result += part;
  return result;
}

struct Refusal {
  std::string message;
  std::string output;
};

Refusal refusal(const std::string& formula) {
  Refusal result;
  result.output = printed([&] { result.message = thrown([&] { Function{formula}; }); });
  return result;
}

TEST(Parser, ReportsASyntaxErrorOnStandardOutput) {
  const Refusal refused = refusal("1+*2 @m");
  EXPECT_EQ(refused.message, "Error while parsing expression ::1+*2 ");
  EXPECT_EQ(refused.output, "Helpsyntax error\n");
}

TEST(Parser, PrintsNothingForUnknownUnits) {
  const Refusal refused = refusal("x[rubbish]");
  EXPECT_EQ(refused.message, "Unknown units - rubbish");
  EXPECT_EQ(refused.output, "");
}

TEST(Parser, ResolvesTheUnitsOfTheResultFirst) {
  const Refusal refused = refusal("1+*2[rubbish]@m@s");
  EXPECT_EQ(refused.message, "Unknown units - m@s");
  EXPECT_EQ(refused.output, "");
}

TEST(Parser, RefusesAnEmptyFormulaWithOrWithoutUnits) {
  for (const std::string formula : {"", " ", "\t", ";", "@", "@m", " @"}) {
    const Refusal refused = refusal(formula);
    EXPECT_EQ(refused.message,
              "Error while parsing expression ::" + formula.substr(0, formula.find('@')));
    EXPECT_EQ(refused.output, "Helpsyntax error\n");
  }
}

// The stack has 200 entries; each opening takes one to four of them.
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
    const std::string deep = nested(n.fits * 11 / 10);
    const Refusal refused = refusal(deep);
    EXPECT_EQ(refused.message, "Error while parsing expression ::" + deep);
    EXPECT_EQ(refused.output, "Helpmemory exhausted\n");
    const std::string endless = nested(100000);
    EXPECT_EQ(refusal(endless).message, "Error while parsing expression ::" + endless);
  }
}

TEST(Parser, DeepNestingIsSafeOnASmallThreadStack) {
  on_a_small_stack([] {
    Function function(repeated("-sin(2^(1+", 20) + "$[Hz]" + repeated("))", 20));
    Base::Params none;
    EXPECT_FALSE(function.bind(none, none));
    EXPECT_NE(function.evaluate(quantity(1.0, "Hz")).value, 0.0);
    EXPECT_FALSE(written(function).empty());
  });
}

// A sum does not nest, so only memory bounds its length.
TEST(Parser, LongSumsAreSafeOnASmallThreadStack) {
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
    EXPECT_EQ(written(function), repeated("(", Terms) + "$[Hz]" + repeated(" + x[])", Terms));
    function.parse("x" + repeated("*1-$[Hz]", Terms));
    EXPECT_FALSE(function.bind(source, used));
    EXPECT_EQ(function.evaluate(quantity(1.0, "Hz")).value, 2.0 - Terms);
    function.parse("x" + repeated("-1", Terms));
    EXPECT_TRUE(function.bind(source, used));
    EXPECT_EQ(function.constant().value, 2.0 - Terms);
  });
}

// The build with the leak checker also proves that no truncated formula leaks.
TEST(Parser, ATruncatedFormulaIsReadOrRefused) {
  const std::string formula =
      "2*$[Hz]^2 + sqrt(depth[m])/pi - atan2(0x1F, -.5)**(x + exp(1.5)) @m2/Hz";
  int read = 0;
  int refused = 0;
  for (std::size_t length = 0; length <= formula.size(); ++length) {
    const std::string truncated = formula.substr(0, length);
    const std::string message = refusal(truncated).message;
    if (message == Testing::nothing_thrown) {
      EXPECT_FALSE(written(Function(truncated)).empty());
      ++read;
    } else {
      const bool known = message == "Error while parsing expression ::" + truncated ||
                         message.starts_with("Unknown units - ");
      EXPECT_TRUE(known) << message;
      ++refused;
    }
  }
  EXPECT_GT(read, 5);
  EXPECT_GT(refused, 30);
}

TEST(Parser, PassesTheReportToItsErrorFunction) {
  class Reporter final : public ExpressionParser {
   public:
    void error(const std::string& report) override { throw report; }
  };
  Reporter parser;
  EXPECT_EQ(thrown([&] { parser.push(0, TokenValue{}); }), "syntax error");
}

}  // namespace
}  // namespace Expression
