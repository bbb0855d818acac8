// The NetCDF files as other programs read them: check_netcdf.py opens them with xarray.
#include <gtest/gtest.h>
#include <netcdf.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "outputs/cf_attributes.h"
#include "outputs/field_frames.h"
#include "outputs/made_run.h"
#include "outputs/point_wave.h"
#include "support/temp_dir.h"

namespace Outputs {
namespace {

template <typename Number>
void save(const std::string& path, const std::vector<Number>& values) {
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(values.data()),
             static_cast<std::streamsize>(values.size() * sizeof(Number)));
}

class Netcdf : public testing::Test {
 protected:
  std::string expected(const std::string& name) { return dir.file("expected/" + name); }

  void expect_signals(const Testing::MadeRun& made) {
    for (std::uint32_t bank = 0; bank < made.drive->banks().size(); ++bank) {
      std::vector<double> signals;
      for (std::uint32_t p = 0; p < made.drive->banks()[bank].paddles; ++p) {
        for (std::size_t i = 0; i < made.drive->samples(); ++i) {
          signals.push_back(made.drive->sample(bank, p, i));
        }
      }
      save(expected("drive_" + std::to_string(bank + 1)), signals);
    }
  }

  void expect_points(Testing::MadeRun& made) {
    for (std::size_t point = 0; point < made.run->points.size(); ++point) {
      build_point(*made.run, point);
      const PointWave wave = point_wave(*made.run);
      const std::string number = "_" + std::to_string(point + 1);
      save(expected("eta" + number), wave.elevation);
      save(expected("amplitude" + number), wave.amplitudes);
      save(expected("ef" + number), wave.density);
      save(expected("share" + number), wave.shares);
    }
  }

  // In the order of the file: time, y, x.
  void expect_field(Testing::MadeRun& made, std::size_t columns, std::size_t rows) {
    const FieldFrames field(*made.run, nullptr);
    std::vector<std::int16_t> codes;
    for (std::size_t t = 0; t < field.frames(); ++t) {
      for (std::size_t y = 0; y < rows; ++y) {
        for (std::size_t x = 0; x < columns; ++x) codes.push_back(field.frame(t)[rows * x + y]);
      }
    }
    save(expected("field"), codes);
  }

  void check(const std::string& kind) {
    const std::string command = std::string(KELPBOX_PYTHON) +
                                " " TEST_ROOT "/outputs/check_netcdf.py " + kind + " " +
                                dir.file("x.out") + " " + dir.file("expected");
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
  }

  Netcdf() { std::filesystem::create_directory(dir.file("expected")); }

  Testing::TempDir dir;
};

TEST_F(Netcdf, FilesOfABasinAreReadByXarray) {
  Testing::MadeRun made(dir.write("storm.toml", Testing::basin_job()));
  made.write(dir.file("x.out"));
  expect_signals(made);
  expect_points(made);
  expect_field(made, 51, 39);
  check("basin");
}

TEST_F(Netcdf, FilesOfTwoBanksAndDifferentPointsAreReadByXarray) {
  Testing::MadeRun made(dir.write(
      "storm.toml",
      "title = \"L-f\xC3\xB6rmig\"\nsite = \"" + Testing::examples +
          "l_basin.site\"\n[run]\nrepeat = \"20 s\"\n[[sea]]\n[[sea.wave]]\nkind = \"single\"\n"
          "f = \"0.8 Hz\"\na = \"25 mm\"\nangle = \"10 deg\"\n"
          "[drive]\nstop_at_limit = true\nrate = \"16 Hz\"\n"
          "[[point]]\nname = \"Mole \xE2\x84\x96 1\"\nx = \"3 m\"\ny = \"4 m\"\nrate = \"20 Hz\"\n"
          "[[point]]\nx = \"3 m\"\ny = \"5 m\"\nrate = \"25 Hz\"\ndelta_angle = \"45 deg\"\n"));
  made.write(dir.file("x.out"));
  expect_signals(made);
  expect_points(made);
  check("l_basin");
}

TEST_F(Netcdf, HistoryHasTheTimeThatTheEnvironmentGives) {
  Testing::MadeRun made(dir.write("storm.toml", Testing::regular_job()));
  setenv("SOURCE_DATE_EPOCH", "1700000000", 1);  // 2023-11-14 22:13:20 UTC
  made.write(dir.file("x.out"));
  unsetenv("SOURCE_DATE_EPOCH");
  check("history");
}

TEST_F(Netcdf, HistoryIsLeftOutForATimeThatIsNoDate) {
  Testing::MadeRun made(dir.write("storm.toml", Testing::regular_job()));
  // Text, a fraction, more seconds than a number holds, and than years have numbers.
  for (const char* time :
       {"", "now", "1700000000.5", "10000000000000000000", "9000000000000000000"}) {
    setenv("SOURCE_DATE_EPOCH", time, 1);
    OutputFolder folder(dir.file("x.out"));
    NetcdfFile file(folder, "a.nc");
    put_file_attributes(file, *made.run, "");
    file.close();
    unsetenv("SOURCE_DATE_EPOCH");
    int id = 0;
    ASSERT_EQ(nc_open(folder.path_of("a.nc").c_str(), NC_NOWRITE, &id), NC_NOERR);
    int number = 0;
    EXPECT_EQ(nc_inq_attid(id, NC_GLOBAL, "title", &number), NC_NOERR);
    EXPECT_EQ(nc_inq_attid(id, NC_GLOBAL, "comment", &number), NC_ENOTATT);
    EXPECT_EQ(nc_inq_attid(id, NC_GLOBAL, "history", &number), NC_ENOTATT) << time;
    nc_close(id);
  }
}

}  // namespace
}  // namespace Outputs
