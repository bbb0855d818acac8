#include "base/constants.h"

#include <cmath>

namespace Base {

const double Pi = 4.0 * std::atan2(1.0, 1.0);
const double TwoPi = 8.0 * std::atan2(1.0, 1.0);

}  // namespace Base
