// Tables of a job that is still a tree, to be changed.
#ifndef KELPBOX_JOBS_JOB_TABLES_H_
#define KELPBOX_JOBS_JOB_TABLES_H_

#include <string>
#include <vector>

#include "jobs/value.h"

namespace Jobs {

// The member of a table, or null.
Value* find_in(Value& table, const std::string& key);

// The tables of an array of tables, or the only one that is written as a plain table.
std::vector<Value*> tables_of(Value& parent, const std::string& key);

// What their `name` says; empty for those without one.
std::vector<std::string> names_of(const std::vector<Value*>& tables);

// The first one with that name, or null.
Value* with_name(const std::vector<Value*>& tables, const std::string& name);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_JOB_TABLES_H_
