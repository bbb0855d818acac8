// The texts of the single commands, for the table.
#ifndef KELPBOX_CLI_COMMAND_TEXTS_H_
#define KELPBOX_CLI_COMMAND_TEXTS_H_

#include "cli/command_table.h"

namespace Cli {

// Commands that work on files of the user (job_command_texts.cpp).
CommandText run_text();
CommandText check_text();
CommandText report_text();
CommandText site_text();
CommandText analyse_text();

// Commands that explain and help (help_command_texts.cpp).
CommandText new_text();
CommandText seas_text();
CommandText units_text();
CommandText formulas_text();
CommandText explain_text();
CommandText help_text();
CommandText completion_text();
CommandText man_text();

}  // namespace Cli

#endif  // KELPBOX_CLI_COMMAND_TEXTS_H_
