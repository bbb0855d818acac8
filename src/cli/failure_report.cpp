#include "cli/failure_report.h"

#include <algorithm>

#include "cli/options.h"
#include "jobs/failure.h"
#include "outputs/cannot_read.h"
#include "outputs/cannot_write.h"

namespace Cli {

namespace {

// Nobody reads more, and each needs a search for its line.
constexpr std::size_t most_shown = 100;

std::string count_of(const Jobs::Diagnostics& faults) {
  return faults.size() == 1 ? "1 error" : std::to_string(faults.size()) + " errors";
}

std::string help_of(const CommandText* command) {
  return command ? "kelpbox help " + std::string(command->name) : "kelpbox help";
}

}  // namespace

Failure failure_of_current(const std::string& subject, const std::string& consequence) {
  const std::string before = subject.empty() ? "" : subject + ": ";
  try {
    throw;
  } catch (const BadUsage& usage) {
    return {Exit::bad_input, usage.message + " (" + help_of(usage.command) + ")", {}};
  } catch (const Jobs::BadJob& job) {
    return {Exit::bad_input, before + count_of(job.faults) + consequence, job.faults};
  } catch (const Outputs::CannotWrite& failure) {
    return {Exit::cannot_write, "cannot write " + failure.message, {}};
  } catch (const Outputs::CannotRead& failure) {
    return {Exit::bad_input, failure.message, {}};
  } catch (...) {
    return {Exit::bad_input, before + Jobs::message_of_current(), {}};
  }
}

std::string shown(const Failure& failure, bool colour) {
  const auto how = colour ? Jobs::Colour::on : Jobs::Colour::off;
  if (failure.faults.empty()) return show({failure.message, {}, ""}, how);
  std::string text;
  const std::size_t faults = std::min(failure.faults.size(), most_shown);
  for (std::size_t i = 0; i < faults; ++i) text += show(failure.faults[i], how);
  if (faults < failure.faults.size()) {
    const std::size_t rest = failure.faults.size() - faults;
    text += "and " + std::to_string(rest) + (rest == 1 ? " more error\n" : " more errors\n");
  }
  return text + failure.message + "\n";
}

int report(const Failure& failure, Console& console) {
  if (console.json) {
    console.out << "{\"error\": " << failure_json(failure) << "}\n";
  } else {
    console.err << shown(failure, console.err_colour);
  }
  return failure.exit_code;
}

int report_current(const std::string& subject, Console& console) {
  return report(failure_of_current(subject), console);
}

}  // namespace Cli
