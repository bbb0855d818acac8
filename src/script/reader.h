// Reads script files, with the files they include, into one parser.
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

  // Returns false when the parser failed. Throws as SubSerial::read does.
  bool read(const boost::filesystem::path& file) { return read(file, 0); }

  void report(const std::string& text) override;

 private:
  struct Open {
    boost::filesystem::path file;
    boost::filesystem::path canonical;
    const ScriptScan* scan;
  };

  bool read(const boost::filesystem::path& file, unsigned depth);
  int next(ScriptScan& scan, const boost::filesystem::path& file) const;
  bool take(ScriptScan& scan, int token);
  bool include(ScriptScan& scan, const boost::filesystem::path& file, unsigned depth);
  void refuse_loop(const boost::filesystem::path& file,
                   const boost::filesystem::path& canonical) const;

  // The file being read is the last, behind those that include it.
  std::vector<Open> open_;
  unsigned opened_ = 0;  // in all
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_READER_H_
