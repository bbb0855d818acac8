// The Fourier transforms, all with one scaling.
//
// Element h of a spectrum is the one-sided complex amplitude of harmonic h. Element 0 is the mean.
// Sample j of n is the sum over h of Re(X[h] exp(+i 2 pi h j / n)), without a factor of n. The
// element at n/2 of an even n counts once, so the two directions are inverse to each other.
// Elements above n/2 are ignored. n can be any number, including a prime. Several threads may
// transform at the same time, each with its own object; a copy of an object shares its plan and has
// working memory of its own. Every transform throws std::string "FFT of N samples is too long"
// above 2^31 - 1 samples, and "FFT of N samples cannot be planned".
#ifndef KELPBOX_BASE_FFT_H_
#define KELPBOX_BASE_FFT_H_

#include <complex>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

// Fills the spectrum from the N samples. The caller sizes the spectrum to N / 2 + 1. A shorter one
// is filled as far as it goes, and in a longer one the elements above N / 2 become 0.
void KLPFFT_time_to_freq(const std::vector<double>* time, std::vector<std::complex<double>>* freq);

// Fills the N samples from the spectrum. The caller sizes the samples to N. The elements that a
// spectrum lacks up to N / 2 count as 0.
void KLPFFT_freq_to_time(const std::vector<std::complex<double>>* freq, std::vector<double>* time);

namespace Base {

// The same result as KLPFFT_freq_to_time. Overwrites the spectrum instead of copying it.
void consume_to_time(std::vector<std::complex<double>>& freq, std::vector<double>& time);

// An upper bound for the bytes that consume_to_time and KLPFFT_time_to_freq need in addition to the
// samples and the spectrum.
std::uint64_t transform_memory(std::size_t samples);

// The name and version of the library that transforms, such as "fftw-3.3.10-sse2-avx".
const char* transform_library();

enum class FFT_Type : unsigned { freq_to_time = 0 };

// Repeated inverse transforms of one size.
class FFT_Plan {
 public:
  // For N samples. The number of elements of the spectrum is not needed.
  FFT_Plan(unsigned samples, unsigned elements, FFT_Type type);
  ~FFT_Plan();
  FFT_Plan(const FFT_Plan& other);
  FFT_Plan& operator=(const FFT_Plan&) = delete;

  // The same result as KLPFFT_freq_to_time. Throws std::string "FFT plan for N samples given M",
  // and "FFT plan without its buffers" after freeFFTBuffers.
  void execute(const std::vector<std::complex<double>>* freq, std::vector<double>* time);
  // The same. Overwrites the spectrum instead of copying it.
  void consume(std::vector<std::complex<double>>& freq, std::vector<double>& time);

  // Releases the working memory. The plan cannot be used after this call.
  void freeFFTBuffers();

 private:
  void require_usable(const std::vector<double>& time) const;

  struct Buffers;
  unsigned samples_;
  std::unique_ptr<Buffers> buffers_;
};

}  // namespace Base

#endif  // KELPBOX_BASE_FFT_H_
