#include "cli/command_texts.h"

namespace Cli {

CommandText new_text() {
  return {"new",
          "write a commented job or site to start from",
          "Writes a job for a common task, or a site script, with comments. Both work as they "
          "stand. Without a name, lists what there is.",
          {{"kelpbox new", "lists the jobs and sites"},
           {"kelpbox new jonswap", "writes jonswap.toml"},
           {"kelpbox new site flume --to my.site", "writes a site script"}},
          {{"NAME",
            "The task; or site, followed by its kind.",
            {Completes::Kind::words, "@jobs"},
            false},
           {"KIND", "After site: the kind of tank.", {Completes::Kind::words, "@sites"}, false}},
          {{"--to",
            "",
            "FILE",
            "The file to write, or a folder; - for standard output. Without it, <name>.toml or "
            "<kind>.site in the current folder.",
            {Completes::Kind::files, ""}},
           {"--force", "-f", "", "Replace a file that is already there."}}};
}

CommandText seas_text() {
  return {"seas",
          "list the ready seas, or describe one",
          "Lists the seas that a job can name, or shows the formula, the parameters and the source "
          "of one.",
          {{"kelpbox seas", "lists them"}, {"kelpbox seas jonswap", "describes one"}},
          {{"NAME", "The sea to describe.", {Completes::Kind::words, "@seas"}, false}},
          {}};
}

CommandText units_text() {
  return {"units",
          "convert a quantity, or show the units it can have",
          "Converts a quantity by the table of units that jobs and sites use. Without a target, "
          "shows it in the other units of its kind.",
          {{"kelpbox units \"3 ft/s\" m/s", ""}, {"kelpbox units \"1.4 Hz\"", "all that would do"}},
          {{"QUANTITY", "A number with units."}, {"TO", "The units to convert to.", {}, false}},
          {}};
}

CommandText formulas_text() {
  return {"formulas",
          "show the language of formulas",
          "Shows the functions, operators and units that a formula can use.",
          {{"kelpbox formulas", ""}, {"kelpbox formulas | less", "page by page"}},
          {},
          {}};
}

CommandText explain_text() {
  return {"explain",
          "explain a message",
          "Explains a message of the library: what it means and what to do. A part of the message "
          "of at least 8 characters is enough.",
          {{"kelpbox explain \"max harmonic is less than min harmonic\"", ""},
           {"kelpbox explain Knum calculation failed", "quotes can be left out"}},
          {{"MESSAGE", "The message, or words of it.", {}, true, true}},
          {}};
}

CommandText help_text() {
  return {
      "help",
      "describe a command",
      "Describes a command with its options and examples. Without a command, lists all.",
      {{"kelpbox help run", "the same as kelpbox run --help"}, {"kelpbox help", "all commands"}},
      {{"COMMAND", "The command.", {Completes::Kind::words, "@commands"}, false}},
      {}};
}

CommandText completion_text() {
  return {"completion",
          "write a completion script for bash or zsh",
          "Writes a script that lets the shell complete commands, options and files.",
          {{"source <(kelpbox completion bash)", "in ~/.bashrc"},
           {"kelpbox completion zsh > ~/.zfunc/_kelpbox", "in a folder of fpath"}},
          {{"SHELL", "bash or zsh.", {Completes::Kind::words, "bash zsh"}}},
          {}};
}

CommandText man_text() {
  return {"man",
          "write the man page",
          "Writes the man page kelpbox(1) in the format of troff.",
          {{"kelpbox man | man -l -", "shows it"}, {"kelpbox man > kelpbox.1", ""}},
          {},
          {}};
}

}  // namespace Cli
