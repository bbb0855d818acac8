// Runs the real program, as a shell would.
#ifndef KELPBOX_TESTS_CLI_PROGRAM_RUN_H_
#define KELPBOX_TESTS_CLI_PROGRAM_RUN_H_

#include <sys/types.h>

#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include "support/temp_dir.h"

namespace Testing {

struct Ran {
  int code = -1;    // exit code, or 128 and the signal that ended the program
  std::string out;  // on a terminal, both streams as the terminal shows them
  std::string err;
};

// Where standard output goes.
enum class Output { kept, closed_pipe, full_disk };

struct Setting {
  std::string folder = ".";
  std::string input{};  // of standard input
  std::vector<std::pair<std::string, std::string>>
      environment{};  // added; TERM is xterm without it
  Output output = Output::kept;
};

using Words = std::vector<std::string>;

// The path of the program that was built.
std::string program_path();

Ran run_program(const Words& words, const Setting& setting = {});
// Any other program.
Ran run_command(const Words& command, const Setting& setting = {});
// With all three streams on a terminal. After the patience, Ctrl-C is pressed.
Ran run_on_terminal(const Words& words, const Setting& setting = {},
                    std::chrono::seconds patience = std::chrono::seconds(60));

// The program while it runs, in a process group of its own.
class RunningProgram {
 public:
  explicit RunningProgram(const Words& words, const Setting& setting = {});
  ~RunningProgram();
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;

  void send(int signal) const;
  // As a terminal does on Ctrl-C: to the program and its children.
  void send_to_group(int signal) const;
  // Whether the program or a child of it is there, even after `wait`.
  bool has_processes() const;
  // Waits for its end.
  Ran wait();

 private:
  TempDir streams_;
  pid_t pid_ = -1;
  pid_t group_ = -1;
};

}  // namespace Testing

#endif  // KELPBOX_TESTS_CLI_PROGRAM_RUN_H_
