// Folders of results as the command reads them to make a page: every refusal names a file, and a
// page holds its data as JSON that cannot end its script element.
//
// Sections: summary.json, then "%% <name>" with another file of the folder.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "fuzz/property.h"
#include "fuzz/sections.h"
#include "outputs/cannot_read.h"
#include "outputs/page_json.h"
#include "outputs/page_shell.h"
#include "support/temp_dir.h"

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

const Testing::TempDir& folder() {
  static const Testing::TempDir made;
  return made;
}

void write_files(const std::vector<Fuzz::Section>& sections) {
  constexpr const char* known[] = {"job.toml",    "log.txt",     "drive_1.csv",
                                   "drive_2.csv", "point_1.csv", "point_2.csv",
                                   "drive.nc",    "points.nc",   "field.nc"};
  for (const char* name : known) fs::remove(folder().file(name));
  folder().write("summary.json", sections[0].text);
  for (std::size_t i = 1; i < sections.size(); ++i) {
    if (std::find(std::begin(known), std::end(known), sections[i].name) == std::end(known))
      continue;
    folder().write(sections[i].name, sections[i].text);
  }
}

void check_page(const Outputs::PageText& page) {
  const Json data = Json::parse(page.json);
  Fuzz::require(data.at("summary").at("title") == page.title, "a page has the title of its run");
  const std::string json = Outputs::json_for_html(page.json);
  Fuzz::require(json.find('<') == std::string::npos, "no text of a page ends its script element");
  Fuzz::require(Json::parse(json) == data, "a page holds the data of its run");
  const std::string html = Outputs::filled_shell(page.title, page.json);
  Fuzz::require(html.find(json) != std::string::npos, "the data stands in the page");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Fuzz::Quiet quiet;
  const std::string input(reinterpret_cast<const char*>(data), size);
  write_files(Fuzz::sections(input));
  try {
    check_page(Outputs::page_json({folder().path(), "x.out"}, nullptr));
  } catch (const Outputs::CannotRead& refused) {
    Fuzz::require(refused.message.starts_with("x.out/"), "a refusal names the file");
  }
  return 0;
}
