#include "base/streams.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <iostream>
#include <locale>
#include <string>
#include <thread>

#include "support/output.h"

namespace {

using Testing::printed;

// Collects for as long as it exists.
class Collecting {
 public:
  Collecting() { Base::collect_output(true); }
  ~Collecting() { Base::collect_output(false); }
  Collecting(const Collecting&) = delete;
  Collecting& operator=(const Collecting&) = delete;
};

TEST(Streams, LinesAreCollectedInsteadOfWritten) {
  const std::string written = printed([] {
    const Collecting collecting;
    Base::progress_line("depth ", 1.5);
    Base::script_faults() << "fault" << std::endl;
    Base::progress() << 'x' << 7;
  });
  EXPECT_EQ(written, "");
  EXPECT_EQ(Base::take_output(), "depth 1.5\nfault\nx7");
  EXPECT_EQ(Base::take_output(), "");
}

TEST(Streams, NothingIsCollectedBeforeAndAfter) {
  EXPECT_EQ(Base::take_output(), "");
  EXPECT_EQ(printed([] { Base::progress_line("before"); }), "before\n");
  { const Collecting collecting; }
  EXPECT_EQ(printed([] { Base::progress_line("after"); }), "after\n");
  EXPECT_EQ(Base::take_output(), "");
}

TEST(Streams, LinesOfSeveralSwitchesAreKeptUntilTheyAreTaken) {
  for (const char* line : {"one", "two"}) {
    const Collecting collecting;
    Base::progress_line(line);
  }
  EXPECT_EQ(Base::take_output(), "one\ntwo\n");
}

TEST(Streams, EachThreadCollectsItsOwnLines) {
  const Collecting collecting;
  const std::string written = printed([] {
    std::thread other([] { Base::progress_line("of the other"); });
    other.join();
  });
  Base::progress_line("of this");
  EXPECT_EQ(written, "of the other\n");
  EXPECT_EQ(Base::take_output(), "of this\n");
}

// Hosts may change the format of the standard output.
TEST(Streams, CollectedNumbersHaveTheFormatOfTheStandardOutput) {
  std::ios format(nullptr);
  format.copyfmt(std::cout);
  std::cout << std::hex << std::showbase << std::fixed << std::setprecision(2);
  const auto write = [] { Base::progress_line(255, " ", 2.0 / 3.0); };
  const std::string written = printed(write);
  {
    const Collecting collecting;
    write();
  }
  std::cout.copyfmt(format);
  EXPECT_EQ(written, "0xff 0.67\n");
  EXPECT_EQ(Base::take_output(), written);
}

TEST(Streams, EachPartOfTheFormatIsThatOfTheStandardOutput) {
  // Writes a point after three digits.
  struct Grouped : std::numpunct<char> {
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  const auto collected = [](const auto& change) {
    std::ios format(nullptr);
    format.copyfmt(std::cout);
    change();
    {
      const Collecting collecting;
      Base::progress() << 1234.5678;
    }
    std::cout.copyfmt(format);
    return Base::take_output();
  };
  EXPECT_EQ(collected([] {}), "1234.57");
  EXPECT_EQ(collected([] { std::cout.precision(8); }), "1234.5678");
  EXPECT_EQ(collected([] { std::cout.width(9); }), "  1234.57");
  EXPECT_EQ(collected([] { std::cout << std::setw(9) << std::setfill('*'); }), "**1234.57");
  EXPECT_EQ(collected([] { std::cout.imbue({std::locale(), new Grouped}); }), "1.234.57");
  // Shows in the width of the next number only.
  const Collecting collecting;
  const char before = std::cout.fill('-');
  Base::collect_output(false);
  Base::collect_output(true);
  std::cout.fill(before);
  Base::progress() << std::setw(3) << 1;
  EXPECT_EQ(Base::take_output(), "--1");
}

TEST(Streams, CollectingThatIsSwitchedOnTwiceKeepsTheLines) {
  const Collecting collecting;
  Base::progress_line("one");
  Base::collect_output(true);
  Base::progress_line("two");
  EXPECT_EQ(Base::take_output(), "one\ntwo\n");
}

TEST(Streams, AThreadThatCollectsNothingHasNoLines) {
  const Collecting collecting;
  Base::progress_line("of this");
  std::string taken = "?";
  std::thread([&] { taken = Base::take_output(); }).join();
  EXPECT_EQ(taken, "");
  EXPECT_EQ(Base::take_output(), "of this\n");
}

TEST(Streams, ABoundedAmountIsCollected) {
  constexpr std::size_t limit = 1048576;
  const std::string line(1023, '.');
  {
    const Collecting collecting;
    for (int i = 0; i < 1023; ++i) Base::progress_line(line);
    Base::progress() << std::string(1000, 'a');
    Base::progress() << std::string(100, 'b') << "\n" << std::flush;  // does not fit
    Base::progress_line("short");
  }
  const std::string taken = Base::take_output();
  EXPECT_LT(taken.size(), limit);
  const std::string end = line + "\nLines left out: 2\n";
  ASSERT_GT(taken.size(), end.size());
  EXPECT_EQ(taken.substr(taken.size() - end.size()), end);
  EXPECT_EQ(taken.size(), 1023 * 1024 + end.size() - line.size() - 1);
  // From then on as before.
  {
    const Collecting collecting;
    Base::progress_line("short");
  }
  EXPECT_EQ(Base::take_output(), "short\n");
}

TEST(Streams, AsMuchAsTheBoundIsCollectedWhole) {
  const std::string text = std::string(1048575, '.') + "\n";
  {
    const Collecting collecting;
    Base::progress() << text;
  }
  EXPECT_EQ(Base::take_output(), text);
}

}  // namespace
