// Where the reports of a read go.

#include <gtest/gtest.h>

#include <sstream>

#include "script/serialise.h"
#include "test_tree.h"
#include "testutil.h"

using TestTree::Tank;

namespace {

// A root that supplies its own log.
class Logged : public Script::Declared {
 public:
  const char* class_name() const override { return "Logged"; }
  void declare(Script::List& list) override {
    list.fixed("x", x);
    list.supply_log(&log);
  }
  void create() override {
    if (x == 1) throw problem("Create").add("one");
  }
  struct Sink : Script::Log {
    void message(float, const Script::LogItm&) override {}
    void message(const Script::LogItm& item) override { last = item.text; }
    void build() override { ++built; }
    int built = 0;
    std::string last;
  } log;
  std::int32_t x = Script::UnsetInteger;
};

}  // namespace

TEST(ReadingWithoutALog, FailsBehindVerification) {
  const TempDir dir;
  Script::Serialise<Tank> reader("Tank");
  std::ostringstream report;
  const std::string incomplete = dir.write("incomplete.txt", "Tank { strict { real = 1; } }");
  const std::string complete = dir.write("complete.txt", "Tank { depth = 1; Section[1..1]; }");
  testing::internal::CaptureStdout();
  EXPECT_EQ(failure([&] { reader.read(report, incomplete, ""); }),
            "string: " + incomplete + "::Failed to verify");
  Script::Serialise<Tank> other("Tank");
  EXPECT_EQ(failure([&] { other.read(report, complete, ""); }),
            "string: " + complete + "::No log object found");
  testing::internal::GetCapturedStdout();
  EXPECT_EQ(other.object()->section[0].path(), "Tank::Section[1]");
}

TEST(ReadingWithoutALog, TakesTheLogOfTheTree) {
  const TempDir dir;
  Script::Serialise<Logged> reader("Logged");
  std::ostringstream report;
  testing::internal::CaptureStdout();
  const std::string outcome =
      failure([&] { reader.read(report, dir.write("main.txt", "Logged { x = 1; }"), ""); });
  const std::string printed = testing::internal::GetCapturedStdout();
  EXPECT_EQ(outcome, "string: Caught log exception");
  EXPECT_TRUE(printed.ends_with("\nException:-Logged::Error::one\n")) << printed;
  EXPECT_EQ(reader.object()->log.built, 1);
  EXPECT_EQ(reader.object()->log.last, "one");
}

TEST(ReadingWithoutALog, OwnLogComesBeforeTheTrees) {
  const TempDir dir;
  std::ostringstream text;
  Script::SimpleLog log(text);
  Script::Serialise<Logged> reader("Logged");
  reader.attach_log(log);
  testing::internal::CaptureStdout();
  const std::string outcome =
      failure([&] { reader.read(text, dir.write("main.txt", "Logged { x = 1; }"), ""); });
  testing::internal::GetCapturedStdout();
  EXPECT_EQ(outcome, "string: Caught log exception");
  EXPECT_EQ(text.str(), "Logged::Error::one\n");
  EXPECT_EQ(reader.object()->log.built, 0);
}
