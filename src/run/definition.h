// A run: specifications with one repeat time, merged and referred to the paddles, and the results
// that are built from the merged fronts.
#ifndef KELPBOX_RUN_DEFINITION_H_
#define KELPBOX_RUN_DEFINITION_H_

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "animation/animate.h"
#include "base/executor.h"
#include "base/params.h"
#include "drive/bank_motion.h"
#include "maths/front.h"
#include "maths/run_data.h"
#include "maths/run_fronts.h"
#include "point/two_d.h"
#include "sea/specification.h"
#include "site/context.h"

namespace Synthesis {

// Does not own the specifications and the context, which must outlive it. One thread at a time,
// except where noted. Failures are thrown as std::string unless another type is named.
class Definition {
 public:
  Definition(std::string name, Common::Context& context)
      : name_(std::move(name)), context_(context) {}

  // The workers of the drive signals and animations to come, one unless set. Results are the same
  // for every number of workers.
  void set_executor(const Base::Executor& executor);

  void add_specification(Specification& specification);
  // Throws "Failed to find Specification to remove".
  void remove_specification(Specification& specification);

  // Declares "repeat", "dalrymple", "wave_merge", "ran_gen", "seed".
  void query(Base::Params& out) const;
  // Fits the repeat time to a whole number of samples at the base rate and writes it back. A
  // failure of RunData::init leaves the run unchanged. Throws as Params::read and RunData::init.
  void set(Base::Params& in);

  // Evaluates and merges the specifications and refers the result to the paddles. Throws "Evaluate
  // before setting state", Script::LogItm from a context that is not ready, and the messages of the
  // steps. After a failure, the sets that were evaluated before it remain, and `merged` is
  // unchanged.
  const Maths::RunFronts& run_build();
  std::uint32_t run_size() const { return static_cast<std::uint32_t>(run_.sets.size()); }
  Maths::RunData& repeat() { return run_.run; }
  // The position of one set, valid until the next run_build. Throws "invalid vector<T> subscript".
  Maths::Position& position(std::uint32_t index);
  // The merged fronts, or those of all sets one after the other. Valid until the next call of this
  // overload. Throws "fronts::<count> fronts need ... GiB of memory, ... GiB are available".
  const std::vector<Front>& fronts(bool merged);
  // The fronts of one set. Valid until the next call of this overload. Throws the same, and
  // "invalid vector<T> subscript".
  const std::vector<Maths::TransferFront>& fronts(std::uint32_t index);
  // The reports of the last run_build.
  const Messages& messages() const { return messages_; }

  // Reads "rate" in Hz and rebuilds the signals of all banks. Throws as BankMotion.
  void paddle_motion_build(const Base::Params& in);
  // The drive signal of a paddle, in radians for a flap and in metres for a piston. Throws "Bank
  // out of range or paddle_motion not built" and "Paddle out of range in paddle_motion_data::bank B
  // has no signal of paddle P".
  const std::vector<double>& paddle_motion_data(std::uint32_t bank, std::uint32_t paddle) const;
  // Replaces `out` by the clipping statistics of a bank. Throws "Bank out of range or paddle_motion
  // not built".
  void paddle_motion_stats(std::uint32_t bank, Base::Params& out) const;

  // The animation of the merged fronts. The first three operations throw the messages of Animate,
  // the others those of AnimationFrames. A second thread may call `animate_progress`,
  // `animate_ready` and `animate_stop` during a build.
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
  void animate_free() { animation_.release(); }

  // The wave at a point, from the merged fronts. Reads "rate", "x", "y" and "delta_angle", and
  // writes back "rate" and "delta_angle" as fitted. Throws as fit_point and TwoD::build.
  void twod_build(Base::Params& in);
  // A result by its TwoD::Data number, valid until the next twod_build. Throws "Unknown option ot
  // twod_data".
  const std::vector<double>& twod_data(std::int32_t type) const { return twod_.data(type); }
  // Reads "rate", "x" and "y", writes back "rate" as fitted, and adds the statistics. Throws as
  // fit_point and point_stats.
  void twod_stats(Base::Params& params) const;

 private:
  Base::Executor executor_;
  Base::Params params_;
  std::string name_;  // as the host gave it; nothing reads it
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
