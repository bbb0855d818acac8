#include "cli/command_texts.h"

namespace Cli {

namespace {

const Completes job_files{Completes::Kind::files, "toml"};
const Completes site_files{Completes::Kind::files, "site"};
const Completes csv_files{Completes::Kind::files, "csv"};
const Completes folders{Completes::Kind::folders, ""};

const OptionText set_of_job{
    "--set",     "",
    "KEY=VALUE", "Replace a value of the job: sea.hs=\"100 mm\". May be given several times.",
    {},          true};
const OptionText workers{"--jobs", "-j", "N",
                         "Work on N jobs at a time, each in a process of its own, or on a single "
                         "job with N threads. 0 or "
                         "auto: one for each processor. Without it, one job after the other."};
const OptionText strict{
    "--strict", "", "",
    "End with exit code 1 if a finding needs a look. Without it, findings are only shown."};

}  // namespace

CommandText run_text() {
  return {
      "run",
      "make everything that jobs ask for",
      "Reads a job, makes its drive signals and everything else that it asks for, compares what "
      "was asked with what will be made, and writes the results to a folder. The folder appears "
      "whole or not at all; a folder that an earlier run wrote is replaced. The page report.html "
      "in "
      "it shows the results.\n\n"
      "Several jobs are independent of each other: one that fails does not stop the others, and "
      "the exit code is the highest of all. They need different names, because each has its own "
      "folder.",
      {{"kelpbox run storm.toml", "writes storm.out"},
       {"kelpbox run storm.toml --set sea.hs=\"100 mm\" --out higher",
        "with another height, into the folder higher"},
       {"kelpbox run seas/*.toml --out results -j auto --strict",
        "all jobs of a folder, on all processors"}},
      {{"JOB", "A job file, or - for standard input.", job_files, true, true}},
      {{"--out", "-o", "DIR",
        "The folder for the results: DIR, or DIR/<job> for each of several jobs. Without it, "
        "<job>.out in the current folder.",
        folders},
       set_of_job,
       workers,
       strict}};
}

CommandText check_text() {
  return {"check",
          "build and judge jobs without writing anything",
          "Does the same as run, except that nothing is written: reads the job, builds its waves "
          "and drive signals, and compares what was asked with what would be made.",
          {{"kelpbox check storm.toml", "shows what would be made"},
           {"kelpbox check storm.toml --set sea.hs=\"150 mm\" --strict && echo good",
            "asks whether a higher sea can be made"},
           {"kelpbox check *.toml --json | jq '.jobs[].exit_code'", "for machines"}},
          {{"JOB", "A job file, or - for standard input.", job_files, true, true}},
          {set_of_job, workers, strict}};
}

CommandText report_text() {
  return {"report",
          "make the page that shows the results of a run",
          "Makes report.html from the files of a folder that run wrote, and puts it there: the "
          "same page as run makes, for results without one or of an older version. The page is "
          "one file without any other, to open in a browser, mail or print. Other files of the "
          "folder stay as they are; parts whose files are missing are left out.",
          {{"kelpbox report storm.out", "writes storm.out/report.html"},
           {"kelpbox report results/*", "the pages of all folders"}},
          {{"OUT", "A folder that run wrote.", folders, true, true}},
          {}};
}

CommandText site_text() {
  return {"site",
          "show a tank: its depths, walls, limits and wavemakers",
          "Reads a site script and shows its tank, the limits of the waves that may be requested, "
          "the values that can be tuned, and each wavemaker bank with its machine.",
          {{"kelpbox site basin.site", ""},
           {"kelpbox site flume.site --set drive_gain=1.1", "with a tuned value"},
           {"kelpbox site basin.site --json | jq .banks", "for machines"}},
          {{"SITE", "A site script.", site_files}},
          {{"--set",
            "",
            "NAME=VALUE",
            "Tune a value of the site: still_water_correction=\"5 mm\". May be given several "
            "times.",
            {},
            true}}};
}

CommandText analyse_text() {
  return {
      "analyse",
      "find the waves in probe records",
      "Finds the waves in the records of probes by zero crossings, and separates waves that run "
      "forward from waves that run back. Each column of a CSV file is the record of one probe. "
      "Units and positions are read from the head of the file, or given here.",
      {{"kelpbox analyse flume.site records.csv", ""},
       {"kelpbox analyse flume.site records.csv --start \"20 s\" --stop \"84 s\"",
        "a part of the records"},
       {"kelpbox analyse flume.site raw.csv --rate \"50 Hz\" --units mm --probe \"x=9 m,y=0 m\" "
        "--probe \"x=9.4 m,y=0 m\"",
        "a file without a head"}},
      {{"SITE", "The site script of the tank.", site_files},
       {"RECORDS", "CSV files with a column for each probe.", csv_files, true, true}},
      {{"--start", "", "TIME", "Where the analysed part begins, such as \"20 s\"."},
       {"--stop", "", "TIME", "Where the analysed part ends."},
       {"--rate", "", "RATE", "The sample rate, for files without a time column: \"50 Hz\"."},
       {"--units", "", "UNITS", "Units of the elevations, for heads without units: mm."},
       {"--angle", "", "ANGLE", "The direction of the waves. Without it, 0 deg."},
       {"--probe",
        "",
        "POSITION",
        "The position of a probe, in the order of the columns: \"x=9 m,y=0 m\". May be given "
        "several times.",
        {},
        true},
       {"--column",
        "",
        "NAME",
        "A column to analyse, by name or number. May be given several times. Without it, all.",
        {},
        true}}};
}

}  // namespace Cli
