// A run: specifications on one repeat time, merged and referred to the paddles, and what is built
// from the merged fronts.
#ifndef KELPBOX_RUN_DEFINITION_H_
#define KELPBOX_RUN_DEFINITION_H_

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "animation/animate.h"
#include "base/params.h"
#include "drive/bank_motion.h"
#include "maths/front.h"
#include "maths/run_data.h"
#include "maths/run_fronts.h"
#include "point/two_d.h"
#include "sea/specification.h"
#include "site/context.h"

namespace Synthesis {

// Specifications and the context are owned elsewhere and must outlive their place here. Failures
// are thrown as std::string.
class Definition {
 public:
  Definition(std::string name, Common::Context& context)
      : name_(std::move(name)), context_(context) {}

  void add_specification(Specification& specification);
  // Throws "Failed to find Specification to remove".
  void remove_specification(Specification& specification);

  // Declares "repeat", "dalrymple", "wave_merge", "ran_gen", "seed".
  void query(Base::Params& out) const;
  // Fits the repeat time to whole samples of the base rate and writes it back.
  void set(Base::Params& in);

  // Throws "Evaluate before setting state".
  const Maths::RunFronts& run_build();
  std::uint32_t run_size() const { return static_cast<std::uint32_t>(run_.sets.size()); }
  Maths::RunData& repeat() { return run_.run; }
  // Of one set, valid until the next run_build. Throws "invalid vector<T> subscript".
  Maths::Position& position(std::uint32_t index);
  // Each result is valid until the next call of the same form. The form with an index throws
  // "invalid vector<T> subscript".
  const std::vector<Front>& fronts(bool merged);
  const std::vector<Maths::TransferFront>& fronts(std::uint32_t index);
  const Messages& messages() const { return messages_; }

  // Takes "rate" from the parameters and rebuilds the signals of all banks.
  void paddle_motion_build(const Base::Params& in);
  // Both throw "Bank out of range or paddle_motion not built"; a paddle without a signal throws
  // "Paddle out of range in paddle_motion_data::bank B has no signal of paddle P".
  const std::vector<double>& paddle_motion_data(std::uint32_t bank, std::uint32_t paddle) const;
  void paddle_motion_stats(std::uint32_t bank, Base::Params& out) const;

  // The animation of the merged fronts. The first three throw the texts of Animate, the others
  // those of AnimationFrames. From a second thread: `animate_progress`, `animate_ready` and
  // `animate_stop`, while the first one builds.
  void animate_build(Base::Params& in);
  void animate_init(Base::Params& in);
  void animate_build_slice(std::uint32_t from, std::uint32_t to);
  const std::vector<std::int16_t>& animate_data(std::uint32_t index) const {
    return animation_.frames().data(index);
  }
  std::uint32_t animate_size(std::uint32_t type) const { return animation_.frames().size(type); }
  double animate_progress() const { return animation_.frames().progress(); }
  bool animate_ready() const { return animation_.frames().complete(); }
  void animate_stop() { animation_.frames().stop(); }
  void animate_free() { animation_.frames().release(); }

  // The wave at a point, from the merged fronts. Reads "rate", "x", "y", "delta_angle" and writes
  // "rate" and "delta_angle" back as fitted.
  void twod_build(Base::Params& in);
  // 0 time, 1 spectrum, 2 variance, 3 direction, valid until the next twod_build. Throws "Unknown
  // option ot twod_data".
  const std::vector<double>& twod_data(std::int32_t type) const { return twod_.data(type); }
  // Reads "rate", "x", "y", writes "rate" back as fitted, and adds the statistics.
  void twod_stats(Base::Params& params) const;

 private:
  Base::Params params_;
  std::string name_;
  std::vector<Specification*> specifications_;
  Maths::RunFronts run_;
  Common::Context& context_;
  Animate animation_;
  TwoD twod_;
  std::vector<BankMotion> banks_;
  std::vector<Front> display_fronts_;
  std::vector<Maths::TransferFront> transfer_fronts_;
  bool ready_ = false;
  Messages messages_;
};

}  // namespace Synthesis

#endif  // KELPBOX_RUN_DEFINITION_H_
