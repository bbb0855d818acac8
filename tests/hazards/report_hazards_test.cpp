// Folders of results that were edited before `kelpbox report`.
#include <netcdf.h>
#include <sys/stat.h>

#include "command_row.h"

namespace Testing {
namespace {

using Edit = std::function<void(const TempDir& folder)>;

// Makes results, edits them, and makes their page again. The message is that of the report.
Hazard edited(const std::string& name, const Edit& edit, const std::string& expected) {
  return {name, in_folder([=](const TempDir& folder) -> std::string {
            const Setting here{folder.path()};
            folder.write("job.toml", flume_job(R"([drive]
ramp = "2 s"
[[point]]
x = "9 m"
y = "0.4 m"
[field]
rate = "5 Hz"
x = { from = "0 m", to = "10 m", step = "0.5 m" }
y = { from = "0 m", to = "0.8 m", step = "0.4 m" }
)"));
            const Ran made = run_program({"run", "job.toml", "--quiet"}, here);
            if (made.code != 0) return "no results: " + made.err;
            edit(folder);
            const Ran ran = run_program({"report", "job.out", "--quiet"}, here);
            return std::to_string(ran.code) + ": " + ran.err;
          }),
          expected};
}

// Replaces a part of summary.json.
Hazard summary(const std::string& name, const std::string& from, const std::string& to,
               const std::string& expected) {
  return edited(
      name,
      [=](const TempDir& folder) {
        std::string text = folder.contents("job.out/summary.json");
        text.replace(text.find(from), from.size(), to);
        folder.write("job.out/summary.json", text);
      },
      expected);
}

// A FIFO in place of a file.
Hazard fifo(const std::string& name, const std::string& file, const std::string& expected) {
  return edited(
      name,
      [=](const TempDir& folder) {
        const std::string path = folder.file("job.out/" + file);
        std::filesystem::remove(path);
        mkfifo(path.c_str(), 0600);
      },
      expected);
}

// A file of a few kilobytes with a variable of these lengths that was never written.
void write_empty(const std::string& path, const std::string& variable,
                 const std::vector<std::size_t>& lengths) {
  int file = 0;
  int made = 0;
  std::vector<int> dimensions(lengths.size());
  const std::vector<std::size_t> chunks(lengths.size(), 1);
  const double scale = 0.001;
  nc_create(path.c_str(), NC_NETCDF4 | NC_CLOBBER, &file);
  for (std::size_t i = 0; i < lengths.size(); ++i) {
    nc_def_dim(file, ("d" + std::to_string(i)).c_str(), lengths[i], &dimensions[i]);
  }
  nc_def_var(file, variable.c_str(), NC_SHORT, static_cast<int>(lengths.size()), dimensions.data(),
             &made);
  nc_def_var_chunking(file, made, NC_CHUNKED, chunks.data());
  nc_put_att_double(file, made, "scale_factor", NC_DOUBLE, 1, &scale);
  nc_close(file);
}

const std::string frames = "\"frames\": 320";
const std::string count = "\"count\": 21";
const std::string samples = "\"samples\": 3200";
const std::string rate = "\"rate\": 50.0";

const Rows rows = {
    edited(
        "NothingWasEdited", [](const TempDir&) {}, "0: "),
    summary("NegativeSamples", samples, "\"samples\": -1",
            "2: error: job.out/summary.json: is not a summary of `kelpbox run`: drive.samples is "
            "not a whole number\n"),
    summary("AllSamples", samples, "\"samples\": 18446744073709551615",
            "2: error: job.out/summary.json: is not a summary of `kelpbox run`: drive.samples is "
            "too large\n"),
    summary("FourBillionSamples", samples, "\"samples\": 4294967295",
            "2: error: job.out/summary.json: is not a summary of `kelpbox run`: drive.samples is "
            "not drive.rate times run.repeat\n"),
    edited(
        "FourBillionSamplesAtARateThatGivesThem",
        [](const TempDir& folder) {
          std::string text = folder.contents("job.out/summary.json");
          text.replace(text.find(rate), rate.size(), "\"rate\": 67108864.0");
          text.replace(text.find(samples), samples.size(), "\"samples\": 4294967295");
          folder.write("job.out/summary.json", text);
        },
        "2: error: job.out/drive.nc: drive_1 has 1 x 3200 values, but summary.json says 1 x "
        "4294967295\n"),
    summary("FourBillionPaddles", "\"paddles\": 1,", "\"paddles\": 4294967295,",
            "2: error: job.out/drive.nc: drive_1 has 1 x 3200 values, but summary.json says "
            "4294967295 x 3200\n"),
    summary("ARateOf1e300Hz", "\"rate\": 50.0", "\"rate\": 1e300",
            "2: error: job.out/summary.json: is not a summary of `kelpbox run`: drive.rate is too "
            "large\n"),
    summary("ARateOf1eMinus300Hz", "\"rate\": 50.0", "\"rate\": 1e-300",
            "2: error: job.out/summary.json: is not a summary of `kelpbox run`: drive.samples is "
            "not drive.rate times run.repeat\n"),
    summary("ARateOfZero", "\"rate\": 50.0", "\"rate\": 0.0",
            "2: error: job.out/summary.json: is not a summary of `kelpbox run`: drive.rate is not "
            "above 0\n"),
    summary("ARepeatOf1e300Seconds", "\"repeat\": 64.0", "\"repeat\": 1e300",
            "2: error: job.out/summary.json: is not a summary of `kelpbox run`: run.repeat is too "
            "large\n"),
    summary("FourBillionHarmonics", "\"highest_harmonic\": 128", "\"highest_harmonic\": 4294967295",
            "2: error: job.out/summary.json: is not a summary of `kelpbox run`: "
            "run.highest_harmonic is too large\n"),
    summary("ABillionHarmonics", "\"highest_harmonic\": 128", "\"highest_harmonic\": 1000000000",
            "0: "),
    summary("ADepthOf1e100Metres", "\"depth\": [0.7", "\"depth\": [1e100", "0: "),
    summary("ANumberBeyondAllNumbers", samples, "\"samples\": 1e999",
            "2: error: job.out/summary.json: has a number that is too large\n"),
    summary(
        "AMillionEmptyFindings", "\"findings\": [", "\"findings\": [" + repeated("{},", 1'000'000),
        "2: error: job.out/summary.json: is not a summary of `kelpbox run`: findings[0].group is "
        "missing\n"),
    edited(
        "ASummaryOfNestedLists",
        [](const TempDir& folder) {
          folder.write("job.out/summary.json", std::string(10'000'000, '['));
        },
        "2: error: job.out/summary.json: is not a summary of `kelpbox run`\n"),
    edited(
        "ASummaryOfFortyMegabytes",
        [](const TempDir& folder) {
          folder.write("job.out/summary.json", "[" + repeated("1,", 20'000'000) + "1]");
        },
        "2: error: job.out/summary.json: is larger than 32 MiB\n"),
    edited(
        "ALogOfFiftyMegabytes",
        [](const TempDir& folder) {
          folder.write("job.out/log.txt", repeated("a line\n", 7'000'000));
        },
        "0: "),
    edited(
        "DriveSignalsOfOneLongLine",
        [](const TempDir& folder) {
          std::filesystem::remove(folder.file("job.out/drive.nc"));
          folder.write("job.out/drive_1.csv", std::string(50'000'000, ','));
        },
        "2: error: job.out/drive_1.csv: has 50000000 paddles, but summary.json says 1\n"),
    edited(
        "AFieldOfFourBillionFrames",
        [](const TempDir& folder) {
          std::string text = folder.contents("job.out/summary.json");
          text.replace(text.find(frames), frames.size(), "\"frames\": 4294967295");
          text.replace(text.find("\"rate\": 5.0"), 11, "\"rate\": 67108864.0");
          folder.write("job.out/summary.json", text);
          write_empty(folder.file("job.out/field.nc"), "eta", {4294967295, 3, 21});
        },
        "2: error: job.out/field.nc: eta has 4294967295 x 3 x 21 values, more than <n> bytes can "
        "hold\n"),
    edited(
        "AFieldOfFourBillionColumns",
        [](const TempDir& folder) {
          std::string text = folder.contents("job.out/summary.json");
          text.replace(text.find(count), count.size(), "\"count\": 4294967295");
          folder.write("job.out/summary.json", text);
          write_empty(folder.file("job.out/field.nc"), "eta", {320, 3, 4294967295});
        },
        "2: error: job.out/field.nc: eta has 320 x 3 x 4294967295 values, more than <n> bytes can "
        "hold\n"),
    fifo("ASummaryThatIsAFifo", "summary.json",
         "2: error: job.out/summary.json: not a regular file\n"),
    fifo("AFieldThatIsAFifo", "field.nc", "2: error: job.out/field.nc: not a regular file\n"),
    fifo("DriveSignalsThatAreAFifo", "drive.nc",
         "2: error: job.out/drive.nc: not a regular file\n"),
    fifo("PointsThatAreAFifo", "points.nc", "2: error: job.out/points.nc: not a regular file\n"),
    fifo("ALogThatIsAFifo", "log.txt", "2: error: job.out/log.txt: not a regular file\n"),
    fifo("AJobThatIsAFifo", "job.toml", "2: error: job.out/job.toml: not a regular file\n"),
    fifo("APageThatIsAFifo", "report.html", "0: "),
    command(
        "ASummaryOfZeros",
        [](const TempDir& folder) {
          std::filesystem::create_symlink("/dev/zero", folder.file("summary.json"));
          return Words{"report", "."};
        },
        "2: error: ./summary.json: not a regular file\n"),
    command(
        "AFifoInPlaceOfAFolder",
        [](const TempDir& folder) {
          mkfifo(folder.file("x.out").c_str(), 0600);
          return Words{"report", "x.out"};
        },
        "2: error: x.out: is not a folder of results of `kelpbox run`: it has no summary.json\n"),
    command(
        "AnEarlierSummaryThatIsAFifo",
        [](const TempDir& folder) {
          folder.write("job.toml", flume_job());
          std::filesystem::create_directory(folder.file("job.out"));
          mkfifo(folder.file("job.out/summary.json").c_str(), 0600);
          return Words{"run", "job.toml", "--quiet"};
        },
        "3: error: cannot write job.out: is not replaced, because summary.json in it is not from "
        "an earlier run\n"),
};
INSTANTIATE_TEST_SUITE_P(Report, HazardTest, testing::ValuesIn(rows), row_name);

}  // namespace
}  // namespace Testing
