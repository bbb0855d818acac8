// Which log a read reports to.

#include <gtest/gtest.h>

#include <sstream>

#include "reading.h"
#include "script/serialise.h"
#include "support/temp_dir.h"
#include "test_tree.h"

using Testing::TempDir;
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

TEST(ReadingWithoutALog, FailsAfterTheVerification) {
  const TempDir dir;
  Script::Serialise<Tank> reader("Tank");
  std::ostringstream report;
  const std::string incomplete = dir.write("incomplete.txt", "Tank { strict { real = 1; } }");
  const std::string complete = dir.write("complete.txt", "Tank { depth = 1; Section[1..1]; }");
  EXPECT_EQ(read_files(reader, report, incomplete).failure, incomplete + "::Failed to verify");
  Script::Serialise<Tank> other("Tank");
  EXPECT_EQ(read_files(other, report, complete).failure, complete + "::No log object found");
  EXPECT_EQ(other.object()->section[0].path(), "Tank::Section[1]");
}

TEST(ReadingWithoutALog, UsesTheLogOfTheTree) {
  const TempDir dir;
  Script::Serialise<Logged> reader("Logged");
  std::ostringstream report;
  const ReadResult result = read_files(reader, report, dir.write("main.txt", "Logged { x = 1; }"));
  EXPECT_EQ(result.failure, "Caught log exception");
  EXPECT_TRUE(result.printed.ends_with("\nException:-Logged::Error::one\n")) << result.printed;
  EXPECT_EQ(reader.object()->log.built, 1);
  EXPECT_EQ(reader.object()->log.last, "one");
}

TEST(ReadingWithALog, PrefersItToTheLogOfTheTree) {
  const TempDir dir;
  std::ostringstream log_text;
  Script::SimpleLog log(log_text);
  Script::Serialise<Logged> reader("Logged");
  reader.attach_log(log);
  EXPECT_EQ(read_files(reader, log_text, dir.write("main.txt", "Logged { x = 1; }")).failure,
            "Caught log exception");
  EXPECT_EQ(log_text.str(), "Logged::Error::one\n");
  EXPECT_EQ(reader.object()->log.built, 0);
}
