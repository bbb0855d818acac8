#include "script/log.h"

#include <gtest/gtest.h>

#include <sstream>
#include <type_traits>

#include "script/master.h"
#include "support/output.h"
#include "support/thrown.h"
#include "support/thrown_item.h"

using Script::LogItm;
using Testing::thrown;
using Testing::thrown_item;

namespace {

std::string written(const LogItm& item) {
  std::ostringstream out;
  out << item;
  return out.str();
}

class Root : public Script::Master {
 public:
  void save() override { ++saved; }
  int saved = 0;
};

class Leaf : public Script::Declared {
 public:
  const char* class_name() const override { return "Leaf"; }
  void declare(Script::List&) override {}
  LogItm item() const { return problem("Create"); }
};

class CountingLog : public Script::Log {
 public:
  void message(float time, const LogItm& item) override {
    last_time = time;
    last = item.text;
  }
  void message(const LogItm& item) override { last = item.text; }
  void build() override { ++built; }

  int built = 0;
  float last_time = 0;
  std::string last;
};

}  // namespace

TEST(Log, EachLevelHasItsWord) {
  const char* words[] = {"Fatal", "Error",  "Warning", "Alert",  "State",
                         "Info",  "Detail", "Unknown", "Unknown"};
  for (std::uint32_t level = 0; level < 9; ++level) {
    EXPECT_EQ(written(LogItm("General", level)), std::string(words[level]) + "::");
  }
  EXPECT_EQ(written(LogItm("General", 0xFFFFFFFF)), "Unknown::");
}

TEST(Log, TheNamedLevelsHaveTheirWords) {
  EXPECT_EQ(written(LogItm("", Script::Level::fatal)), "Fatal::");
  EXPECT_EQ(written(LogItm("", Script::Level::error)), "Error::");
  EXPECT_EQ(written(LogItm("", Script::Level::warning)), "Warning::");
  EXPECT_EQ(written(LogItm("", Script::Level::alert)), "Alert::");
  EXPECT_EQ(written(LogItm("", Script::Level::state)), "State::");
  EXPECT_EQ(written(LogItm("", Script::Level::info)), "Info::");
  EXPECT_EQ(written(LogItm("", Script::Level::detail)), "Detail::");
}

TEST(Log, AnItemStartsWithoutPathAndMessage) {
  const LogItm item("General", 3);
  EXPECT_TRUE(item.path.empty());
  EXPECT_EQ(item.name, "General");
  EXPECT_EQ(item.level, 3u);
  EXPECT_EQ(item.text, "");
  EXPECT_EQ(item.hex, 0u);
}

TEST(Log, AnItemMayStartWithAPathOfOneEntry) {
  const std::string entry = "Tank";
  const LogItm item(&entry, "General", 1);
  ASSERT_EQ(item.path.size(), 1u);
  EXPECT_EQ(item.path[0], &entry);
  EXPECT_EQ(item.text, "");
  EXPECT_EQ(item.hex, 0u);
}

TEST(Log, APathIsWrittenOutermostFirstWithoutTheHeading) {
  const std::string tank = "Tank";
  const std::string section = "Section";
  LogItm item(&tank, "General", 1);
  item.path.push_back(&section);
  item.add("bad value");
  EXPECT_EQ(written(item), "Tank::Section::Error::bad value");
}

TEST(Log, AnEmptyPathWritesNothing) {
  EXPECT_EQ(written(LogItm("General", 2).add("text")), "Warning::text");
}

TEST(Log, NumbersAreDecimalOrHexadecimal) {
  LogItm item("General", 1);
  item.add(255u).add(std::string(" ")).add(0u).add(" ");
  item.hex = 1;
  item.add(255u).add(" ").add(4294967295u).add(" ");
  item.hex = 2;
  item.add(255u);
  EXPECT_EQ(item.text, "255 0 0xff 0xffffffff 255");
}

TEST(Log, RealsHaveTheDefaultFormatOfAStream) {
  EXPECT_EQ(LogItm("General", 1).add(2.5).add(" ").add(1234567.0).text, "2.5 1.23457e+06");
}

TEST(Log, ItemsCanBeThrownByValue) {
  static_assert(std::is_copy_constructible_v<LogItm>);
  const std::string tank = "Tank";
  EXPECT_EQ(thrown_item([&] { throw LogItm(&tank, "General", 1).add("x"); }),
            "item: General: Tank::Error::x");
}

TEST(Log, SimpleLogWritesEachItemAtOnce) {
  std::ostringstream out;
  Script::SimpleLog log(out);
  log.build();
  EXPECT_EQ(out.str(), "");
  log.message(LogItm("General", 5).add("one"));
  log.message(1.5f, LogItm("General", 4).add("two"));
  EXPECT_EQ(out.str(), "Info::one\n1.5::State::two\n");
}

TEST(Log, ProgressLogWritesToTheStandardOutput) {
  const std::string written = Testing::printed([] {
    Script::ProgressLog log;
    log.build();
    log.message(LogItm("General", 5).add("one"));
    log.message(1.5f, LogItm("General", 4).add("two"));
  });
  EXPECT_EQ(written, "Info::one\n1.5::State::two\n");
}

TEST(Log, WithoutALogItemsAreDiscarded) {
  Root root;
  EXPECT_FALSE(root.has_log());
  root.message(LogItm("General", 1));
  root.message(1.0f, LogItm("General", 1));
}

TEST(Log, AttachingALogBuildsItOnce) {
  Root root;
  CountingLog log;
  root.attach_log(log);
  EXPECT_TRUE(root.has_log());
  EXPECT_EQ(log.built, 1);
  root.message(LogItm("General", 1).add("one"));
  EXPECT_EQ(log.last, "one");
  root.message(2.0f, LogItm("General", 1).add("two"));
  EXPECT_EQ(log.last, "two");
  EXPECT_EQ(log.last_time, 2.0f);
}

TEST(Log, AttachingASecondLogIsRefused) {
  Root root;
  CountingLog log;
  CountingLog other;
  root.attach_log(log);
  EXPECT_EQ(thrown([&] { root.attach_log(log); }), "plain: Trying to build log twice");
  EXPECT_EQ(thrown([&] { root.attach_log(other); }), "plain: Trying to build log twice");
  EXPECT_EQ(log.built, 1);
  EXPECT_EQ(other.built, 0);
}

TEST(Log, DeclaredObjectsForwardItemsToTheirOwner) {
  Root root;
  CountingLog log;
  root.attach_log(log);
  Leaf leaf;
  leaf.message(LogItm("General", 1).add("early"));
  leaf.message(3.0f, LogItm("General", 1).add("early"));
  leaf.save();
  EXPECT_EQ(log.last, "");

  leaf.set_path(root, "Tank::leaf[2]");
  EXPECT_EQ(leaf.path(), "Tank::leaf[2]");
  leaf.message(LogItm("General", 1).add("one"));
  EXPECT_EQ(log.last, "one");
  leaf.message(3.0f, LogItm("General", 1).add("two"));
  EXPECT_EQ(log.last, "two");
  EXPECT_EQ(log.last_time, 3.0f);
  leaf.save();
  EXPECT_EQ(root.saved, 1);
}

TEST(Log, AProblemOfADeclaredObjectHasItsPath) {
  Root root;
  Leaf leaf;
  leaf.set_path(root, "Tank::leaf");
  const LogItm item = leaf.item().add("bad");
  EXPECT_EQ(item.name, "Create");
  EXPECT_EQ(written(item), "Tank::leaf::Error::bad");
}
