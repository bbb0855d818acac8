// The order in which waves and probes are sorted.
#ifndef KELPBOX_ANALYSIS_TOTAL_ORDER_H_
#define KELPBOX_ANALYSIS_TOTAL_ORDER_H_

#include <compare>

namespace Analysis {

// Less than, extended to NaN, so that sorting numbers that include NaN is defined.
struct TotalOrder {
  bool operator()(double a, double b) const { return std::is_lt(std::strong_order(a, b)); }
};

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_TOTAL_ORDER_H_
