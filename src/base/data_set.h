// One signal in time form and frequency form, with its sampling rate and parameters.
//
// A missing form is computed when it is first read. Because reading can write, only one thread may
// use a DataSet at a time. Failures are thrown as std::string; `pad` can also throw
// std::length_error, as BaseVec::insert does. A failure leaves the data unchanged.
#ifndef KELPBOX_BASE_DATA_SET_H_
#define KELPBOX_BASE_DATA_SET_H_

#include <cstdint>
#include <string>

#include "base/fft.h"
#include "base/params.h"
#include "base/quantity.h"
#include "base/vector.h"

namespace Base {

class DataSet {
 public:
  // The rate is the entry "rate" of the parameters. Throws as Params::find_convertible for an entry
  // that is missing or is not a frequency.
  DataSet(Cvector freq, const Params& params);
  DataSet(Vector time, const Params& params);
  // The rate is a frequency, or a time, which is then the sample interval. Throws "rate value of
  // wrong type" for any other units.
  DataSet(Cvector freq, const Quantity& rate);
  DataSet(Vector time, const Quantity& rate);

  // The time form. Throws "Time data requested for empty data object".
  const Vector& time();
  // Also stores the sample interval in seconds.
  const Vector& time(double& interval);
  // Transforms with a prepared plan and does not mark the time form as valid: a caller that changes
  // the frequency form between calls gets a new transform each time.
  const Vector& time(FFT_Plan& plan);

  // The frequency form. Throws "Freq data requested for empty data object".
  Cvector& freq();
  // Also stores the frequency step in hertz.
  Cvector& freq(double& step);

  // Each moves one form out, computed if needed, and leaves the set empty. They need less memory
  // than reading both forms. Throw as `time` and `freq`.
  Vector take_time() &&;
  Cvector take_freq() &&;

  // The number of time samples of either form. Throws "Length requested for empty data item".
  std::uint64_t length() const;
  // A copy of a parameter. Throws "<name>::Not found".
  Quantity param(const std::string& name) const;
  // A frequency, in the units it was given in.
  const Quantity& rate() const { return rate_; }

  // These edit the time form and invalidate the frequency form.
  void erase(std::uint64_t front, std::uint64_t back);
  void pad(std::uint64_t front, std::uint64_t back, double fill);
  // Removes the last `count` samples and adds them to the first ones. Throws "Fold of more samples
  // than there are".
  void fold(std::uint64_t count);
  void scale(double factor);

  // The magnitude of each harmonic, in the units of the signal.
  void spectrum(Vector& out);
  // The variance density of each harmonic in m2s: half the squared amplitude over the frequency
  // step. Throws `Unable to convert from ...` for a signal whose units are not lengths.
  void variance(Vector& out);

 private:
  // Copies label, units and length from the frequency form to the time form, and sizes it.
  void shape_time();

  Quantity rate_;
  Vector time_;
  Cvector freq_;
  Params params_;
  bool freq_valid_ = false;
  bool time_valid_ = false;
};

}  // namespace Base

#endif  // KELPBOX_BASE_DATA_SET_H_
