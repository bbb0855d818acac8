// Commands that are not written yet. A definition elsewhere replaces each.
#include "cli/commands.h"
#include "cli/judgement_table.h"
#include "jobs/judgement.h"
#include "outputs/write_run.h"

namespace Cli {

static int pending(Console& console) {
  console.err << "not written yet\n";
  return Exit::bad_input;
}

[[gnu::weak]] int analyse(const AnalyseOptions&, Console& console) { return pending(console); }
[[gnu::weak]] int make_new(const NewOptions&, Console& console) { return pending(console); }

[[gnu::weak]] std::string judgement_table(const Jobs::Run&, const Jobs::Judgement&,
                                          const Console&) {
  return "";
}

}  // namespace Cli

namespace Jobs {

[[gnu::weak]] Judgement judge(Run&, const DriveSignals*) { return {}; }

}  // namespace Jobs

namespace Outputs {

[[gnu::weak]] void write_run(Jobs::Run&, const Jobs::DriveSignals&, const Jobs::Judgement&,
                             OutputFolder&, const Progress&) {}
[[gnu::weak]] std::string summary_json(const Jobs::Run&, const Jobs::DriveSignals*,
                                       const Jobs::Judgement&, OutputFolder*) {
  return "{}";
}

}  // namespace Outputs
