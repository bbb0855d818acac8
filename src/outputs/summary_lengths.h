// Whether the rates of a summary agree with its numbers of samples.
#ifndef KELPBOX_OUTPUTS_SUMMARY_LENGTHS_H_
#define KELPBOX_OUTPUTS_SUMMARY_LENGTHS_H_

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace Outputs {

// "drive.samples is not drive.rate times run.repeat", or empty. For a summary of the right form.
std::string fault_of_lengths(const nlohmann::ordered_json& summary);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_SUMMARY_LENGTHS_H_
