// Folders that no page can be made from.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <limits>
#include <string>
#include <vector>

#include "outputs/csv_reader.h"
#include "outputs/folder_listing.h"
#include "outputs/made_page.h"
#include "outputs/made_run.h"
#include "outputs/page_texts.h"
#include "outputs/regular_file.h"
#include "support/own_process.h"

namespace Outputs {
namespace {

using Testing::Json;

class BrokenResults : public testing::Test {
 protected:
  BrokenResults() {
    summary["drive"] = Testing::drive_of(2, 3, 0.3);
    summary["points"] = {{{"name", "p"}, {"rate", 0.2}, {"samples", 2}}};
    summary["field"] = {{"rate", 0.2},
                        {"frames", 2},
                        {"x", {{"from", 0.0}, {"step", 1.0}, {"count", 2}}},
                        {"y", {{"from", 0.0}, {"step", 1.0}, {"count", 2}}}};
    dir.write("report.html", "old");
  }
  // The message; the old page must be there then, and nothing else.
  std::string why() {
    dir.write("summary.json", summary.dump());
    const auto before = Testing::listing(dir.path());
    std::string message = Testing::no_page(dir.path());
    EXPECT_EQ(Testing::listing(dir.path()), before);
    return message;
  }

  struct Wrong {
    const char* place;
    Json value;
    const char* fault;
  };
  // Each value alone, in an otherwise good summary.
  void expect_refused(const std::vector<Wrong>& all) {
    const Json good = summary;
    for (const Wrong& wrong : all) {
      summary = good;
      summary[Json::json_pointer(wrong.place)] = wrong.value;
      EXPECT_EQ(why(), "x.out/summary.json: is not a summary of `kelpbox run`: " +
                           std::string(wrong.fault));
    }
  }

  Json summary = Testing::bare_summary();
  Testing::TempDir dir;
};

TEST_F(BrokenResults, AreReportedForAFolderWithoutSummary) {
  EXPECT_EQ(Testing::no_page(dir.path()),
            "x.out: is not a folder of results of `kelpbox run`: it has no summary.json");
}

TEST_F(BrokenResults, AreReportedForAFolderThatIsNotThere) {
  EXPECT_EQ(Testing::no_page(dir.file("none")), "x.out: there is no such folder");
}

TEST_F(BrokenResults, AreReportedForFilesThatMayNotBeRead) {
  summary["drive"] = Testing::drive_of(1, 1, 0.1);
  dir.write("summary.json", summary.dump());
  dir.write("drive_1.csv", "time [s],paddle 1 [m]\n0,1\n");
  std::filesystem::permissions(dir.path(), std::filesystem::perms(0755));
  for (const std::string name : {"drive_1.csv", "summary.json"}) {
    std::filesystem::permissions(dir.file(name), std::filesystem::perms::none);
    EXPECT_TRUE(Testing::good_alone([&] {
      Testing::give_up_privileges();
      return Testing::no_page(dir.path()) == "x.out/" + name + ": Permission denied";
    })) << name;
  }
}

TEST_F(BrokenResults, AreReportedForFilesThatFailWhenTheyAreRead) {
  const auto fault = [](auto read) -> std::string {
    try {
      read();
    } catch (const CannotRead& failure) {
      return failure.message;
    }
    return "(read)";
  };
  // A regular file in which no address 0 is mapped.
  EXPECT_EQ(fault([] { read_text({"/proc/self", "x"}, "mem", 100); }), "x/mem: Input/output error");
  EXPECT_EQ(fault([] { CsvReader("/proc/self/mem", "x"); }), "x: Input/output error");
  dir.write("large", std::string((1 << 20) + 1, 'x'));
  EXPECT_EQ(fault([&] {
              read_text({dir.path(), "x"}, "large", 1 << 20);
            }),
            "x/large: is larger than 1 MiB");
  std::filesystem::create_directory(dir.file("closed"));
  std::filesystem::permissions(dir.path(), std::filesystem::perms(0755));
  std::filesystem::permissions(dir.file("closed"), std::filesystem::perms::none);
  EXPECT_TRUE(Testing::good_alone([&] {
    Testing::give_up_privileges();
    return fault([&] { require_regular_file(dir.file("closed/x"), "x"); }) ==
           "x: Permission denied";
  }));
}

TEST_F(BrokenResults, AreReportedForASummaryThatClosesMoreThanItOpens) {
  dir.write("summary.json", R"({"title": "a \" [{"}])");
  EXPECT_EQ(Testing::no_page(dir.path()), "x.out/summary.json: is broken at byte 21");
  dir.write("summary.json", "]");
  EXPECT_EQ(Testing::no_page(dir.path()), "x.out/summary.json: is broken at byte 1");
}

TEST_F(BrokenResults, AreReportedForASwitchThatIsANumber) {
  summary["run"]["side_walls"] = 3;
  EXPECT_NE(why().find("is not a truth value"), std::string::npos);
}

TEST_F(BrokenResults, AreReportedForARunWithoutARepeatTime) {
  summary["run"]["repeat"] = 0.0;
  EXPECT_EQ(why().find("x.out/summary.json: is not a summary of `kelpbox run`"), 0U);
}

TEST_F(BrokenResults, AreReportedForRatesAndNumbersOfSamplesThatAreMissing) {
  const Json good = summary;
  const std::pair<const char*, const char*> missing[] = {
      {"run", "repeat"}, {"drive", "rate"}, {"drive", "samples"}};
  for (const auto& [part, key] : missing) {
    summary = good;
    summary[part].erase(key);
    EXPECT_EQ(why(), "x.out/summary.json: is not a summary of `kelpbox run`") << part << key;
  }
}

TEST_F(BrokenResults, AreReportedForFoldersInPlaceOfFiles) {
  std::filesystem::create_directory(dir.file("log.txt"));
  EXPECT_EQ(why(), "x.out/log.txt: Is a directory");
}

TEST_F(BrokenResults, AreReportedForABrokenSummary) {
  dir.write("summary.json", "{\"kelpbox\": \"1");
  EXPECT_EQ(Testing::no_page(dir.path()), "x.out/summary.json: is broken at byte 15");
}

TEST_F(BrokenResults, AreReportedForForeignSummaries) {
  const std::string foreign = "x.out/summary.json: is not a summary of `kelpbox run`";
  for (const char* text : {"[]", "3", "{}", "{\"kelpbox\": 1}"}) {
    dir.write("summary.json", text);
    EXPECT_EQ(Testing::no_page(dir.path()), foreign) << text;
  }
  summary["plan"] = Json::object();
  EXPECT_EQ(why(), foreign);
}

TEST_F(BrokenResults, AreReportedForValuesOfWrongTypes) {
  expect_refused({
      {"/title", 3, "title is not a text"},
      {"/site", nullptr, "site is not an object"},
      {"/run/repeat", nullptr, "run.repeat is not a number"},
      {"/run/highest_harmonic", "x", "run.highest_harmonic is not a number"},
      {"/drive/banks", 7, "drive.banks is not a list"},
      {"/drive/banks/1/name", Json::array(), "drive.banks[1].name is not a text"},
      {"/points/0/remarks", "x", "points[0].remarks is not a list"},
      {"/points/0/statistics", {{"Hs", 3}}, "points[0].statistics.Hs is not an object"},
      {"/spectrum", {{"f", "x"}}, "spectrum.f is not a list"},
      {"/directions", {{"variance", {0}}}, "directions.variance[0] is not a list"},
      {"/findings", 2147483648, "findings is not a list"},
      {"/plan",
       {{"banks", {{{"paddles", {{"x", 1e30}}}}}}},
       "plan.banks[0].paddles.x is not a list"},
  });
}

TEST_F(BrokenResults, AreReportedForNumbersThatNoRunHas) {
  expect_refused({
      {"/run/repeat", 0, "run.repeat is not above 0"},
      {"/run/repeat", -1, "run.repeat is not above 0"},
      {"/run/highest_harmonic", -1, "run.highest_harmonic is not a whole number"},
      {"/run/highest_harmonic", 0, "run.highest_harmonic is not above 0"},
      {"/run/highest_harmonic", 1'000'000'001, "run.highest_harmonic is too large"},
      {"/drive/rate", 0.0, "drive.rate is not above 0"},
      {"/drive/samples", -1, "drive.samples is not a whole number"},
      {"/drive/samples", 18446744073709551615U, "drive.samples is too large"},
      {"/drive/banks/0/paddles", 1.5, "drive.banks[0].paddles is not a whole number"},
      {"/points/0/samples", 4294967296, "points[0].samples is too large"},
      {"/points/0/rate", -1e-300, "points[0].rate is not above 0"},
      {"/field/frames", true, "field.frames is not a number"},
      {"/field/x/count", 1e300, "field.x.count is too large"},
      {"/field/rate", 1e16, "field.rate is too large"},
  });
}

// A site may write "no limit" as a large number.
TEST_F(BrokenResults, AreNotReportedForLargeLimits) {
  for (const char* name : {"maximum", "minimum", "clip_limit"}) {
    summary["drive"]["banks"][0][name] = std::numeric_limits<double>::max();
  }
  summary["plan"] = {{"y", {-1e308, 1e308}}, {"profile", {{"x", {0, 1}}, {"depth", {1, 1}}}}};
  dir.write("summary.json", summary.dump());
  EXPECT_EQ(Testing::no_page(dir.path()), "(written)");
}

// Repeat times are 10 s.
TEST_F(BrokenResults, AreReportedForRatesThatDoNotAgreeWithTheirSamples) {
  expect_refused({
      {"/drive/rate", 1e-300, "drive.samples is not drive.rate times run.repeat"},
      {"/drive/samples", 5, "drive.samples is not drive.rate times run.repeat"},
      {"/points/0/rate", 20.0, "points[0].samples is not points[0].rate times run.repeat"},
      {"/field/frames", 0, "field.frames is not field.rate times run.repeat"},
      {"/run/repeat", 100.0, "drive.samples is not drive.rate times run.repeat"},
  });
}

TEST_F(BrokenResults, AreReportedForFindingsWithoutWhatThePageReads) {
  const Json whole = {{"group", "sea"},     {"key", "hs"},          {"quantity", "Hs"},
                      {"units", "m"},       {"asked", nullptr},     {"made", 0.1},
                      {"asked_text", ""},   {"made_text", "10 cm"}, {"criterion", ""},
                      {"verdict", nullptr}, {"remark", ""},         {"minor", false}};
  for (const auto& [key, value] : whole.items()) {
    Json part = whole;
    part.erase(key);
    summary["findings"] = {whole, part};
    EXPECT_EQ(why(), "x.out/summary.json: is not a summary of `kelpbox run`: findings[1]." + key +
                         " is missing");
  }
}

// To open a FIFO waits for a writer, and the zeros of a device never end.
TEST_F(BrokenResults, AreReportedForFilesThatAreNotRegular) {
  const std::string names[] = {"drive.nc",    "drive_1.csv", "points.nc", "point_1.nc",
                               "point_1.csv", "field.nc",    "job.toml",  "log.txt"};
  dir.write("summary.json", summary.dump());
  const auto no_page = [&] { return Testing::no_page(dir.path()); };
  for (const std::string& name : names) {
    ASSERT_EQ(mkfifo(dir.file(name).c_str(), 0600), 0) << name;
    EXPECT_EQ(no_page(), "x.out/" + name + ": not a regular file");
    std::filesystem::remove(dir.file(name));
    std::filesystem::create_symlink("/dev/zero", dir.file(name));
    EXPECT_EQ(no_page(), "x.out/" + name + ": not a regular file");
    std::filesystem::remove(dir.file(name));
    std::filesystem::create_directory(dir.file(name));
    EXPECT_EQ(no_page(), "x.out/" + name + ": Is a directory");
    std::filesystem::remove(dir.file(name));
  }
  std::filesystem::remove(dir.file("summary.json"));
  ASSERT_EQ(mkfifo(dir.file("summary.json").c_str(), 0600), 0);
  EXPECT_EQ(no_page(), "x.out/summary.json: not a regular file");
}

TEST_F(BrokenResults, AreReportedForDeepNesting) {
  const std::string rest = summary.dump().substr(1);
  const std::string deep = std::string(500'000, '[') + std::string(500'000, ']');
  dir.write("summary.json", "{\"unknown\":" + deep + "," + rest);
  EXPECT_EQ(Testing::no_page(dir.path()), "x.out/summary.json: is not a summary of `kelpbox run`");
}

TEST_F(BrokenResults, AreReportedForNumbersThatAreTooLarge) {
  std::string text = summary.dump();
  const std::string repeat = "\"repeat\":";
  text.insert(text.find(repeat) + repeat.size(), "1e999,\"repeat\":");
  dir.write("summary.json", text);
  EXPECT_EQ(Testing::no_page(dir.path()), "x.out/summary.json: has a number that is too large");
}

TEST_F(BrokenResults, AreReportedForNetcdfFilesThatAreNone) {
  for (const char* name : {"drive.nc", "points.nc", "point_1.nc", "field.nc"}) {
    const std::string path = dir.write(name, "no NetCDF");
    EXPECT_EQ(why(), "x.out/" + std::string(name) + ": NetCDF: Unknown file format");
    std::filesystem::remove(path);
  }
}

TEST_F(BrokenResults, AreReportedForTheFilesOfAnotherRun) {
  Testing::MadeRun made(dir.write("b.toml", Testing::basin_job()));
  made.write(dir.file("other"));
  const auto copy = [&](const char* name) {
    dir.write(name, dir.contents("other/" + std::string(name)));
  };
  const auto without = [&](const char* name) {
    const std::string message = why();
    std::filesystem::remove(dir.file(name));
    return message;
  };
  copy("drive.nc");
  EXPECT_EQ(without("drive.nc"),
            "x.out/drive.nc: drive_1 has 40 x 640 values, but summary.json says 2 x 3");
  copy("points.nc");
  EXPECT_EQ(without("points.nc").find("x.out/points.nc: eta has 2 x "), 0U);
  copy("field.nc");
  EXPECT_EQ(without("field.nc").find("x.out/field.nc: eta has 160 x "), 0U);
  dir.write("field.nc", dir.contents("other/drive.nc"));
  EXPECT_EQ(without("field.nc"), "x.out/field.nc: has no variable eta");
  dir.write("drive.nc", dir.contents("other/drive.nc").substr(0, 100'000));
  EXPECT_EQ(without("drive.nc").find("x.out/drive.nc: NetCDF: "), 0U);
  copy("drive_1.csv");
  EXPECT_EQ(without("drive_1.csv"), "x.out/drive_1.csv: has 40 paddles, but summary.json says 2");
}

TEST_F(BrokenResults, AreReportedForBrokenCsvFiles) {
  const std::string head = "time [s],paddle 1 [m],paddle 2 [m]\n";
  const std::string bad = ":3: is not a row of 3 numbers";
  for (const char* row : {"1,2", "1,2,3,4", "1,2,x", "1,,2", "", "1,2,3 ", "1;2;3"}) {
    dir.write("drive_1.csv", head + "0,1,2\n" + row + "\n2,3,4\n");
    EXPECT_EQ(why(), "x.out/drive_1.csv" + bad) << row;
  }
  dir.write("drive_1.csv", head + "0,1,2\n");
  EXPECT_EQ(why(), "x.out/drive_1.csv: has 1 samples, but summary.json says 3");
  dir.write("drive_1.csv", head + "0,1,2\n0,1,nan\n0,1,2\n");
  EXPECT_EQ(why(), "x.out/drive_1.csv: the signal of paddle 2 of bank 1 is not finite");
  dir.write("drive_1.csv", head + "0,1,2\n0,1,2\n0,1,2\n0,1,2\n");
  EXPECT_EQ(why(), "x.out/drive_1.csv: has 4 samples, but summary.json says 3");
  dir.write("drive_1.csv", "time [s],paddle 1 [m]\n0,1\n0,1\n0,1\n");
  EXPECT_EQ(why(), "x.out/drive_1.csv: has 1 paddle, but summary.json says 2");
  dir.write("drive_1.csv", "# nothing\n");
  EXPECT_EQ(why(), "x.out/drive_1.csv: has no columns");
  std::filesystem::remove(dir.file("drive_1.csv"));
  dir.write("point_1.csv", "time [s],eta [m]\n0,1\n0,2\n0,3\n");
  EXPECT_EQ(why(), "x.out/point_1.csv: has 3 samples, but summary.json says 2");
  for (const char* other : {"time [s]\n0\n0\n", "\ntime [s],eta [m]\n0,1\n0,2\n", "t,a,b\n"}) {
    dir.write("point_1.csv", other);
    EXPECT_EQ(why(), "x.out/point_1.csv: has not two columns") << other;
  }
}

}  // namespace
}  // namespace Outputs
