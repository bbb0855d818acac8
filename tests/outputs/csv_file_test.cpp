#include "outputs/csv_file.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <sstream>
#include <string>

#include "support/temp_dir.h"

namespace Outputs {
namespace {

TEST(CsvFile, HasCommentsHeadsAndRows) {
  const Testing::TempDir dir;
  OutputFolder folder(dir.file("x.out"));
  CsvFile file(folder, "a.csv");
  file.comment("drive signals of bank 1, \"main\"");
  file.comment("two\nlines");
  file.heads({"time [s]", "paddle 1 [rad]"});
  file.add(0.1);
  file.add(-1.5e-9);
  file.end_row();
  file.add(std::uint64_t{18446744073709551615u});
  file.add(1.0);
  file.end_row();
  file.close();
  folder.commit();
  EXPECT_EQ(dir.contents("x.out/a.csv"),
            "# drive signals of bank 1, \"main\"\n# two lines\ntime [s],paddle 1 [rad]\n"
            "0.1,-1.5e-09\n18446744073709551615,1\n");
}

TEST(CsvFile, NumbersReadBackToTheLastBit) {
  const Testing::TempDir dir;
  OutputFolder folder(dir.file("x.out"));
  // All exponents and signs; and the ends of the range.
  std::vector<double> values = {0.0, -0.0, std::numeric_limits<double>::denorm_min(),
                                -std::numeric_limits<double>::max(),
                                std::numeric_limits<double>::min()};
  std::uint64_t bits = 1;
  while (values.size() < 30000) {
    bits = bits * 6364136223846793005u + 1442695040888963407u;  // Knuth's MMIX generator
    const auto value = std::bit_cast<double>(bits);
    if (std::isfinite(value)) values.push_back(value);
  }
  CsvFile file(folder, "a.csv");
  for (const double value : values) {
    file.add(value);
    file.end_row();
  }
  file.close();
  folder.commit();
  std::istringstream lines(dir.contents("x.out/a.csv"));
  std::string line;
  for (const double value : values) {
    ASSERT_TRUE(std::getline(lines, line));
    EXPECT_EQ(std::bit_cast<std::uint64_t>(std::strtod(line.c_str(), nullptr)),
              std::bit_cast<std::uint64_t>(value))
        << line;
  }
  EXPECT_FALSE(std::getline(lines, line));
}

}  // namespace
}  // namespace Outputs
