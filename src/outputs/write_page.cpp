#include "outputs/write_page.h"

#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <utility>

#include "outputs/cannot_write.h"
#include "outputs/output_file.h"
#include "outputs/page_json.h"
#include "outputs/page_shell.h"
#include "outputs/unfinished_page.h"

namespace Outputs {
namespace {

// Holds back Ctrl-C for the moment in which it would leave an unfinished file behind.
class HeldSignals {
 public:
  HeldSignals() {
    sigset_t held;
    sigemptyset(&held);
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&held, number);
    pthread_sigmask(SIG_BLOCK, &held, &before_);
  }
  ~HeldSignals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  HeldSignals(const HeldSignals&) = delete;
  HeldSignals& operator=(const HeldSignals&) = delete;

 private:
  sigset_t before_ = {};
};

// A file that is removed unless it is moved to its place.
class Unfinished {
 public:
  Unfinished(std::string path, std::string shown)
      : path_(std::move(path)), shown_(std::move(shown)) {}
  ~Unfinished() {
    if (!path_.empty()) unlink(path_.c_str());
  }
  Unfinished(const Unfinished&) = delete;
  Unfinished& operator=(const Unfinished&) = delete;

  void write(const std::string& text) const {
    OutputFile file(path_, shown_);
    file.write(text);
    file.close();
    // Its name must not lead to an empty file after a power failure.
    flush_to_disk(path_, shown_);
  }

  void move_to(const std::string& place) {
    if (std::rename(path_.c_str(), place.c_str()) != 0) cannot_write(shown_, errno);
    path_.clear();
  }

 private:
  std::string path_;
  std::string shown_;
};

}  // namespace

void write_page(const PageSource& source, const Progress& progress) {
  const PageText data = page_json(source, progress);
  const std::string text = filled_shell(data.title, data.json);
  const HeldSignals held;
  Unfinished file(source.path(unfinished_page()), source.shown("report.html"));
  file.write(text);
  file.move_to(source.path("report.html"));
}

void write_page(OutputFolder& folder, const Progress& progress) {
  const std::string page = folder.path_of("report.html");
  const std::string shown = folder.shown("report.html");
  const std::string name = "/report.html";
  write_page(PageSource{page.substr(0, page.size() - name.size()),
                        shown.substr(0, shown.size() - name.size())},
             progress);
}

}  // namespace Outputs
