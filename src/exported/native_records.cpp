// Front, DisplayFront, TransferFront, Position and RunData.
//
// All fields of the first four have eight bytes, so one function reads the same field of each. Its
// other names are aliases.
#include <cstdint>
#include <new>
#include <type_traits>

#include "exported/frame.h"
#include "maths/front.h"
#include "maths/run_data.h"

using namespace Kelpbox;
using Maths::DisplayFront;
using Maths::Position;
using Maths::RunData;
using Maths::TransferFront;
using Synthesis::Front;

namespace {

template <typename Record, std::size_t fields>
constexpr bool is_plain =
    std::is_standard_layout_v<Record>&& std::is_trivially_destructible_v<Record> &&
    sizeof(Record) == fields * sizeof(double);
static_assert(is_plain<Front, 4> && is_plain<DisplayFront, 4> && is_plain<TransferFront, 4> &&
              is_plain<Position, 3>);
static_assert(std::is_trivially_destructible_v<RunData>);

double field(const double& first, std::size_t index) { return (&first)[index]; }

}  // namespace

// Creation and deletion.

KELPBOX_EXPORT(jlong, new_1Kelpbox_1Front_1_1SWIG_10)(JNIEnv* env, jclass) {
  return call(env, [] { return new Front(); });
}
KELPBOX_ALIAS(new_1Kelpbox_1TransferFront, new_1Kelpbox_1Front_1_1SWIG_10);

KELPBOX_EXPORT(jlong, new_1Kelpbox_1Front_1_1SWIG_11)
(JNIEnv* env, jclass, jdouble freq, jdouble amp, jdouble angle, jdouble phase) {
  return call(
      env, [](double f, double a, double d, double p) { return new Front(f, a, d, p); }, Real{freq},
      Real{amp}, Real{angle}, Real{phase});
}
KELPBOX_ALIAS(new_1Kelpbox_1DisplayFront, new_1Kelpbox_1Front_1_1SWIG_11);

KELPBOX_EXPORT(jlong, new_1Kelpbox_1Position)(JNIEnv* env, jclass) {
  return call(env, [] { return new Position(); });
}

KELPBOX_EXPORT(jlong, new_1Kelpbox_1RunData)(JNIEnv* env, jclass) {
  return call(env, [] { return new RunData(); });
}

// Not a `delete` expression, which would need the type: the sizes of the records differ.
KELPBOX_EXPORT(void, delete_1Kelpbox_1Front)(JNIEnv*, jclass, jlong self) {
  ::operator delete(pointer_from<void>(self));
}
KELPBOX_ALIAS(delete_1Kelpbox_1DisplayFront, delete_1Kelpbox_1Front);
KELPBOX_ALIAS(delete_1Kelpbox_1TransferFront, delete_1Kelpbox_1Front);
KELPBOX_ALIAS(delete_1Kelpbox_1Position, delete_1Kelpbox_1Front);
KELPBOX_ALIAS(delete_1Kelpbox_1RunData, delete_1Kelpbox_1Front);

// Fields.

KELPBOX_EXPORT(jdouble, Kelpbox_1Front_1get_1amp)(JNIEnv* env, jclass, jlong self, jobject) {
  return call(
      env, [](const double& first) { return field(first, 0); }, Self<const double>{self});
}
KELPBOX_ALIAS(Kelpbox_1DisplayFront_1get_1amp, Kelpbox_1Front_1get_1amp);
KELPBOX_ALIAS(Kelpbox_1TransferFront_1get_1amp, Kelpbox_1Front_1get_1amp);
KELPBOX_ALIAS(Kelpbox_1Position_1get_1x, Kelpbox_1Front_1get_1amp);

KELPBOX_EXPORT(jdouble, Kelpbox_1Front_1get_1angle)(JNIEnv* env, jclass, jlong self, jobject) {
  return call(
      env, [](const double& first) { return field(first, 1); }, Self<const double>{self});
}
KELPBOX_ALIAS(Kelpbox_1DisplayFront_1get_1angle, Kelpbox_1Front_1get_1angle);
KELPBOX_ALIAS(Kelpbox_1TransferFront_1get_1angle, Kelpbox_1Front_1get_1angle);
KELPBOX_ALIAS(Kelpbox_1Position_1get_1y, Kelpbox_1Front_1get_1angle);

KELPBOX_EXPORT(jdouble, Kelpbox_1Front_1get_1phase)(JNIEnv* env, jclass, jlong self, jobject) {
  return call(
      env, [](const double& first) { return field(first, 2); }, Self<const double>{self});
}
KELPBOX_ALIAS(Kelpbox_1DisplayFront_1get_1phase, Kelpbox_1Front_1get_1phase);
KELPBOX_ALIAS(Kelpbox_1TransferFront_1get_1phase, Kelpbox_1Front_1get_1phase);
KELPBOX_ALIAS(Kelpbox_1Position_1get_1t, Kelpbox_1Front_1get_1phase);

KELPBOX_EXPORT(jdouble, Kelpbox_1Front_1get_1freq)(JNIEnv* env, jclass, jlong self, jobject) {
  return call(
      env, [](const double& first) { return field(first, 3); }, Self<const double>{self});
}
KELPBOX_ALIAS(Kelpbox_1DisplayFront_1get_1freq, Kelpbox_1Front_1get_1freq);

KELPBOX_EXPORT(jlong, Kelpbox_1TransferFront_1get_1harmonic)
(JNIEnv* env, jclass, jlong self, jobject) {
  return call(
      env, [](const TransferFront& front) { return low32(front.harmonic); },
      Self<TransferFront>{self});
}

// Run data.

KELPBOX_EXPORT(jdouble, Kelpbox_1RunData_1value)(JNIEnv* env, jclass, jlong self, jobject) {
  return call(env, &RunData::value, Self<RunData>{self});
}

KELPBOX_EXPORT(jlong, Kelpbox_1RunData_1size)(JNIEnv* env, jclass, jlong self, jobject) {
  return call(
      env, [](const RunData& run) { return low32(run.size()); }, Self<RunData>{self});
}

KELPBOX_EXPORT(jdouble, Kelpbox_1RunData_1freq)
(JNIEnv* env, jclass, jlong self, jobject, jlong harmonic) {
  return call(env, &RunData::freq, Self<RunData>{self}, Unsigned{harmonic});
}

KELPBOX_EXPORT(jlong, Kelpbox_1RunData_1wave_1num)
(JNIEnv* env, jclass, jlong self, jobject, jdouble freq) {
  return call(
      env, [](const RunData& run, double f) { return low32(run.wave_num(f)); }, Self<RunData>{self},
      Real{freq});
}

KELPBOX_EXPORT(jlong, Kelpbox_1RunData_1harmonic)
(JNIEnv* env, jclass, jlong self, jobject, jlong type) {
  return call(
      env, [](const RunData& run, std::uint32_t t) { return low32(run.harmonic(t)); },
      Self<RunData>{self}, Unsigned{type});
}

KELPBOX_EXPORT(jboolean, Kelpbox_1RunData_1is_1inrange)
(JNIEnv* env, jclass, jlong self, jobject, jdouble freq) {
  return call(env, &RunData::is_inrange, Self<RunData>{self}, Real{freq});
}

KELPBOX_EXPORT(jboolean, Kelpbox_1RunData_1dalrymple)(JNIEnv* env, jclass, jlong self, jobject) {
  return call(env, &RunData::dalrymple, Self<RunData>{self});
}
