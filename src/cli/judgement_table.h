// The judgement of a run as a table for the terminal.
#ifndef KELPBOX_CLI_JUDGEMENT_TABLE_H_
#define KELPBOX_CLI_JUDGEMENT_TABLE_H_

#include <string>

#include "cli/console.h"
#include "jobs/judgement.h"
#include "jobs/run.h"

namespace Cli {

struct TableStyle {
  bool colour = false;
  bool verbose = false;  // also shows the minor findings
  unsigned width = 0;    // columns of the terminal; 0 does not wrap
};

// Two lines about the site and the run, once the run is built:
//
//   basin.site  Wave basin ridge: 40 flaps, 0.1 to 2 Hz, 2 m at the paddles
//   storm       256 s, harmonics 26 to 512, 269 fronts at the paddles
std::string run_head(Jobs::Run& run);

// Both: the lines about the run and the table of its findings, as the console shows them.
std::string judgement_table(Jobs::Run& run, const Jobs::Judgement& judgement,
                            const Console& console);

// The findings in columns, with remarks wrapped at the width, and a line that says how many need a
// look.
std::string findings_table(const Jobs::Judgement& judgement, const TableStyle& style = {});

// What the table says about a finding: "good", or for a look "FEW", "LOST", "HIGH" or "LOOK".
std::string verdict_word(const Jobs::Finding& finding);

// "1 of 9 needs a look."
std::string summary_line(const Jobs::Judgement& judgement);

}  // namespace Cli

#endif  // KELPBOX_CLI_JUDGEMENT_TABLE_H_
