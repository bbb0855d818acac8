// The field that a job asks for, judged before it is computed.
#ifndef KELPBOX_JOBS_FIELD_REQUEST_H_
#define KELPBOX_JOBS_FIELD_REQUEST_H_

#include <cstdint>

#include "jobs/preparation.h"

namespace Jobs {

void read_field(Preparation& p);

// The bytes that the frames of one repeat time in s take.
double field_bytes(const FieldRequest& field, double repeat);

// "the field needs 41 GB, which this machine does not have".
Diagnostic field_too_large(double bytes, const Span& place);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_FIELD_REQUEST_H_
