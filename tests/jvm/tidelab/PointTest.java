package tidelab;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;

/** The wave at a point of the flume. */
class PointTest extends FlumeTest {
    private static final int TIME = 0;
    private static final int SPECTRUM = 1;
    private static final int VARIANCE = 2;
    private static final int DIRECTION = 3;

    private static final double F = 0.7;
    private static final double A = 0.04;
    private static final double PHASE = 0.3;

    private long definition;

    @BeforeEach
    void make() {
        definition = Kelpbox_Experiment_add_definition(experiment, null, "run");
        long specification = Flume.specification(experiment, definition);
        long single = Kelpbox_Experiment_add_single(experiment, null, specification);
        Flume.setSingle(experiment, single, F, A, PHASE);
        Flume.setDefinition(experiment, definition, 10);
        Kelpbox_Experiment_run_build(experiment, null, definition);
    }

    private void point(double rate, double x) {
        Flume.insert(params, "rate", rate, "Hz");
        Flume.insert(params, "x", x, "m");
        Flume.insert(params, "y", 0, "m");
    }

    private void build(double deltaAngle) {
        Flume.insert(params, "delta_angle", deltaAngle, "rad");
        Kelpbox_Experiment_twod_build(experiment, null, definition, params, null);
    }

    private double[] data(int which) {
        long vector = Kelpbox_Experiment_twod_data(experiment, null, definition, which);
        double[] result = new double[(int) Kelpbox_StdVectorDouble_size(vector, null)];
        for (int i = 0; i < result.length; ++i) {
            result[i] = Kelpbox_StdVectorDouble_get(vector, null, i);
        }
        return result;
    }

    @Test
    void theElevationIsThatOfAPlaneWave() {
        point(50, 6);
        build(Flume.TWO_PI / 8);
        double k = Flume.waveNumber(Flume.TWO_PI * F);
        double[] eta = data(TIME);
        assertEquals(500, eta.length);
        for (int j = 0; j < eta.length; ++j) {
            // The library's explicit wave number is within a few parts in 1e5 of the exact one.
            assertEquals(A * Math.cos(Flume.TWO_PI * F * j / 50 - k * 6 + PHASE), eta[j], 1e-3 * A);
        }
    }

    @Test
    void theWaveIsInItsHarmonicAndItsSector() {
        point(50, 6);
        build(Flume.TWO_PI / 8);
        double[] spectrum = data(SPECTRUM);
        double[] variance = data(VARIANCE);
        assertEquals(251, spectrum.length);
        assertEquals(251, variance.length);
        for (int h = 0; h < 251; ++h) {
            assertEquals(h == 7 ? A : 0, spectrum[h], 1e-15);
            assertEquals(h == 7 ? A * A / 2 * 10 : 0, variance[h], 1e-15);
        }
        double[] direction = data(DIRECTION);
        assertEquals(8, direction.length);
        for (int b = 0; b < 8; ++b) {
            assertEquals(b == 0 ? 1 : 0, direction[b], 1e-15);
        }
    }

    @Test
    void itsStatisticsAreThoseOfASineWave() {
        point(100, 6);
        Kelpbox_Experiment_twod_stats(experiment, null, definition, params, null);
        assertEquals(1 / F, Kelpbox_Params_get(params, null, "reg_t", "s"), 1e-4);
        // A crest is up to half a sample away from the nearest sample.
        double off = 1 - Math.cos(Flume.TWO_PI * F * 0.005);
        assertEquals(2 * A, Kelpbox_Params_get(params, null, "reg_h", "m"), 2 * A * off);
        assertEquals(2 * Math.sqrt(2) * A, Kelpbox_Params_get(params, null, "Hs", "m"), 1e-12);
        assertEquals(1 / F, Kelpbox_Params_get(params, null, "Ts", "s"), 1e-12);
        assertEquals(
                Math.sqrt(A / Math.sqrt(2)), Kelpbox_Params_get(params, null, "Var", ""), 1e-12);
    }

    @Test
    void fittedValuesAreWrittenBack() {
        point(1.26, 0);
        build(0.9);
        assertEquals(1.3, Kelpbox_Params_get(params, null, "rate", "Hz"));
        assertEquals(
                Flume.TWO_PI / 7, Kelpbox_Params_get(params, null, "delta_angle", "rad"), 1e-15);
        assertEquals(1, Kelpbox_Params_comment_size(params, null));
        assertEquals("Warning::Poor match", Kelpbox_Params_comment(params, null, 0));
    }

    @Test
    void beforeABuildAllDataIsEmpty() {
        for (int which : new int[] {TIME, SPECTRUM, VARIANCE, DIRECTION}) {
            assertEquals(0, data(which).length);
        }
    }

    @Test
    void unknownDataAndPointsOutsideTheTankAreRefused() {
        for (int which : new int[] {4, -1, Integer.MAX_VALUE, Integer.MIN_VALUE}) {
            fails("Unsupported enum to experiment::twod_data",
                    () -> Kelpbox_Experiment_twod_data(experiment, null, definition, which));
        }
        fails("ID out of range", () -> Kelpbox_Experiment_twod_data(experiment, null, 99, 4));
        point(50, 21);
        fails("Value x=21 is outside dimensions of tank", () -> build(1));
    }
}
