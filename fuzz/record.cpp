// CSV files with records of the surface: every refusal names the file or the option, an accepted
// table reads back the same from its own numbers, and finite records give finite results or a note.
//
// Sections: the file, "%% options" with lines such as "--rate 50 Hz".
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "cli/probe_records.h"
#include "cli/record_analysis.h"
#include "fuzz/property.h"
#include "fuzz/record_results.h"
#include "fuzz/sections.h"
#include "jobs/csv_table.h"
#include "outputs/cannot_read.h"
#include "outputs/csv_reader.h"
#include "outputs/number_text.h"
#include "support/temp_dir.h"
#include "support/test_site.h"

namespace {

using Kelpbox::Experiment;

const Testing::TempDir& folder() {
  static const Testing::TempDir made;
  return made;
}

Experiment& flume() {
  static const std::unique_ptr<Experiment> site = [] {
    auto made = std::make_unique<Experiment>();
    made->initialise(folder().write("flume.site", Testing::script({})));
    return made;
  }();
  return *site;
}

Cli::AnalyseOptions options_of(const std::string& text) {
  Cli::AnalyseOptions options;
  for (const std::string& line : Fuzz::lines(text)) {
    const std::size_t blank = line.find(' ');
    const std::string name = line.substr(0, blank);
    const std::string value = blank == std::string::npos ? "" : line.substr(blank + 1);
    if (name == "--start") options.start = value;
    if (name == "--stop") options.stop = value;
    if (name == "--rate") options.rate = value;
    if (name == "--units") options.units = value;
    if (name == "--probe") options.probes.push_back(value);
    if (name == "--column") options.columns.push_back(value);
  }
  return options;
}

// The numbers of a table, read again.
void check_table(const std::string& text) {
  Jobs::CsvTable table;
  const auto refused = Fuzz::refusal([&] { table = Jobs::read_csv(text, "x.csv"); });
  if (refused) {
    Fuzz::require(refused->starts_with("x.csv:"), "the refusal of a table names the file");
    return;
  }
  Fuzz::require(!table.columns.empty() && !table.columns[0].values.empty(), "a table has numbers");
  const std::size_t rows = table.columns[0].values.size();
  std::string numbers;
  for (std::size_t row = 0; row < rows; ++row) {
    for (const Jobs::CsvColumn& column : table.columns) {
      Fuzz::require(column.values.size() == rows, "columns have one length");
      Fuzz::require(std::isfinite(column.values[row]), "a table holds finite numbers only");
      numbers += &column == &table.columns.front() ? "" : ";";
      numbers += Outputs::number_text(column.values[row]);
    }
    numbers += "\n";
  }
  const Jobs::CsvTable again = Jobs::read_csv(numbers, "again");
  Fuzz::require(again.columns.size() == table.columns.size(), "a table keeps its columns");
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    Fuzz::require(again.columns[i].values == table.columns[i].values,
                  "a table reads back the same");
    const Jobs::CsvColumn& head = table.columns[i];
    if (!head.head.empty()) Fuzz::refusal([&] { Jobs::column_of(table, head.head); });
  }
}

void check_analysis(const std::string& path, const std::string& option_lines) {
  const Cli::AnalyseOptions options = options_of(option_lines);
  Cli::ProbeRecords records;
  const auto refused = Fuzz::refusal([&] { records = Cli::read_probe_records(path, options); });
  if (refused) {
    Fuzz::require(refused->starts_with(path) || refused->starts_with("--"),
                  "a refusal begins with the file or the option");
    return;
  }
  Fuzz::require_records(records);
  Cli::RecordAnalysis found;
  // Errors of the site, which records cannot bring about, would be refused too.
  if (Fuzz::refusal([&] { found = Cli::analyse_records(std::move(records), 0.1, flume()); }))
    return;
  Fuzz::require_results(found);
}

// The reader of files that a run has written.
void check_reader(const std::string& path) {
  try {
    Outputs::CsvReader reader(path, "shown.csv");
    std::vector<double> row;
    while (reader.next(row)) {
      Fuzz::require(row.size() == reader.columns(), "every row has a number for each column");
    }
  } catch (const Outputs::CannotRead& refused) {
    Fuzz::require(refused.message.starts_with("shown.csv:"), "a refusal names the file");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Fuzz::Quiet quiet;
  const std::string input(reinterpret_cast<const char*>(data), size);
  const std::vector<Fuzz::Section> sections = Fuzz::sections(input);
  std::string options;
  for (std::size_t i = 1; i < sections.size(); ++i) {
    if (sections[i].name == "options") options = sections[i].text;
  }
  const std::string path = folder().write("record.csv", sections[0].text);
  check_table(sections[0].text);
  check_reader(path);
  check_analysis(path, options);
  return 0;
}
