// One reading of a script by a fuzz target, and what must hold for each tree of declared classes.
//
// The input is the main script. A line "--- file NAME" begins another file, which the script can
// include.
#ifndef KELPBOX_FUZZ_SCRIPT_READING_H_
#define KELPBOX_FUZZ_SCRIPT_READING_H_

#include <cstdint>
#include <optional>
#include <sstream>
#include <string>

#include "fuzz/property.h"
#include "script/list.h"
#include "script/log.h"
#include "script/print.h"
#include "script/serialise.h"
#include "script/wrap.h"
#include "support/temp_dir.h"

namespace Fuzz {

// Whether the input is left out: it takes seconds, or strings are written only in part.
bool unsuitable_script(const std::string& input);

// Replaces the contents of the directory by the files of the input. Returns the main one's path.
std::string write_files(const std::string& input, const Testing::TempDir& dir);

// Whether all reals below the list are numbers far from overflow in any units.
bool has_moderate_reals(const Script::List& list);

// Reads files into a tree with a root of class Root, whether or not that succeeds.
template <typename Root>
class Reading {
 public:
  explicit Reading(const char* key, const std::string& main_path,
                   const std::string& second_path = "")
      : key_(key), reader_(key, wrapper_) {
    list_.object(key, wrapper_);
    reader_.attach_log(log_);
    refused = refusal([&] { reader_.read(report_, main_path, second_path); });
  }

  const char* key() const { return key_; }
  std::string report() const { return report_.str(); }
  std::string log() const { return log_text_.str(); }
  const Script::List& list() const { return list_; }
  Root& root() const { return wrapper_.built(); }
  std::uint32_t checksum() const { return reader_.checksum(false); }
  std::string written(bool adjustable_only) const {
    std::ostringstream out;
    print(list_, out, adjustable_only, 0);
    return out.str();
  }

  // The message if the script is refused.
  std::optional<std::string> refused;

 private:
  const char* key_;
  std::ostringstream report_;
  std::ostringstream log_text_;
  Script::SimpleLog log_{log_text_};
  Script::WrapObj<Root> wrapper_;
  Script::List list_;
  Script::SubSerial reader_;
};

bool ends(const std::string& text, const std::string& end);

// A refusal says what is wrong.
template <typename Root>
void check_refusal(const Reading<Root>& reading) {
  require(!ends(*reading.refused, "::Failed to verify") || !reading.report().empty(),
          "missing keys are reported");
  require(*reading.refused != "Caught log exception" || !reading.log().empty(),
          "the log says why a script is refused");
}

// What has been read is written as a script that reads back the same, and its settings file keeps
// the adjustable fields.
template <typename Root>
void check_written(const Reading<Root>& reading, const std::string& main_path,
                   const Testing::TempDir& dir) {
  const std::string text = reading.written(false);
  // A minus zero is read as the integer 0.
  if (text.find("= -0;") != std::string::npos) return;
  const Reading<Root> again(reading.key(), dir.write("written", text));
  require(!again.refused, "a written script is accepted");
  require(again.written(false) == text, "a written script reads back the same");
  require(again.checksum() == reading.checksum(), "a written script has the same checksum");

  const std::string settings = reading.written(true);
  const Reading<Root> set(reading.key(), main_path, dir.write("settings", settings));
  require(!set.refused, "the settings file is accepted");
  require(set.written(true) == settings, "the settings file keeps the adjustable fields");
}

}  // namespace Fuzz

#endif  // KELPBOX_FUZZ_SCRIPT_READING_H_
