// The rows of the class KelpboxNativeLibraryJNI.
#ifndef KELPBOX_FUZZ_NATIVE_CALLS_H_
#define KELPBOX_FUZZ_NATIVE_CALLS_H_

#include <vector>

#include "exported/native.h"
#include "fuzz/native/rows.h"

// A row of the table `rows`: the name as it is exported, what the function gives, and what its
// numbers of 64 bits are.
#define CALL(name, ...) rows.push_back(::Fuzz::make_row(#name, NATIVE(name), __VA_ARGS__))

namespace Fuzz {

void add_vector_calls(std::vector<Row>& rows);
void add_param_calls(std::vector<Row>& rows);
void add_record_calls(std::vector<Row>& rows);
void add_experiment_calls(std::vector<Row>& rows);
void add_analysis_calls(std::vector<Row>& rows);

}  // namespace Fuzz

#endif  // KELPBOX_FUZZ_NATIVE_CALLS_H_
