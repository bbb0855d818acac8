// What `kelpbox site` shows, for a tank whose values differ from each other.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <set>
#include <string>

#include "cli/commands.h"
#include "support/temp_dir.h"
#include "text_console.h"

namespace {

using Json = nlohmann::json;

class ShowSite : public testing::Test, public Testing::TextConsole {
 protected:
  // Shows a copy of an example with one part replaced.
  void show(const std::string& example, const std::string& part, const std::string& other) {
    const Testing::TempDir folder;
    const std::filesystem::path examples = TEST_ROOT "/../examples";
    std::filesystem::copy(examples / "common", folder.file("common"));
    std::ifstream file(examples / example);
    std::string text(std::istreambuf_iterator<char>(file), {});
    ASSERT_NE(text.find(part), std::string::npos);
    text.replace(text.find(part), part.size(), other);
    ASSERT_EQ(Cli::site({folder.write("x.site", text), {}}, console), 0) << err();
  }
};

std::set<std::string> keys_of(const Json& json) {
  std::set<std::string> keys;
  for (const auto& [key, value] : json.items()) keys.insert(key);
  return keys;
}

TEST_F(ShowSite, ATankCanBeginInFrontOfThePaddles) {
  show("flume.site", "x = 0;\n            offset", "x = -2;\n            offset");
  EXPECT_NE(out().find("tank       x = -2 to 25 m, y = 0 to 0.8 m; a flume"), std::string::npos)
      << out();
}

TEST_F(ShowSite, JsonHasTheEndsOfTheTank) {
  console.json = true;
  show("flume.site", "x = 0;\n            offset", "x = -2;\n            offset");
  const Json site = Json::parse(out());
  EXPECT_EQ(site["x"], Json({{"units", "m"}, {"minimum", -2.0}, {"maximum", 25.0}}));
  EXPECT_EQ(site["profile"]["x"].front(), -2.0);
}

// docs/command.md
TEST_F(ShowSite, JsonHasTheKeysThatThePageLists) {
  console.json = true;
  show("flume.site", "value = 1.0;", "value = 1.1;");
  const Json site = Json::parse(out());
  EXPECT_EQ(keys_of(site),
            (std::set<std::string>{"site", "tank", "config", "identity", "x", "y", "walls",
                                   "depth_at_paddles", "profile", "no_wave", "frequency", "angle",
                                   "base_rate", "gravity", "tunables", "banks"}));
  EXPECT_EQ(keys_of(site["profile"]), (std::set<std::string>{"units", "x", "depth"}));
  EXPECT_EQ(site["no_wave"], Json());
  const Json gain{{"value", 1.1}, {"units", ""}, {"minimum", 0.75}, {"maximum", 1.25}};
  const Json correction{{"value", 0.0}, {"units", "mm"}, {"minimum", -20.0}, {"maximum", 20.0}};
  EXPECT_EQ(site["tunables"], Json({{"drive_gain", gain}, {"still_water_correction", correction}}));
}

}  // namespace
