#include "outputs/write_run.h"

#include "outputs/drive_csv.h"
#include "outputs/drive_netcdf.h"
#include "outputs/field_netcdf.h"
#include "outputs/fronts_csv.h"
#include "outputs/job_copy.h"
#include "outputs/point_outputs.h"
#include "outputs/summary.h"
#include "outputs/write_page.h"

namespace Outputs {
namespace {

void write_inputs(const Jobs::Run& run, OutputFolder& folder) {
  folder.write("job.toml", job_copy(run));
  for (const Jobs::InputFile& input : run.inputs) {
    folder.write("inputs/" + input.name, input.text);
  }
}

void write_drive(Jobs::Run& run, const Jobs::DriveSignals& drive, OutputFolder& folder,
                 const Progress& progress) {
  if (run.job.csv) {
    for (std::uint32_t bank = 0; bank < drive.banks().size(); ++bank) {
      write_drive_csv(run, drive, bank, folder, progress);
    }
  }
  if (run.job.netcdf) write_drive_netcdf(run, drive, folder, progress);
}

}  // namespace

std::string write_run(Jobs::Run& run, const Jobs::DriveSignals& drive,
                      const Jobs::Judgement& judgement, OutputFolder& folder,
                      const Progress& progress) {
  write_inputs(run, folder);
  if (run.job.csv) write_fronts_csv(run, folder);
  write_drive(run, drive, folder, progress);
  Reports reports;
  reports.points = write_points(run, folder, progress);
  if (run.field && run.job.netcdf) reports.field = write_field(run, folder, progress);
  folder.write("log.txt", run.log);
  std::string summary = summary_text(run, &drive, judgement, reports, &folder);
  folder.write("summary.json", summary);
  if (run.job.report) write_page(folder, progress);
  folder.require_files();
  return summary;
}

std::string summary_json(Jobs::Run& run, const Jobs::DriveSignals* drive,
                         const Jobs::Judgement& judgement) {
  Reports reports;
  for (std::size_t point = 0; point < run.points.size(); ++point) {
    reports.points.push_back(build_point(run, point));
  }
  return summary_text(run, drive, judgement, reports, nullptr);
}

}  // namespace Outputs
