// Sites with a given bottom, and their depth profiles.
#ifndef KELPBOX_TESTS_SITE_BOTTOM_H_
#define KELPBOX_TESTS_SITE_BOTTOM_H_

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "site_script.h"

struct Reach {
  std::string x;
  std::string offset;
  std::string depth;
};

// The full script with these sections, a last one at `end`, and `steps` for the keys of the walk.
inline std::string sections(const std::vector<Reach>& rows, const std::string& end,
                            const std::string& steps = "") {
  std::string script = "section[" + std::to_string(rows.size() + 1) + "..1];\n";
  int index = 0;
  for (const Reach& row : rows) {
    script += "section[" + std::to_string(++index) + "] { x = " + row.x +
              "; offset = " + row.offset + "; depth = \"" + row.depth + "\"; }\n";
  }
  script += "section[" + std::to_string(++index) + "] { x = " + end + "; offset = Relative; }\n";
  script = site_with_sections(script);
  script = changed(script, "reference_x = 1.0;", "reference_x = " + end + ";");
  script = changed(script, "delta_depth = 0.02;", "");
  return changed(script, "delta_x = 0.6;", steps);
}

inline Maths::TankConfig config_of(const std::string& script) {
  Load site(script);
  EXPECT_TRUE(site.ok()) << site.failure << site.log_text.str();
  site.context().make_ready();
  return site.context().tank_config();
}

// What make_ready throws for a script that can be read.
inline std::string refusal(const std::string& script) {
  Load site(script);
  EXPECT_TRUE(site.ok()) << site.failure << site.log_text.str();
  const std::string message = Testing::thrown([&] { site.context().make_ready(); });
  EXPECT_FALSE(site.context().ready());
  return message;
}

inline void expect_points(const Maths::TankConfig& config,
                          const std::vector<Maths::ProfilePoint>& points) {
  ASSERT_EQ(config.profile.size(), points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_DOUBLE_EQ(config.profile[i].depth, points[i].depth) << i;
    EXPECT_DOUBLE_EQ(config.profile[i].x, points[i].x) << i;
  }
}

#endif  // KELPBOX_TESTS_SITE_BOTTOM_H_
