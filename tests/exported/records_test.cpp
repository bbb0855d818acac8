// Fronts, positions and run data, read through handles.
#include "maths/front.h"
#include "run_fixture.h"
#include "support/output.h"

namespace {

using Testing::HostTest;
using Testing::RunHostTest;

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
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1TransferFront_1get_1angle), made, proxy), 3.0);
}

// No run is long enough for such a harmonic, so the record is made here.
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

class RunDataFace : public RunHostTest {
 protected:
  jlong made() {
    return own(host.call(NATIVE(new_1Kelpbox_1RunData)), NATIVE(delete_1Kelpbox_1RunData));
  }
  // The grid of a definition of the basin: 10 s at 100 Hz, harmonics 1 to 20.
  jlong grid(const char* dalrymple = "False") {
    experiment = basin();
    make_run();
    const jlong values = params({{"repeat", 10.0004, "s"}});
    insert_enum(values, "dalrymple", dalrymple, "Bool");
    insert_enum(values, "wave_merge", "Null", "WaveMerge");
    set(run, values);
    return host.call(NATIVE(Kelpbox_1Experiment_1repeat), experiment, proxy, run);
  }
};

TEST_F(RunDataFace, AnUnsetGridRefusesToBeRead) {
  const jlong data = made();
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1RunData_1value), data, proxy),
            domain("Repeat time zero or less"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1RunData_1size), data, proxy),
            domain("Calling size when not initialised"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1RunData_1freq), data, proxy, 0),
            domain("Calling freq when not initialised"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1RunData_1wave_1num), data, proxy, 1.0),
            domain("Calling wave_num when not initialised"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1RunData_1harmonic), data, proxy, 2),
            domain("Unknown type to harmonic"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1RunData_1is_1inrange), data, proxy, 1.0), Thrown{});
}

TEST_F(RunDataFace, TheGridIsRead) {
  const jlong data = grid();
  EXPECT_DOUBLE_EQ(host.call(NATIVE(Kelpbox_1RunData_1value), data, proxy), 10.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1RunData_1size), data, proxy), 21);
  EXPECT_DOUBLE_EQ(host.call(NATIVE(Kelpbox_1RunData_1freq), data, proxy, 7), 0.7);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1RunData_1freq), data, proxy, 0), 0.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1RunData_1wave_1num), data, proxy, 0.71), 7);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1RunData_1harmonic), data, proxy, 0), 20);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1RunData_1harmonic), data, proxy, 1), 1);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1RunData_1is_1inrange), data, proxy, 2.0), JNI_TRUE);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1RunData_1is_1inrange), data, proxy, 2.1), JNI_FALSE);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1RunData_1dalrymple), data, proxy), JNI_FALSE);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1RunData_1dalrymple), grid("True"), proxy), JNI_TRUE);
}

TEST_F(RunDataFace, HarmonicsAndFrequenciesOutsideTheGridAreRefused) {
  const jlong data = grid();
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1RunData_1freq), data, proxy, 21),
            domain("Harmonic out of range"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1RunData_1harmonic), data, proxy, 2),
            domain("Unknown type to harmonic"));
  EXPECT_EQ(Testing::printed([&] {
              EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1RunData_1wave_1num), data, proxy, 2.1),
                        domain("Wave number out of range"));
            }),
            "wave number out of range 21 must be between 1 and 20\n");
}

}  // namespace
