// Sequences of calls of the class KelpboxNativeLibraryJNI, as a host makes them: in any order, with
// any numbers and texts, on objects that are alive.
#include "fuzz/native/calls.h"

namespace Fuzz {

const std::vector<Row>& rows() {
  static const std::vector<Row> table = [] {
    std::vector<Row> all;
    add_vector_calls(all);
    add_param_calls(all);
    add_record_calls(all);
    add_experiment_calls(all);
    add_analysis_calls(all);
    return all;
  }();
  return table;
}

}  // namespace Fuzz
