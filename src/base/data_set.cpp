#include "base/data_set.h"

#include <algorithm>
#include <complex>
#include <utility>

namespace Base {
namespace {

Quantity rate_of(const Params& params) {
  return params.find_convertible("rate", Category::frequency)->second;
}

Quantity rate_of(const Quantity& rate) {
  if (rate.compatible(default_units(Category::time).row)) {
    return Quantity(1.0 / rate.get(Category::time), Category::frequency);
  }
  if (rate.compatible(default_units(Category::frequency).row)) {
    return rate;
  }
  throw std::string("rate value of wrong type");
}

}  // namespace

DataSet::DataSet(Cvector freq, const Params& params)
    : rate_(rate_of(params)), freq_(std::move(freq)), params_(params), freq_valid_(true) {}

DataSet::DataSet(Vector time, const Params& params)
    : rate_(rate_of(params)), time_(std::move(time)), params_(params), time_valid_(true) {}

DataSet::DataSet(Cvector freq, const Quantity& rate)
    : rate_(rate_of(rate)), freq_(std::move(freq)), freq_valid_(true) {}

DataSet::DataSet(Vector time, const Quantity& rate)
    : rate_(rate_of(rate)), time_(std::move(time)), time_valid_(true) {}

void DataSet::shape_time() {
  time_.label = freq_.label;
  time_.units = freq_.units;
  time_.length = freq_.length;
  time_.data.resize(time_.storage_size(time_.length));
}

const Vector& DataSet::time() {
  if (!time_valid_) {
    if (!freq_valid_) {
      throw std::string("Time data requested for empty data object");
    }
    shape_time();
    KLPFFT_freq_to_time(&freq_.data, &time_.data);
    time_valid_ = true;
  }
  return time_;
}

const Vector& DataSet::time(double& interval) {
  time();
  interval = 1.0 / rate_.get(Category::frequency);
  return time_;
}

const Vector& DataSet::time(FFT_Plan& plan) {
  if (!time_valid_) {
    shape_time();
    plan.execute(&freq_.data, &time_.data);
  }
  return time_;
}

Cvector& DataSet::freq() {
  if (!freq_valid_) {
    if (!time_valid_) {
      throw std::string("Freq data requested for empty data object");
    }
    freq_.length = time_.data.size();
    freq_.units = time_.units;
    freq_.data.resize(freq_.storage_size(freq_.length));
    KLPFFT_time_to_freq(&time_.data, &freq_.data);
    freq_valid_ = true;
  }
  return freq_;
}

Cvector& DataSet::freq(double& step) {
  freq();
  step = rate_.get(Category::frequency) / static_cast<double>(freq_.length);
  return freq_;
}

Vector DataSet::take_time() && {
  if (!time_valid_ && freq_valid_) {
    shape_time();
    consume_to_time(freq_.data, time_.data);
    time_valid_ = true;
  }
  time();
  freq_ = Cvector();
  time_valid_ = freq_valid_ = false;
  return std::exchange(time_, Vector());
}

Cvector DataSet::take_freq() && {
  freq();
  time_ = Vector();
  time_valid_ = freq_valid_ = false;
  return std::exchange(freq_, Cvector());
}

std::uint64_t DataSet::length() const {
  if (time_valid_) {
    return time_.length;
  }
  if (freq_valid_) {
    return freq_.length;
  }
  throw std::string("Length requested for empty data item");
}

Quantity DataSet::param(const std::string& name) const { return params_.at(name); }

void DataSet::erase(std::uint64_t front, std::uint64_t back) {
  time();
  time_.erase(front, back);
  freq_valid_ = false;
}

void DataSet::pad(std::uint64_t front, std::uint64_t back, double fill) {
  time();
  time_.insert(front, back, fill);
  freq_valid_ = false;
}

void DataSet::fold(std::uint64_t count) {
  time();
  std::vector<double>& samples = time_.data;
  if (count > samples.size()) {
    throw std::string("Fold of more samples than there are");
  }
  const std::vector<double> tail(samples.end() - static_cast<std::ptrdiff_t>(count), samples.end());
  time_.erase(0, count);
  const std::size_t kept = std::min(tail.size(), samples.size());
  for (std::size_t i = 0; i < kept; ++i) {
    samples[i] += tail[i];
  }
  freq_valid_ = false;
}

void DataSet::scale(double factor) {
  time();
  for (double& sample : time_.data) {
    sample *= factor;
  }
  freq_valid_ = false;
}

void DataSet::spectrum(Vector& out) {
  freq();
  out.label = "Spectrum";
  out.units = freq_.units;
  out.length = freq_.data.size();
  out.data.resize(out.storage_size(out.length));
  for (std::size_t i = 0; i < freq_.data.size(); ++i) {
    out.data[i] = std::abs(freq_.data[i]);
  }
}

void DataSet::variance(Vector& out) {
  freq();
  const double duration = static_cast<double>(freq_.length) / rate_.get(Category::frequency);  // s
  const double metres = factor_to_base(freq_.units, Category::length);  // in one unit of the signal
  out.label = "Variance";
  out.units = default_units(Category::variance);
  out.length = freq_.data.size();
  out.data.resize(out.storage_size(out.length));
  for (std::size_t i = 0; i < freq_.data.size(); ++i) {
    out.data[i] = std::norm(freq_.data[i]) * duration * 0.5 * (metres * metres);
  }
}

}  // namespace Base
