#include "outputs/field_extremes.h"

#include <algorithm>
#include <cmath>

#include "outputs/packed.h"

namespace Outputs {
namespace {

double per_step(const FieldAxis& axis, double scale) {
  return axis.count > 1 && axis.step > 0.0 ? scale / axis.step : 0.0;
}

}  // namespace

FieldExtremes::FieldExtremes(const FieldAxis& x, const FieldAxis& y, double scale)
    : columns_(x.count),
      rows_(y.count),
      per_x_(per_step(x, scale)),
      per_y_(per_step(y, scale)),
      squares_(x.count) {}

void FieldExtremes::add(std::size_t frame, const std::int16_t* counts) {
  add_heights(frame, counts);
  for (std::size_t row = 0; row < rows_; ++row) add_slopes(frame, row, counts);
}

void FieldExtremes::add_heights(std::size_t frame, const std::int16_t* counts) {
  const std::size_t points = columns_ * rows_;
  for (std::size_t i = 0; i < points; ++i) {
    if (counts[i] == nan_count) continue;
    if (!any_ || counts[i] < lowest_) lowest_ = counts[i];
    if (!any_ || counts[i] > highest_) {
      highest_ = counts[i];
      crest_ = {frame, i % columns_, i / columns_};
    }
    any_ = true;
  }
}

void FieldExtremes::add_slopes(std::size_t frame, std::size_t row, const std::int16_t* counts) {
  const std::int16_t* const here = counts + row * columns_;
  const std::int16_t* const beyond = row + 1 < rows_ ? here + columns_ : here;
  const auto rise = [](std::int16_t from, std::int16_t to) {
    return from == nan_count || to == nan_count ? 0.0 : static_cast<double>(int{to} - int{from});
  };
  double steepest = 0.0;
  for (std::size_t i = 0; i < columns_; ++i) {
    const double along_x = per_x_ * rise(here[i], here[i + 1 < columns_ ? i + 1 : i]);
    const double along_y = per_y_ * rise(here[i], beyond[i]);
    squares_[i] = along_x * along_x + along_y * along_y;
    steepest = std::max(steepest, squares_[i]);
  }
  if (!(std::sqrt(steepest) > slope_)) return;
  slope_ = std::sqrt(steepest);
  const auto place = std::find(squares_.begin(), squares_.end(), steepest) - squares_.begin();
  steepest_ = {frame, static_cast<std::size_t>(place), row};
}

}  // namespace Outputs
