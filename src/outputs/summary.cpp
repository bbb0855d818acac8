#include "outputs/summary.h"

#include <nlohmann/json.hpp>

#include "jobs/sea_sentence.h"
#include "outputs/checksum.h"
#include "outputs/json_text.h"
#include "outputs/plain_text.h"
#include "outputs/summary_parts.h"
#include "outputs/version.h"

namespace Outputs {
namespace {

// Keeps the order of the keys.
using Json = nlohmann::ordered_json;

Json texts(const std::vector<std::string>& lines) {
  Json list = Json::array();
  for (const std::string& line : lines) list.push_back(plain_text(line));
  return list;
}

Json site_of(Jobs::Run& run) {
  Json site;
  site["name"] = plain_text(run.experiment.context().site_name);
  site["tank"] = plain_text(run.experiment.context_name());
  site["identity"] = plain_text(run.experiment.context_string());
  if (!run.inputs.empty()) site["file"] = "inputs/" + plain_text(run.inputs.front().name);
  return site;
}

Json run_of(Jobs::Run& run) {
  const Maths::RunData& grid = run.experiment.repeat(run.definition);
  Json object;
  object["repeat"] = grid.value();
  object["lowest_harmonic"] = grid.min_harmonic();
  object["highest_harmonic"] = grid.max_harmonic();
  object["side_walls"] = grid.dalrymple();
  object["fronts"] = run.experiment.fronts(run.definition, true).size();
  return object;
}

Json seas_of(Jobs::Run& run) {
  Json list = Json::array();
  for (std::uint32_t i = 0; i < run.seas.size(); ++i) {
    const Jobs::BuiltSea& sea = run.seas[i];
    Json object;
    object["name"] = plain_text(sea.name);
    object["sentence"] = plain_text(Jobs::sea_sentence(run, run.job.seas[i]));
    object["holds"] = {{"x", sea.position.x}, {"y", sea.position.y}, {"t", sea.position.t}};
    object["waves"] = Json::array();
    for (const Jobs::AskedWave& wave : sea.asked) object["waves"].push_back(plain_text(wave.kind));
    object["fronts"] = run.experiment.fronts(run.definition, i).size();
    list.push_back(std::move(object));
  }
  return list;
}

Json bank_of(const Jobs::DriveBank& bank) {
  Json object;
  object["name"] = plain_text(bank.name);
  object["units"] = bank.units;
  object["paddles"] = bank.paddles;
  object["maximum"] = bank.limits.maximum;
  object["minimum"] = bank.limits.minimum;
  object["clip_limit"] = bank.limits.clip;
  return object;
}

Json drive_of(const Jobs::Run& run, const Jobs::DriveSignals& drive) {
  Json object;
  object["rate"] = drive.rate();
  object["samples"] = drive.samples();
  object["ramp"] = run.drive.ramp;
  object["stop_at_limit"] = run.drive.stop_at_limit;
  object["banks"] = Json::array();
  for (const Jobs::DriveBank& bank : drive.banks()) object["banks"].push_back(bank_of(bank));
  return object;
}

Json point_of(const PointReport& report) {
  Json object;
  object["name"] = plain_text(report.name);
  object["x"] = report.x;
  object["y"] = report.y;
  object["rate"] = report.rate;
  object["samples"] = report.samples;
  object["delta_angle"] = report.delta_angle;
  object["statistics"] = Json::object();
  for (const Statistic& statistic : report.statistics) {
    object["statistics"][statistic.name] = {{"value", statistic.value}, {"units", statistic.units}};
  }
  object["remarks"] = texts(report.remarks);
  return object;
}

Json axis_of(const FieldAxis& axis) {
  return {{"from", axis.from}, {"step", axis.step}, {"count", axis.count}};
}

Json field_of(const FieldReport& report) {
  Json object;
  object["rate"] = report.rate;
  object["frames"] = report.frames;
  object["x"] = axis_of(report.x);
  object["y"] = axis_of(report.y);
  object["lowest"] = report.lowest;
  object["highest"] = report.highest;
  object["remarks"] = texts(report.remarks);
  return object;
}

Json number_or_null(const std::optional<double>& number) {
  return number ? Json(*number) : Json(nullptr);
}

Json finding_of(const Jobs::Finding& finding) {
  Json object;
  object["group"] = finding.group;
  object["key"] = plain_text(finding.key);
  object["quantity"] = plain_text(finding.quantity);
  object["units"] = finding.units;
  object["asked"] = number_or_null(finding.asked);
  object["made"] = number_or_null(finding.made);
  object["asked_text"] = plain_text(finding.asked_text);
  object["made_text"] = plain_text(finding.made_text);
  object["criterion"] = plain_text(finding.criterion);
  object["verdict"] = nullptr;
  if (finding.verdict == Jobs::Verdict::good) object["verdict"] = "good";
  if (finding.verdict == Jobs::Verdict::look) object["verdict"] = "look";
  object["remark"] = plain_text(finding.remark);
  object["minor"] = finding.minor;
  return object;
}

Json inputs_of(const Jobs::Run& run) {
  Json list = Json::array();
  for (const Jobs::InputFile& input : run.inputs) {
    list.push_back({{"name", "inputs/" + plain_text(input.name)},
                    {"bytes", input.text.size()},
                    {"sha256", sha256(input.text)}});
  }
  return list;
}

Json files_of(OutputFolder& folder) {
  Json list = Json::array();
  for (const std::string& name : folder.names()) {
    if (name == "summary.json") continue;
    const FileRecord& record = folder.record(name);
    list.push_back({{"name", name}, {"bytes", record.bytes}, {"sha256", record.sha256}});
  }
  return list;
}

}  // namespace

std::string summary_text(Jobs::Run& run, const Jobs::DriveSignals* drive,
                         const Jobs::Judgement& judgement, const Reports& reports,
                         OutputFolder* folder) {
  Json summary;
  summary["kelpbox"] = version();
  summary["compiler"] = compiler();
  summary["title"] = plain_text(run.job.title);
  summary["site"] = site_of(run);
  summary["plan"] = plan_json(tank_plan(run));
  summary["run"] = run_of(run);
  summary["seas"] = seas_of(run);
  if (judgement.spectrum) summary["spectrum"] = spectrum_json(*judgement.spectrum);
  if (judgement.directions) summary["directions"] = directions_json(*judgement.directions);
  if (drive) summary["drive"] = drive_of(run, *drive);
  summary["points"] = Json::array();
  for (const PointReport& report : reports.points) summary["points"].push_back(point_of(report));
  if (reports.field) summary["field"] = field_of(*reports.field);
  summary["judged"] = judgement.judged;
  summary["looks"] = judgement.looks;
  summary["findings"] = Json::array();
  for (const Jobs::Finding& finding : judgement.findings) {
    summary["findings"].push_back(finding_of(finding));
  }
  summary["remarks"] = texts(run.remarks);
  summary["inputs"] = inputs_of(run);
  if (folder) summary["files"] = files_of(*folder);
  return json_text(summary) + "\n";
}

}  // namespace Outputs
