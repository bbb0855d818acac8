// The wave at a point as text.
#ifndef KELPBOX_OUTPUTS_POINT_CSV_H_
#define KELPBOX_OUTPUTS_POINT_CSV_H_

#include <string>

#include "outputs/output_folder.h"
#include "outputs/point_wave.h"

namespace Outputs {

// Writes point_<number>.csv, spectrum_<number>.csv and directions_<number>.csv. Throws CannotWrite.
void write_point_csv(const PointReport& report, const PointWave& wave, const std::string& number,
                     OutputFolder& folder);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_POINT_CSV_H_
