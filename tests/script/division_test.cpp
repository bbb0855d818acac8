#include "script/division.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdint>
#include <limits>
#include <sstream>
#include <string>
#include <thread>

#include "reading.h"
#include "script/log.h"
#include "script/serialise.h"
#include "support/temp_dir.h"
#include "support/thrown.h"

namespace {

using Script::DivisionByZero;
using Script::DivisionScope;
using Script::quotient;

constexpr std::int32_t smallest = std::numeric_limits<std::int32_t>::min();

TEST(Division, QuotientsAreCutTowardsZero) {
  EXPECT_EQ(quotient(7, 2), 3);
  EXPECT_EQ(quotient(-7, 2), -3);
  EXPECT_EQ(quotient(7, -1), -7);
  EXPECT_EQ(quotient(smallest, 1), smallest);
  EXPECT_EQ(quotient(smallest, -1), smallest);  // wraps
}

TEST(Division, ByZeroThrowsInAScope) {
  const DivisionScope scope;
  EXPECT_EQ(quotient(6, 2), 3);
  EXPECT_FALSE(scope.divided_by_zero());
  EXPECT_THROW(quotient(1, 0), DivisionByZero);
  EXPECT_TRUE(scope.divided_by_zero());
}

TEST(Division, TheInnermostScopeIsTheOneThatKnows) {
  const DivisionScope outer;
  {
    const DivisionScope inner;
    EXPECT_THROW(quotient(1, 0), DivisionByZero);
    EXPECT_TRUE(inner.divided_by_zero());
  }
  EXPECT_FALSE(outer.divided_by_zero());
  EXPECT_THROW(quotient(1, 0), DivisionByZero);
  EXPECT_TRUE(outer.divided_by_zero());
}

TEST(DivisionDeathTest, ByZeroRaisesTheSignalAfterAScope) {
  const auto divide = [] {
    std::signal(SIGFPE, SIG_DFL);  // a sanitizer installs its own handler
    { const DivisionScope scope; }
    quotient(1, 0);
  };
  EXPECT_EXIT(divide(), testing::KilledBySignal(SIGFPE), "");
}

TEST(DivisionDeathTest, ByZeroRaisesTheSignalInAnotherThread) {
  const auto divide = [] {
    std::signal(SIGFPE, SIG_DFL);
    const DivisionScope scope;
    std::thread other([] { quotient(1, 0); });
    other.join();
  };
  EXPECT_EXIT(divide(), testing::KilledBySignal(SIGFPE), "");
}

// A script with one number.
class Root : public Script::Declared {
 public:
  const char* class_name() const override { return "Root"; }
  void declare(Script::List& list) override { list.fixed("depth", depth); }

  double depth = 0.0;
};

class DivisionInAScript : public testing::Test {
 protected:
  std::string failure(const std::string& file) {
    Script::Serialise<Root> reader("root");
    std::ostringstream text;
    Script::SimpleLog log(text);
    reader.attach_log(log);
    return read_files(reader, text, file).failure;
  }

  Testing::TempDir folder_;
  const DivisionScope scope_;
};

TEST_F(DivisionInAScript, TheMessageNamesTheFileAndTheLine) {
  const std::string file = folder_.write("main.txt", "root {\n\n  depth = 4/(2-2);\n}\n");
  EXPECT_EQ(failure(file), "File \"" + file + "\" divides an integer by zero at line 3");
  EXPECT_TRUE(scope_.divided_by_zero());
}

TEST_F(DivisionInAScript, AnIncludedFileIsTheOneThatIsNamed) {
  const std::string part = folder_.write("part.txt", "depth = 1/0;\n");
  const std::string file = folder_.write("main.txt", "root {\n\n  include \"part.txt\"\n}\n");
  EXPECT_EQ(failure(file), "File \"" + part + "\" divides an integer by zero at line 1");
}

TEST_F(DivisionInAScript, OtherDivisionsAreAsAlways) {
  const std::string file = folder_.write("main.txt", "root { depth = 5/2 + 1.0/0; }\n");
  EXPECT_EQ(failure(file), Testing::nothing_thrown);
  EXPECT_FALSE(scope_.divided_by_zero());
}

}  // namespace
