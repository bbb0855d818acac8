#include "cli/program_run.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

namespace Testing {

namespace {

constexpr int no_program = 127;

int open_output(const Setting& setting, const std::string& kept) {
  if (setting.output == Output::full_disk) return open("/dev/full", O_WRONLY);
  if (setting.output == Output::kept) return open(kept.c_str(), O_WRONLY | O_CREAT, 0600);
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return -1;
  close(ends[0]);
  return ends[1];
}

[[noreturn]] void become(const Words& command, const Setting& setting) {
  // A shell ignores some for a job in the background, and the program would keep that.
  for (const int each : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) signal(each, SIG_DFL);
  setenv("TERM", "xterm", 1);
  unsetenv("NO_COLOR");
  for (const auto& [name, value] : setting.environment) setenv(name.c_str(), value.c_str(), 1);
  std::vector<char*> words;
  for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  if (chdir(setting.folder.c_str()) == 0) execvp(words[0], words.data());
  _exit(no_program);
}

pid_t start(const Words& command, const Setting& setting, const TempDir& streams) {
  streams.write("in", setting.input);
  const pid_t child = fork();
  if (child != 0) {
    setpgid(child, child);  // here too, so that it is done when this returns
    return child;
  }
  setpgid(0, 0);
  dup2(open(streams.file("in").c_str(), O_RDONLY), STDIN_FILENO);
  dup2(open_output(setting, streams.file("out")), STDOUT_FILENO);
  dup2(open(streams.file("err").c_str(), O_WRONLY | O_CREAT, 0600), STDERR_FILENO);
  become(command, setting);
}

int exit_code(pid_t child) {
  int status = 0;
  if (waitpid(child, &status, 0) != child) return -1;
  return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

Words with_program(const Words& words) {
  Words command{program_path()};
  command.insert(command.end(), words.begin(), words.end());
  return command;
}

}  // namespace

std::string program_path() { return KELPBOX_PROGRAM; }

Ran run_command(const Words& command, const Setting& setting) {
  const TempDir streams;
  const int code = exit_code(start(command, setting, streams));
  return {code, streams.contents("out"), streams.contents("err")};
}

Ran run_program(const Words& words, const Setting& setting) {
  return run_command(with_program(words), setting);
}

Ran run_on_terminal(const Words& words, const Setting& setting, std::chrono::seconds patience) {
  int terminal = -1;
  winsize size{24, 80, 0, 0};
  const pid_t child = forkpty(&terminal, nullptr, nullptr, &size);
  if (child == 0) become(with_program(words), setting);
  const auto end = std::chrono::steady_clock::now() + patience;
  bool pressed = false;
  std::string shown;
  std::array<char, 4096> block{};
  pollfd ready{terminal, POLLIN, 0};
  while (true) {
    if (poll(&ready, 1, 100) > 0) {
      const ssize_t count = read(terminal, block.data(), block.size());
      if (count <= 0) break;  // the last process has closed the terminal
      shown.append(block.data(), static_cast<std::size_t>(count));
    }
    if (pressed || std::chrono::steady_clock::now() < end) continue;
    pressed = write(terminal, "\003", 1) == 1;
  }
  close(terminal);
  return {exit_code(child), shown, ""};
}

RunningProgram::RunningProgram(const Words& words, const Setting& setting)
    : pid_(start(with_program(words), setting, streams_)), group_(pid_) {}

RunningProgram::~RunningProgram() {
  if (pid_ == -1) return;
  send(SIGKILL);
  exit_code(pid_);
}

void RunningProgram::send(int signal) const { kill(pid_, signal); }

void RunningProgram::send_to_group(int signal) const { kill(-group_, signal); }

bool RunningProgram::has_processes() const { return kill(-group_, 0) == 0; }

Ran RunningProgram::wait() {
  const int code = exit_code(pid_);
  pid_ = -1;
  return {code, streams_.contents("out"), streams_.contents("err")};
}

}  // namespace Testing
