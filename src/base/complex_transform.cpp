#include "base/complex_transform.h"

#include "base/fftw_plan.h"

namespace Base {

struct ComplexTransform::Plans {
  FftwPlan forward;
  FftwPlan backward;
};

ComplexTransform::ComplexTransform(std::size_t size)
    : in_(size), out_(size), plans_(std::make_shared<Plans>()) {
  plans_->forward = FftwPlan::forward(size, in_.data(), out_.data());
  plans_->backward = FftwPlan::backward(size, out_.data(), in_.data());
}

ComplexTransform::~ComplexTransform() = default;

void ComplexTransform::forward() { plans_->forward.run(in_.data(), out_.data()); }

void ComplexTransform::backward() { plans_->backward.run(out_.data(), in_.data()); }

}  // namespace Base
