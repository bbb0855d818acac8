#include "outputs/page_json.h"

#include <nlohmann/json.hpp>

#include "outputs/page_texts.h"

namespace Outputs {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t longest_log = 100'000;

}  // namespace

PageText page_json(const PageSource& source, const Progress& progress) {
  const Step step(progress, "report.html");
  Json page;
  page["schema"] = 1;
  const Json summary = read_summary(source);
  page["summary"] = summary;
  page["job"] = read_text(source, "job.toml");
  page["log"] = without_middle(read_text(source, "log.txt"), longest_log);
  page["drive"] = Json::array();
  page["points"] = Json::array();
  step.done(1, 1);
  return {summary["title"].get<std::string>(),
          page.dump(-1, ' ', false, Json::error_handler_t::replace)};
}

}  // namespace Outputs
