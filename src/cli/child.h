// Work in a process of its own.
//
// The library cannot be stopped in the middle of a long step, and some mistakes in a site script
// end its process. A child can be ended at any moment, and its end does not hurt this process.
#ifndef KELPBOX_CLI_CHILD_H_
#define KELPBOX_CLI_CHILD_H_

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <string>

namespace Cli {

// What the work reports while it runs in the child.
class ChildReport {
 public:
  explicit ChildReport(int fd) : fd_(fd) {}

  // The share done, 0 to 1, of a step; NaN if it is not known.
  void progress(const std::string& step, double done);
  void out(const std::string& text) { send('o', text); }  // for standard output
  void err(const std::string& text) { send('e', text); }  // for standard error

 private:
  void send(char kind, const std::string& text);

  int fd_;
  std::string step_;
  std::chrono::steady_clock::time_point sent_{};
};

// Returns an exit code.
using Work = std::function<int(ChildReport&)>;

struct Outcome {
  int exit_code = 0;
  int signal = 0;             // that ended the child; 0 if it ended by itself
  std::string start_failure;  // why there was no child; empty if there was one
  std::string out;
  std::string err;
};

struct Step {
  std::string name;
  double done = 0.0;  // NaN if it is not known
  std::chrono::steady_clock::time_point begin{};
};

class Child {
 public:
  // Starts the work. Interrupts from the keyboard do not reach the child. It ends when this process
  // ends. Throws std::string if no process can be made.
  explicit Child(const Work& work);
  // Ends the child if it still runs.
  ~Child();
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  // Readable when the child has reported something, or has ended.
  int fd() const { return fd_; }
  // Takes what the child has reported. Returns false when it has ended.
  bool take_reports();
  // Ends the child at once.
  void end();
  // Waits for the end of the child.
  Outcome outcome();

  const Step& step() const { return step_; }

 private:
  void take(char kind, std::string text);

  pid_t pid_ = -1;
  int fd_ = -1;
  std::string unread_;  // an incomplete report
  Step step_;
  Outcome outcome_;
};

}  // namespace Cli

#endif  // KELPBOX_CLI_CHILD_H_
