// Reads script files, and the files that they include, into one parser.
#ifndef KELPBOX_SCRIPT_READER_H_
#define KELPBOX_SCRIPT_READER_H_

#include <boost/filesystem/path.hpp>
#include <string>
#include <vector>

#include "script/parse.h"
#include "script/scan.h"
#include "script/serialise.h"

namespace Script {

class SubSerial::Parser : public ScriptParse {
 public:
  using ScriptParse::ScriptParse;

  // Returns false when the parser's stack is exhausted. Throws as SubSerial::read does.
  bool read(const boost::filesystem::path& file);

  // Writes the error and the place of the last token to the stream for script faults.
  void report(const std::string& error) override;

 private:
  struct Open {
    boost::filesystem::path file;
    std::string canonical;  // the path without links
    const ScriptScan* scan;
  };

  // The next token. Throws std::string if it is too long (docs/limits.md).
  int next_token(ScriptScan& scan, const boost::filesystem::path& file) const;
  // Gives the token to the parser. A name is looked up first. Throws std::string for a division of
  // an integer by zero in a DivisionScope.
  bool push_token(ScriptScan& scan, int token);
  // Reads the file that the token after `include` names.
  bool include(ScriptScan& scan, const boost::filesystem::path& file);
  // Throw std::string.
  void require_regular(const boost::filesystem::path& file) const;
  void require_no_loop(const boost::filesystem::path& file, const std::string& canonical) const;
  void require_few_files(const boost::filesystem::path& file) const;

  // The file being read is the last, after those that include it.
  std::vector<Open> open_;
  unsigned opened_ = 0;  // files opened so far, left ones included
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_READER_H_
