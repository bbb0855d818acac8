#include "outputs/json_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>

namespace Outputs {
namespace {

using Json = nlohmann::ordered_json;

TEST(JsonText, GivesALineToEachMemberAndOneToAnArrayOfNumbers) {
  Json json;
  json["title"] = "a \"b\"\n<script>";
  json["empty"] = Json::array();
  json["none"] = Json::object();
  json["row"] = {1, 2.5, NAN, nullptr};
  json["rows"] = {{0.1, 2}, {3, 4}};
  json["texts"] = {"x", "y"};
  EXPECT_EQ(json_text(json),
            "{\n"
            "  \"title\": \"a \\\"b\\\"\\n<script>\",\n"
            "  \"empty\": [],\n"
            "  \"none\": {},\n"
            "  \"row\": [1, 2.5, null, null],\n"
            "  \"rows\": [\n"
            "    [0.1, 2],\n"
            "    [3, 4]\n"
            "  ],\n"
            "  \"texts\": [\n"
            "    \"x\",\n"
            "    \"y\"\n"
            "  ]\n"
            "}");
}

TEST(JsonText, ReplacesWhatIsNoUtf8) {
  Json json;
  json["a\xFC"] = "b\xFC";
  EXPECT_EQ(json_text(json), "{\n  \"a\xEF\xBF\xBD\": \"b\xEF\xBF\xBD\"\n}");
  EXPECT_EQ(json_text(Json("\xFC")), "\"\xEF\xBF\xBD\"");
}

}  // namespace
}  // namespace Outputs
