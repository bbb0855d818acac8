// The Fourier transforms, on the one scaling of the whole library.
//
// Element h of a spectrum is the one-sided complex amplitude of harmonic h, element 0 the mean.
// The time form of n samples is the sum over h of Re(X[h] exp(+i 2 pi h j / n)); nothing is
// scaled by n on that way. The element at n/2 of an even n counts once, so that the two
// directions are inverse to each other. Elements above n/2 are ignored. Any n, primes included.
// Two threads may transform at once.
#ifndef KELPBOX_BASE_FFT_H_
#define KELPBOX_BASE_FFT_H_

#include <complex>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

// Fills the spectrum, which the caller has sized to N / 2 + 1, from the N samples. The size is
// never exceeded; elements above N / 2 become 0.
void KLPFFT_time_to_freq(const std::vector<double>* time, std::vector<std::complex<double>>* freq);

// Fills the samples, which the caller has sized to N, from the spectrum. A spectrum of fewer
// than N / 2 + 1 elements stands for zeros behind its last.
void KLPFFT_freq_to_time(const std::vector<std::complex<double>>* freq, std::vector<double>* time);

namespace Base {

// The same result as KLPFFT_freq_to_time, without a copy of the spectrum, whose elements are lost.
void consume_to_time(std::vector<std::complex<double>>& freq, std::vector<double>& time);

// The least number of bytes that a transform needs beside its samples and its spectrum.
std::uint64_t transform_memory(std::size_t samples);

enum class FFT_Type : unsigned { freq_to_time = 0 };

// Repeated inverse transforms of one size.
class FFT_Plan {
 public:
  // For N samples from `elements` elements of a spectrum.
  FFT_Plan(unsigned samples, unsigned elements, FFT_Type type);
  ~FFT_Plan();
  FFT_Plan(const FFT_Plan&) = delete;
  FFT_Plan& operator=(const FFT_Plan&) = delete;

  // The same result as KLPFFT_freq_to_time. Throws a std::string when the vector is not of N
  // samples, or when the buffers have been freed.
  void execute(const std::vector<std::complex<double>>* freq, std::vector<double>* time);
  // The same without a copy of the spectrum, whose elements are lost.
  void consume(std::vector<std::complex<double>>& freq, std::vector<double>& time);

  // Releases the working memory. After it the plan only waits to be destroyed.
  void freeFFTBuffers();

 private:
  void check(const std::vector<double>& time) const;

  struct Buffers;
  unsigned samples_;
  std::unique_ptr<Buffers> buffers_;
};

}  // namespace Base

#endif  // KELPBOX_BASE_FFT_H_
