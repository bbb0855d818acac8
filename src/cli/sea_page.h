// What `kelpbox seas` knows about each kind of wave and of change.
#ifndef KELPBOX_CLI_SEA_PAGE_H_
#define KELPBOX_CLI_SEA_PAGE_H_

#include <string>
#include <utility>
#include <vector>

namespace Cli {

struct PageParameter {
  std::string name;
  std::string units;  // empty for a plain number and for what is not a number
  std::string meaning;
  bool required = true;
  std::string fallback;  // as in a job, or in words; empty if it is required
  std::string range;     // "above 0"; empty for any
};

struct SeaPage {
  std::string name;
  std::string title;
  std::string source;                     // the literature; empty for the library's own kinds
  bool is_change = false;                 // for [[sea.change]] instead of [[sea.wave]]
  bool is_own = false;                    // a component or modifier under the library's name
  std::string stands_for;                 // the library's own kind that a ready one becomes
  std::string formula;                    // empty without one
  std::vector<PageParameter> parameters;  // that a job can give
  std::vector<PageParameter> computed;    // that are added to them
  std::vector<std::pair<std::string, std::string>> fixed;  // parameters with a set value
  std::string example;                                     // a block of a job
};

// Ready seas, the library's waves, ready changes, the library's changes.
const std::vector<SeaPage>& sea_pages();

// The pages as people read them and as JSON documents.
std::string seas_text(const std::vector<SeaPage>& pages);
std::string seas_json(const std::vector<SeaPage>& pages);
std::string sea_text(const SeaPage& page);
std::string sea_json(const SeaPage& page);

}  // namespace Cli

#endif  // KELPBOX_CLI_SEA_PAGE_H_
