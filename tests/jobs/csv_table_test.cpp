#include "jobs/csv_table.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "support/thrown.h"

namespace {

using Jobs::column_of;
using Jobs::CsvTable;
using Jobs::read_csv;
using Testing::thrown;

using Numbers = std::vector<double>;

std::string failure(const std::string& text) {
  return thrown([&] { read_csv(text, "waves.csv"); });
}

TEST(CsvTable, HasTheColumnsAndUnitsOfItsHead) {
  const CsvTable table = read_csv("time [s], eta (mm) ,f_Hz\n0,1.5,-2e-3\n0.1,+2,.5\n", "x.csv");
  ASSERT_EQ(table.columns.size(), 3U);
  EXPECT_EQ(table.columns[0].head, "time [s]");
  EXPECT_EQ(table.columns[0].name, "time");
  EXPECT_EQ(table.columns[0].units, "s");
  EXPECT_EQ(table.columns[1].head, "eta (mm)");
  EXPECT_EQ(table.columns[1].name, "eta");
  EXPECT_EQ(table.columns[1].units, "mm");
  EXPECT_EQ(table.columns[2].name, "f");
  EXPECT_EQ(table.columns[2].units, "Hz");
  EXPECT_EQ(table.columns[0].values, (Numbers{0.0, 0.1}));
  EXPECT_EQ(table.columns[1].values, (Numbers{1.5, 2.0}));
  EXPECT_EQ(table.columns[2].values, (Numbers{-0.002, 0.5}));
}

TEST(CsvTable, AnUnderscoreWithoutAKnownUnitBelongsToTheName) {
  const CsvTable table = read_csv("probe_1,_m,wave_height\n1,2,3\n", "x.csv");
  EXPECT_EQ(table.columns[0].name, "probe_1");
  EXPECT_EQ(table.columns[0].units, "");
  EXPECT_EQ(table.columns[1].name, "_m");
  EXPECT_EQ(table.columns[2].name, "wave_height");
}

TEST(CsvTable, TheFirstLineWithASeparatorDecides) {
  for (const char* text : {"a;b\n1;2\n", "a,b\n1,2\n", "a\tb\n1\t2\n", "a b\n  1    2 \n"}) {
    const CsvTable table = read_csv(text, "x.csv");
    ASSERT_EQ(table.columns.size(), 2U) << text;
    EXPECT_EQ(table.columns[0].values, Numbers{1.0}) << text;
    EXPECT_EQ(table.columns[1].values, Numbers{2.0}) << text;
  }
  EXPECT_EQ(read_csv("eta, the surface [m]; x [m]\n1;2\n", "x.csv").columns[0].name,
            "eta, the surface");
}

TEST(CsvTable, BlanksDoNotPartANameFromItsUnits) {
  const CsvTable table = read_csv("time [s]  eta (mm)\n0 1\n", "x.csv");
  ASSERT_EQ(table.columns.size(), 2U);
  EXPECT_EQ(table.columns[0].head, "time [s]");
  EXPECT_EQ(table.columns[1].units, "mm");
  EXPECT_EQ(read_csv("eta [mm]\n1\n2\n", "x.csv").columns[0].values, (Numbers{1.0, 2.0}));
}

TEST(CsvTable, QuotesAroundAHeadAreRemovedAndProtectSeparators) {
  const CsvTable table = read_csv("\"time [s]\",\"eta, left [mm]\"\n0,1\n", "x.csv");
  ASSERT_EQ(table.columns.size(), 2U);
  EXPECT_EQ(table.columns[0].name, "time");
  EXPECT_EQ(table.columns[1].name, "eta, left");
  EXPECT_EQ(table.columns[1].units, "mm");
}

TEST(CsvTable, AFirstLineOfNumbersIsNoHead) {
  const CsvTable table = read_csv("1,2\n3,4", "x.csv");
  ASSERT_EQ(table.columns.size(), 2U);
  EXPECT_EQ(table.columns[0].head, "");
  EXPECT_EQ(table.columns[1].values, (Numbers{2.0, 4.0}));
}

TEST(CsvTable, CommentsEmptyLinesByteOrderMarkAndCrLfAreNoData) {
  const CsvTable table =
      read_csv("\xEF\xBB\xBF# measured at the model\r\n\r\nt,eta\r\n0,1\r\n #end\r\n\r\n", "x.csv");
  EXPECT_EQ(table.comments, (std::vector<std::string>{" measured at the model", "end"}));
  ASSERT_EQ(table.columns.size(), 2U);
  EXPECT_EQ(table.columns[0].head, "t");
  EXPECT_EQ(table.columns[1].head, "eta");
  EXPECT_EQ(table.columns[1].values, Numbers{1.0});
}

TEST(CsvTable, AFieldThatIsNoFiniteNumberIsRefusedWithItsLine) {
  EXPECT_EQ(failure("t,eta\n0,1\n\n1,high\n"), "waves.csv:4: \"high\" is not a number");
  EXPECT_EQ(failure("t,eta\n0,nan\n"), "waves.csv:2: \"nan\" is not a finite number");
  EXPECT_EQ(failure("0,-inf\n"), "waves.csv:1: \"-inf\" is not a finite number");
  EXPECT_EQ(failure("t,eta\n0,\n"), "waves.csv:2: field 2 is empty");
  EXPECT_EQ(failure("t\teta\n\t1\n"), "waves.csv:2: field 1 is empty");
  EXPECT_EQ(failure("t,eta\n0,0x10\n"), "waves.csv:2: \"0x10\" is not a number");
  EXPECT_EQ(failure("t,eta\n0,+-1\n"), "waves.csv:2: \"+-1\" is not a number");
  EXPECT_EQ(failure("t,eta\n0,1e999\n"), "waves.csv:2: \"1e999\" is not a number");
  EXPECT_EQ(failure("t;eta\n0;0,5\n"),
            "waves.csv:2: \"0,5\" is not a number (decimals have a point)");
}

TEST(CsvTable, AMessageShowsAFieldWithoutControlCharactersAndShortened) {
  EXPECT_EQ(failure("t,eta\n0,\x1b[2J\n"), "waves.csv:2: \"?[2J\" is not a number");
  EXPECT_EQ(failure("t,eta\n0,a\x7f\n"), "waves.csv:2: \"a?\" is not a number");
  EXPECT_EQ(failure("t,eta\n0," + std::string(1000, 'x') + "\n"),
            "waves.csv:2: \"" + std::string(40, 'x') + "...\" is not a number");
}

TEST(CsvTable, ALineWithAnotherNumberOfFieldsIsRefused) {
  EXPECT_EQ(failure("t,eta\n0,1\n2\n"),
            "waves.csv:3: 1 field where the lines before have 2, parted by commas");
  EXPECT_EQ(failure("t,eta\n0,1,2\n"),
            "waves.csv:2: 3 fields where the lines before have 2, parted by commas");
}

TEST(CsvTable, ALineWithAnotherNumberOfFieldsNamesTheSeparator) {
  const auto refused = [](const std::string& separator) {
    return "waves.csv:2: 1 field where the lines before have 2" + separator;
  };
  EXPECT_EQ(failure("0;1\n2\n"), refused(", parted by semicolons"));
  EXPECT_EQ(failure("0\t1\n2\n"), refused(", parted by tabs"));
  EXPECT_EQ(failure("0 1\n2\n"), refused(", parted by blanks"));
}

TEST(CsvTable, AHeadMayHaveAnUnfinishedBracketOrQuote) {
  const CsvTable table = read_csv("eta],\"x,y\n1,2\n", "x.csv");
  ASSERT_EQ(table.columns.size(), 2U);
  EXPECT_EQ(table.columns[0].name, "eta]");
  EXPECT_EQ(table.columns[0].units, "");
  EXPECT_EQ(table.columns[1].name, "\"x,y");
}

TEST(CsvTable, AHeadMayBeginWithABracket) {
  const CsvTable table = read_csv("[s] eta [mm]\n0 1\n", "x.csv");
  ASSERT_EQ(table.columns.size(), 2U);
  EXPECT_EQ(table.columns[0].name, "");
  EXPECT_EQ(table.columns[0].units, "s");
  EXPECT_EQ(table.columns[1].name, "eta");
}

TEST(CsvTable, ATextWithoutNumbersIsRefused) {
  EXPECT_EQ(failure(""), "waves.csv: there are no numbers");
  EXPECT_EQ(failure("# only this\n"), "waves.csv: there are no numbers");
  EXPECT_EQ(failure("t,eta\n"), "waves.csv: there are no numbers");
}

TEST(CsvTable, AColumnIsFoundByHeadNameOrNumber) {
  const CsvTable table = read_csv("t [s],eta [mm],3\n0,1,2\n", "x.csv");
  EXPECT_EQ(&column_of(table, "eta [mm]"), &table.columns[1]);
  EXPECT_EQ(&column_of(table, "eta"), &table.columns[1]);
  EXPECT_EQ(&column_of(table, "2"), &table.columns[1]);
  EXPECT_EQ(&column_of(table, "3"), &table.columns[2]);
}

TEST(CsvTable, AnUnknownColumnIsRefusedWithThoseThatThereAre) {
  const CsvTable named = read_csv("t [s],eta [mm],eta [m]\n0,1,2\n", "x.csv");
  const CsvTable bare = read_csv("0,1\n", "x.csv");
  const auto missing = [](const CsvTable& table, const char* wanted) {
    return thrown([&] { column_of(table, wanted); });
  };
  EXPECT_EQ(missing(named, "u"),
            "there is no column \"u\": there are \"t [s]\", \"eta [mm]\", \"eta [m]\"");
  EXPECT_EQ(missing(named, "4").substr(0, 23), "there is no column \"4\":");
  EXPECT_EQ(missing(named, ""),
            "there is no column \"\": there are \"t [s]\", \"eta [mm]\", \"eta [m]\"");
  EXPECT_EQ(missing(bare, "3"), "there is no column \"3\": there are 1, 2");
  EXPECT_EQ(missing(bare, "0"), "there is no column \"0\": there are 1, 2");
  EXPECT_EQ(missing(named, "eta"),
            "several columns are called \"eta\": give the head or the number");
}

TEST(CsvTable, AMillionLinesAreReadInWellUnderASecond) {
  std::string text = "t [s],eta [mm]\n";
  for (int i = 0; i < 1000000; ++i) {
    text += std::to_string(i) + ".02,-12.34567\n";
  }
  const auto begin = std::chrono::steady_clock::now();
  const CsvTable table = read_csv(text, "x.csv");
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
  ASSERT_EQ(table.columns[0].values.size(), 1000000U);
  EXPECT_EQ(table.columns[0].values.back(), 999999.02);
  RecordProperty("milliseconds", static_cast<int>(1000 * took.count()));
  EXPECT_LT(took.count(), 5.0);  // ten times what a loaded machine needs without optimisation
}

TEST(CsvTable, AHeadMayEndWithAnUnderscoreOrBeEmpty) {
  const CsvTable table = read_csv("time_,,\"\"\n1,2,3\n", "waves.csv");
  ASSERT_EQ(table.columns.size(), 3u);
  EXPECT_EQ(table.columns[0].name, "time_");
  EXPECT_EQ(table.columns[0].units, "");
  EXPECT_EQ(table.columns[1].name, "");
  EXPECT_EQ(table.columns[2].name, "");
}

TEST(CsvTable, VeryLongLinesAndVeryManyColumnsAreRefused) {
  EXPECT_EQ(failure("a\n" + std::string((16 << 20) + 1, '1') + "\n"),
            "waves.csv:2: a line of 16777217 characters: at most 16777216 can be read");
  std::string heads = "a";
  for (int i = 1; i < 100'000; ++i) heads += ",a";
  EXPECT_EQ(failure(heads + "\n"), "waves.csv: there are no numbers");
  EXPECT_EQ(failure(heads + ",a\n"), "waves.csv:1: 100001 columns: at most 100000 can be read");
}

}  // namespace
