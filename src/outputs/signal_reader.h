// The drive signals of a folder of results.
#ifndef KELPBOX_OUTPUTS_SIGNAL_READER_H_
#define KELPBOX_OUTPUTS_SIGNAL_READER_H_

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "outputs/page_source.h"

namespace Outputs {

// The signals of one bank. Every call may throw CannotRead.
class SignalReader {
 public:
  SignalReader() = default;
  virtual ~SignalReader() = default;
  SignalReader(const SignalReader&) = delete;
  SignalReader& operator=(const SignalReader&) = delete;

  // All samples of a paddle, valid until the next call. Fastest in the order of the paddles.
  virtual const std::vector<double>& paddle(std::size_t index) = 0;
  // The file's name for messages.
  virtual std::string shown() const = 0;
};

// From drive.nc, or else from drive_<bank + 1>.csv. Null if there is neither.
std::unique_ptr<SignalReader> open_signals(const PageSource& source, std::size_t bank,
                                           std::size_t paddles, std::size_t samples);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_SIGNAL_READER_H_
