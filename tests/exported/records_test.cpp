// Fronts, positions and run data through handles.
#include "fixture.h"
#include "maths/run_data.h"

namespace {

class Records : public HostTest {
 protected:
  jlong front(double freq, double amp, double angle, double phase) {
    return own(host.call(NATIVE(new_1Kelpbox_1Front_1_1SWIG_11), freq, amp, angle, phase),
               NATIVE(delete_1Kelpbox_1Front));
  }
};

TEST_F(Records, AFrontTakesTheFrequencyFirst) {
  const jlong made = front(1.0, 2.0, 3.0, 4.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Front_1get_1freq), made, proxy), 1.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Front_1get_1amp), made, proxy), 2.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Front_1get_1angle), made, proxy), 3.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Front_1get_1phase), made, proxy), 4.0);
  const auto& native = *reinterpret_cast<Synthesis::Front*>(made);
  EXPECT_EQ(native.freq, 1.0);
  EXPECT_EQ(native.amp, 2.0);
}

TEST_F(Records, ADisplayFrontTakesTheFrequencyFirst) {
  const jlong made = own(host.call(NATIVE(new_1Kelpbox_1DisplayFront), 1.0, 2.0, 3.0, 4.0),
                         NATIVE(delete_1Kelpbox_1DisplayFront));
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1DisplayFront_1get_1freq), made, proxy), 1.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1DisplayFront_1get_1amp), made, proxy), 2.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1DisplayFront_1get_1angle), made, proxy), 3.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1DisplayFront_1get_1phase), made, proxy), 4.0);
}

TEST_F(Records, WithoutArgumentsEveryFieldIsZero) {
  const jlong plain =
      own(host.call(NATIVE(new_1Kelpbox_1Front_1_1SWIG_10)), NATIVE(delete_1Kelpbox_1Front));
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Front_1get_1amp), plain, proxy), 0.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Front_1get_1angle), plain, proxy), 0.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Front_1get_1phase), plain, proxy), 0.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Front_1get_1freq), plain, proxy), 0.0);

  const jlong transfer =
      own(host.call(NATIVE(new_1Kelpbox_1TransferFront)), NATIVE(delete_1Kelpbox_1TransferFront));
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1TransferFront_1get_1amp), transfer, proxy), 0.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1TransferFront_1get_1angle), transfer, proxy), 0.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1TransferFront_1get_1phase), transfer, proxy), 0.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1TransferFront_1get_1harmonic), transfer, proxy), 0);

  const jlong position =
      own(host.call(NATIVE(new_1Kelpbox_1Position)), NATIVE(delete_1Kelpbox_1Position));
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Position_1get_1x), position, proxy), 0.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Position_1get_1y), position, proxy), 0.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Position_1get_1t), position, proxy), 0.0);
}

TEST_F(Records, AGetterReadsItsFieldOfWhateverIsPassed) {
  const jlong made = front(1.0, 2.0, 3.0, 4.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Position_1get_1x), made, proxy), 2.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Position_1get_1t), made, proxy), 4.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1DisplayFront_1get_1freq), made, proxy), 1.0);

  Maths::Position position{5.0, 6.0, 7.0};
  const auto handle = reinterpret_cast<jlong>(&position);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Position_1get_1y), handle, proxy), 6.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Front_1get_1phase), handle, proxy), 7.0);
}

TEST_F(Records, TheHarmonicIsTheLow32Bits) {
  Maths::TransferFront transfer;
  transfer.harmonic = 0x12345678FFFFFFFE;
  const auto handle = reinterpret_cast<jlong>(&transfer);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1TransferFront_1get_1harmonic), handle, proxy),
            jlong{0xFFFFFFFE});
}

TEST_F(Records, DeletingNullDoesNothing) {
  host.call(NATIVE(delete_1Kelpbox_1Front), 0);
  host.call(NATIVE(delete_1Kelpbox_1DisplayFront), 0);
  host.call(NATIVE(delete_1Kelpbox_1TransferFront), 0);
  host.call(NATIVE(delete_1Kelpbox_1Position), 0);
  host.call(NATIVE(delete_1Kelpbox_1RunData), 0);
}

class RunDataFace : public HostTest {
 protected:
  jlong made() {
    return own(host.call(NATIVE(new_1Kelpbox_1RunData)), NATIVE(delete_1Kelpbox_1RunData));
  }
  // 10 s at 100 Hz, harmonics 1 to 20.
  jlong grid(bool dalrymple = false) {
    const jlong handle = made();
    reinterpret_cast<Maths::RunData*>(handle)->init(10.0004, 100.0, 0.0, 2.0, dalrymple);
    return handle;
  }
};

TEST_F(RunDataFace, BeforeInitTheFailuresAreTold) {
  const jlong run = made();
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1RunData_1value), run, proxy),
            domain("Repeat time zero or less"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1RunData_1size), run, proxy),
            domain("Calling size when not initialised"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1RunData_1freq), run, proxy, 0),
            domain("Calling freq when not initialised"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1RunData_1wave_1num), run, proxy, 1.0),
            domain("Calling wave_num when not initialised"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1RunData_1harmonic), run, proxy, 2),
            domain("Unknown type to harmonic"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1RunData_1is_1inrange), run, proxy, 1.0), Thrown{});
}

TEST_F(RunDataFace, TheGridIsRead) {
  const jlong run = grid();
  EXPECT_DOUBLE_EQ(host.call(NATIVE(Kelpbox_1RunData_1value), run, proxy), 10.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1RunData_1size), run, proxy), 21);
  EXPECT_DOUBLE_EQ(host.call(NATIVE(Kelpbox_1RunData_1freq), run, proxy, 7), 0.7);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1RunData_1freq), run, proxy, 0), 0.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1RunData_1wave_1num), run, proxy, 0.71), 7);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1RunData_1harmonic), run, proxy, 0), 20);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1RunData_1harmonic), run, proxy, 1), 1);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1RunData_1is_1inrange), run, proxy, 2.0), JNI_TRUE);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1RunData_1is_1inrange), run, proxy, 2.1), JNI_FALSE);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1RunData_1dalrymple), run, proxy), JNI_FALSE);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1RunData_1dalrymple), grid(true), proxy), JNI_TRUE);
}

TEST_F(RunDataFace, OutsideTheGridTheFailuresAreTold) {
  const jlong run = grid();
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1RunData_1freq), run, proxy, 21),
            domain("Harmonic out of range"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1RunData_1harmonic), run, proxy, 2),
            domain("Unknown type to harmonic"));
  testing::internal::CaptureStdout();
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1RunData_1wave_1num), run, proxy, 2.1),
            domain("Wave number out of range"));
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "wave number out of range 21 must be between 1 and 20\n");
}

}  // namespace
