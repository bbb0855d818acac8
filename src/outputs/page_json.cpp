#include "outputs/page_json.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "outputs/cannot_read.h"
#include "outputs/page_drive.h"
#include "outputs/page_facts.h"
#include "outputs/page_field.h"
#include "outputs/page_points.h"
#include "outputs/page_texts.h"

namespace Outputs {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t largest_job = 64 << 20;
constexpr std::size_t largest_log = 256 << 20;
constexpr std::size_t longest_log = 100'000;  // on the page

}  // namespace

PageText page_json(const PageSource& source, const Progress& progress) {
  const Step step(progress, "report.html");
  const Json summary = read_summary(source);
  try {
    const PageFacts facts = page_facts(summary);
    Json page;
    page["schema"] = 1;
    page["summary"] = summary;
    page["job"] = read_text(source, "job.toml", largest_job);
    page["log"] = without_middle(read_text(source, "log.txt", largest_log), longest_log);
    page["drive"] = page_drive(source, summary, facts, step);
    page["points"] = page_points(source, summary, facts, step);
    Json field = page_field(source, summary, facts, step);
    if (!field.is_null()) page["field"] = std::move(field);
    step.done(1, 1);
    return {summary["title"].get<std::string>(),
            page.dump(-1, ' ', false, Json::error_handler_t::replace)};
  } catch (const Json::exception&) {
    throw CannotRead{source.shown("summary.json") + ": is not a summary of `kelpbox run`"};
  }
}

}  // namespace Outputs
