// The types and ranges of the values in summary.json.
#ifndef KELPBOX_OUTPUTS_SUMMARY_FORM_H_
#define KELPBOX_OUTPUTS_SUMMARY_FORM_H_

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace Outputs {

// What is wrong with a value that the page shows: "drive.banks[0].name is not a text",
// "drive.samples is not a whole number". Empty if nothing is. Keys may be missing, as in the
// summaries of older versions.
std::string fault_of_form(const nlohmann::ordered_json& summary);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_SUMMARY_FORM_H_
