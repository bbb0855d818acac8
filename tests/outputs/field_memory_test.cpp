// The frames of a field are not held twice.
#include <gtest/gtest.h>

#include <cstdint>

#include "outputs/field_netcdf.h"
#include "outputs/made_run.h"
#include "support/own_process.h"
#include "support/temp_dir.h"

namespace Outputs {
namespace {

TEST(FieldMemory, IsThatOfTheFramesAndLittleMore) {
  if (Testing::sanitized) GTEST_SKIP() << "a sanitizer has memory of its own";
  const Testing::TempDir dir;
  Testing::MadeRun made(
      dir.write("flume.toml",
                Testing::regular_job("[field]\nrate = \"20 Hz\"\n"
                                     "x = { from = \"0 m\", to = \"20 m\", step = \"2 cm\" }\n"
                                     "y = { from = \"0 m\", to = \"0.8 m\", step = \"2 cm\" }\n")));
  const double frames = 2.0 * 1200 * 1001 * 41;  // bytes: 98 MB
  const bool good = Testing::good_alone([&] {
    const double before = Testing::peak_memory();
    OutputFolder folder(dir.file("x.out"));
    write_field(*made.run, folder, nullptr);
    const double more = Testing::peak_memory() - before;
    return more > 0.9 * frames && more < 1.2 * frames;
  });
  EXPECT_TRUE(good);
}

}  // namespace
}  // namespace Outputs
