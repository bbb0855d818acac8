#include "jobs/signal_requests.h"

#include <gtest/gtest.h>

#include "jobs/job_folder.h"

namespace Jobs {
namespace {

using Testing::flume_job;
using Testing::JobFolder;

const std::string one_wave =
    "[[sea]]\n[[sea.wave]]\nkind = \"single\"\nf = \"0.5 Hz\"\na = \"20 mm\"\n";

std::string field(const std::string& rate, const std::string& x, const std::string& y) {
  return "[field]\nrate = \"" + rate + "\"\nx = " + x + "\ny = " + y + "\n";
}

const std::string whole_x = "{ from = \"0 m\", to = \"20 m\", step = \"1 m\" }";
const std::string whole_y = "{ from = \"0 m\", to = \"0.8 m\", step = \"0.8 m\" }";

TEST(SignalRequests, RefusesAFieldOfOneRow) {
  EXPECT_EQ(JobFolder().refusal(flume_job(
                one_wave +
                field("10 Hz", whole_x, "{ from = \"0.4 m\", to = \"0.4 m\", step = \"0.4 m\" }"))),
            "12: `to` must be above `from` (a field has at least two rows and two columns)\n");
  EXPECT_EQ(JobFolder().refusal(
                flume_job(one_wave + field("10 Hz", whole_x,
                                           "{ from = \"0 m\", to = \"0.5 m\", step = \"2 m\" }"))),
            "12: `step` must be at most the range (from `from` to `to` are 0.5 m)\n");
  EXPECT_EQ(JobFolder().refusal(flume_job(one_wave + field("10 Hz", whole_x, whole_y))), "");
}

TEST(SignalRequests, RefusesRatesWithoutAUsableNumberOfSamples) {
  const auto refusal = [](const std::string& rest, const std::string& repeat = "64 s") {
    return JobFolder().refusal(flume_job(one_wave + rest, repeat));
  };
  // 64 s at 2^21 Hz are 2^27 samples.
  EXPECT_EQ(refusal("[[point]]\nx = \"1 m\"\ny = \"0 m\"\nrate = \"2097152 Hz\"\n"), "");
  EXPECT_EQ(refusal("[[point]]\nx = \"1 m\"\ny = \"0 m\"\nrate = \"1e300 Hz\"\n"),
            "12: a rate of 1e+300 Hz gives 6.4e+301 samples in a repeat of 64 s "
            "(at most 134217728 samples can be computed)\n");
  EXPECT_EQ(refusal("[[point]]\nx = \"1 m\"\ny = \"0 m\"\nrate = \"0.001 Hz\"\n"),
            "12: a rate of 0.001 Hz gives no sample in a repeat of 64 s\n");
  EXPECT_EQ(refusal("[drive]\nrate = \"0.001 Hz\"\n[[point]]\nx = \"1 m\"\ny = \"0 m\"\n"),
            "10: a rate of 0.001 Hz gives no sample in a repeat of 64 s\n");
  EXPECT_EQ(refusal(field("1e9 Hz", whole_x, whole_y)),
            "10: a rate of 1e+09 Hz gives 6.4e+10 samples in a repeat of 64 s "
            "(at most 134217728 samples can be computed)\n");
  // The drive's rate is the site's 50 Hz.
  EXPECT_EQ(refusal("", "1e7 s"),
            "3: a rate of 50 Hz gives 5e+08 samples in a repeat of 1e+07 s "
            "(at most 134217728 samples can be computed)\n");
}

TEST(SignalRequests, RefusesSectorsOfDirectionsThatAreTooNarrowOrTooWide) {
  const auto refusal = [](const std::string& width) {
    return JobFolder().refusal(flume_job(
        one_wave + "[[point]]\nx = \"1 m\"\ny = \"0 m\"\ndelta_angle = \"" + width + "\"\n"));
  };
  const std::string fault =
      "12: `delta_angle` must be between 0.1 and 360 deg (the width of a sector of directions)\n";
  for (const std::string width : {"1e-9 deg", "1e9 deg", "0 deg", "-10 deg", "0.05 deg"}) {
    EXPECT_EQ(refusal(width), fault) << width;
  }
  EXPECT_EQ(refusal("0.1 deg"), "");
  EXPECT_EQ(refusal("360 deg"), "");
}

TEST(SignalRequests, RefusesAFieldThatTheMachineCannotHold) {
  // 10001 by 8001 points, 2 bytes each, 6400 frames: 1024 GB.
  EXPECT_EQ(JobFolder().refusal(flume_job(
                one_wave + field("100 Hz", "{ from = \"0 m\", to = \"20 m\", step = \"2 mm\" }",
                                 "{ from = \"0 m\", to = \"0.8 m\", step = \"0.1 mm\" }"))),
            "9: the field needs 1000 GB, which this machine does not have "
            "(a larger step or a lower rate needs less)\n");
}

}  // namespace
}  // namespace Jobs
