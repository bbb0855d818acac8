// JSON as Kelpbox writes it into files.
#ifndef KELPBOX_OUTPUTS_JSON_TEXT_H_
#define KELPBOX_OUTPUTS_JSON_TEXT_H_

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace Outputs {

// Indented by two blanks, with a line for each member and element. Arrays of numbers take one line,
// so that long ones leave the rest readable. A number that is NaN or infinite becomes null.
std::string json_text(const nlohmann::ordered_json& json);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_JSON_TEXT_H_
