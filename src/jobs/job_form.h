// Faults in the form of a job: values of the wrong type, unknown keys.
#ifndef KELPBOX_JOBS_JOB_FORM_H_
#define KELPBOX_JOBS_JOB_FORM_H_

#include <string>
#include <vector>

#include "jobs/diagnostic.h"
#include "jobs/job.h"
#include "jobs/value.h"

namespace Jobs {

class JobForm {
 public:
  explicit JobForm(Diagnostics& faults) : faults_(faults) {}

  void fault(const std::string& fault, const Span& span, const std::string& label = "");

  // The text of a member, without blanks at its ends. Empty, with a fault, for anything else and
  // for an empty text.
  std::string text(const Member& member);
  // `otherwise`, with a fault, for anything but a boolean and the texts "True" and "False".
  bool boolean(const Member& member, bool otherwise);
  // Of `what`, "[run]". Null, with a fault, for anything else.
  const Value* table(const Member& member, const std::string& what);
  // The tables of `what`, "[[sea]]". Faults for everything else that is there.
  std::vector<const Value*> tables(const Member& member, const std::string& what);
  // `where` is "in a [[sea]]". The label has the table that the key belongs in, or the nearest
  // known key, or the list of the known ones.
  void unknown(const Member& member, const std::string& where,
               const std::vector<std::string>& known);

 private:
  Diagnostics& faults_;
};

// "a number": the type of a value, for messages.
std::string type_of(const Value& value);

// Whether it is an array without elements, which is as good as nothing.
bool is_empty_list(const Value& value);

// Whether it is a TOML string that goes on after its first line. The copy of a job has other paths,
// which are written where the old ones are.
bool is_several_lines(const Value& value);

// A part with all members of the table but `kind` and `name`.
Part part_of(const Value& table, const std::string& title);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_JOB_FORM_H_
