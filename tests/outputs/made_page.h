// Folders of results that tests make pages from.
#ifndef KELPBOX_TESTS_OUTPUTS_MADE_PAGE_H_
#define KELPBOX_TESTS_OUTPUTS_MADE_PAGE_H_

#include <string>

#include "outputs/cannot_read.h"
#include "outputs/page_data.h"
#include "outputs/write_page.h"
#include "support/temp_dir.h"

namespace Testing {

// A summary that was written by hand, without signals, points and field.
inline Json bare_summary() {
  return {{"kelpbox", "1.2.3"},
          {"compiler", "none"},
          {"title", "By hand"},
          {"site", {{"name", "lab"}, {"tank", "flume"}, {"identity", "flume 1234"}}},
          {"run",
           {{"repeat", 10.0},
            {"lowest_harmonic", 5},
            {"highest_harmonic", 20},
            {"side_walls", false},
            {"fronts", 1}}},
          {"seas", Json::array()},
          {"points", Json::array()},
          {"judged", 0},
          {"looks", 0},
          {"findings", Json::array()},
          {"remarks", Json::array()},
          {"inputs", Json::array()}};
}

inline Json drive_of(std::size_t paddles, std::size_t samples, double rate) {
  return {{"rate", rate},
          {"samples", samples},
          {"ramp", 0.0},
          {"stop_at_limit", false},
          {"banks", {{{"name", "main"}, {"units", "m"}, {"paddles", paddles}}}}};
}

// The data of the page of a folder.
inline Json made_page(const std::string& folder) {
  Outputs::write_page({folder, "x.out"}, nullptr);
  std::ifstream in(folder + "/report.html", std::ios::binary);
  std::ostringstream page;
  page << in.rdbuf();
  return data_of(page.str());
}

// Why there is no page.
inline std::string no_page(const std::string& folder) {
  try {
    Outputs::write_page({folder, "x.out"}, nullptr);
  } catch (const Outputs::CannotRead& failure) {
    return failure.message;
  }
  return "(written)";
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_OUTPUTS_MADE_PAGE_H_
