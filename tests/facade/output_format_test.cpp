// The format of the standard output belongs to the host.
#include <iomanip>
#include <iostream>
#include <sstream>

#include "four_probes.h"
#include "support/output.h"
#include "support/thrown.h"
#include "whole_road.h"

namespace {

// Gives the standard streams a format that the library would not choose, and restores theirs.
class HostFormat {
 public:
  HostFormat() {
    out_.copyfmt(std::cout);
    err_.copyfmt(std::cerr);
    for (std::ostream* stream : {&std::cout, &std::cerr}) {
      *stream << std::hex << std::showbase << std::scientific << std::setprecision(3)
              << std::setfill('*');
    }
  }
  ~HostFormat() {
    std::cout.copyfmt(out_);
    std::cerr.copyfmt(err_);
  }
  HostFormat(const HostFormat&) = delete;
  HostFormat& operator=(const HostFormat&) = delete;

  static void expect_unchanged() {
    for (const std::ostream* stream : {&std::cout, &std::cerr}) {
      EXPECT_EQ(stream->flags() & std::ios_base::basefield, std::ios_base::hex);
      EXPECT_EQ(stream->flags() & std::ios_base::floatfield, std::ios_base::scientific);
      EXPECT_NE(stream->flags() & std::ios_base::showbase, 0);
      EXPECT_EQ(stream->precision(), 3);
      EXPECT_EQ(stream->fill(), '*');
      EXPECT_TRUE(stream->good());
    }
  }

 private:
  std::ostringstream out_;
  std::ostringstream err_;
};

TEST(OutputFormat, OfAHostOutlivesAllThatTheLibraryWrites) {
  const Testing::SmallTank tank;
  const HostFormat format;
  const std::string written = Testing::printed([&] {
    Testing::WholeRoad road;
    road.all(tank.path);
    road.build_drive();
    road.build_point();
    road.build_animation();
    Testing::FourProbes(tank.path).all();
  });
  EXPECT_NE(written.find("Opened file"), std::string::npos);
  HostFormat::expect_unchanged();
}

TEST(OutputFormat, OfAHostOutlivesAnInitialiseThatFails) {
  const Testing::TempDir folder;
  const HostFormat format;
  for (const char* script : {"context {", "context { no_such_key = 1; }", "context { }", "\x01"}) {
    const std::string path = folder.write("bad.site", script);
    Kelpbox::Experiment experiment;
    Testing::printed([&] {
      Testing::printed_to_stderr([&] {
        EXPECT_NE(Testing::thrown([&] { experiment.initialise(path); }), Testing::nothing_thrown);
      });
    });
    HostFormat::expect_unchanged();
  }
}

}  // namespace
