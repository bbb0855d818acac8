// One signal in time and in frequency form, with its sampling rate and parameters.
//
// The missing form is computed when it is asked for, so that even reading may write: not
// guarded. A failure leaves the data unchanged and is thrown as a std::string, but for a pad
// beyond the room of a vector (vector.h).
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
  // The rate is the entry "rate" of the parameters, which must convert to a frequency.
  DataSet(Cvector freq, const Params& params);
  DataSet(Vector time, const Params& params);
  // The rate is a frequency, or a time, which is taken as the sample interval. Throws "rate
  // value of wrong type".
  DataSet(Cvector freq, const Quantity& rate);
  DataSet(Vector time, const Quantity& rate);

  // The time form. Throws "Time data requested for empty data object".
  const Vector& time();
  // Also stores the sample interval in seconds.
  const Vector& time(double& interval);
  // Through a plan, and without marking the time form as valid, so that the next call
  // transforms again.
  const Vector& time(FFT_Plan& plan);

  // The frequency form. Throws "Freq data requested for empty data object".
  Cvector& freq();
  // Also stores the frequency step in hertz.
  Cvector& freq(double& step);

  // Each moves one form out and discards the other, which spares the memory of a second form.
  Vector take_time() &&;
  Cvector take_freq() &&;

  // The number of time samples. Throws "Length requested for empty data item".
  std::uint64_t length() const;
  // A copy of a parameter. Throws "<name>::Not found".
  Quantity param(const std::string& name) const;
  const Quantity& rate() const { return rate_; }

  // Editing of the time form; each makes the frequency form out of date.
  void erase(std::uint64_t front, std::uint64_t back);
  void pad(std::uint64_t front, std::uint64_t back, double fill);
  // Adds the last `count` samples to the first ones and removes them. Throws "Fold of more
  // samples than there are".
  void fold(std::uint64_t count);
  void scale(double factor);

  // Magnitudes of the elements, in the units of the signal.
  void spectrum(Vector& out);
  // Variance density in m2s of a signal whose units are lengths.
  void variance(Vector& out);

 protected:
  // Of neither form: every request fails.
  DataSet() = default;

 private:
  // Gives the time form the shape of the frequency form's series.
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
