// The findings of a job as a table for people.
#ifndef KELPBOX_CLI_JUDGEMENT_TABLE_H_
#define KELPBOX_CLI_JUDGEMENT_TABLE_H_

#include <string>

#include "cli/console.h"
#include "jobs/judgement.h"

namespace Cli {

std::string judgement_table(const Jobs::Run& run, const Jobs::Judgement& judgement,
                            const Console& console);

}  // namespace Cli

#endif  // KELPBOX_CLI_JUDGEMENT_TABLE_H_
