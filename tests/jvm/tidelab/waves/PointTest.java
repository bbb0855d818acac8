package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static tidelab.waves.Tanks.fails;

import java.util.List;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import tidelab.waves.component.WaveSynthesisException;

/** The wave at a point of the flume, and its statistics. */
class PointTest {
    private static final double F = 0.7;
    private static final double A = 0.04;
    private static final double PHASE = 0.3;

    private Experiment experiment;
    private Run run;

    @BeforeEach
    void open() {
        experiment = Tanks.flume();
        run = Tanks.wave(experiment, F, A, PHASE).build();
    }

    @AfterEach
    void close() {
        experiment.close();
    }

    private PointWave point(String rate, String x, String sector) {
        return run.point("rate", rate, "x", x, "y", "0 m", "delta_angle", sector);
    }

    @Test
    void theElevationIsThatOfAPlaneWave() {
        PointWave wave = point("50 Hz", "600 cm", "45 deg");
        double k = Tanks.waveNumber(Tanks.TWO_PI * F);
        double[] times = wave.times();
        assertEquals(500, times.length);
        double[] expected = new double[500];
        for (int j = 0; j < 500; ++j) {
            assertEquals(j / 50.0, times[j], 1e-15);
            expected[j] = A * Math.cos(Tanks.TWO_PI * F * times[j] - k * 6 + PHASE);
        }
        // The library's explicit wave number is within a few parts in 1e5 of the exact one.
        assertArrayEquals(expected, wave.elevation(), 1e-3 * A);
    }

    @Test
    void theWaveIsInItsHarmonicAndItsSector() {
        PointWave wave = point("50 Hz", "6 m", "45 deg");
        double[] amplitudes = new double[251];
        double[] density = new double[251];
        amplitudes[7] = A;
        density[7] = A * A / 2 * 10;
        assertArrayEquals(amplitudes, wave.amplitudes(), 1e-15);
        assertArrayEquals(density, wave.density(), 1e-15);
        assertArrayEquals(new double[] {1, 0, 0, 0, 0, 0, 0, 0}, wave.directions(), 1e-15);
        assertEquals(F, wave.frequencies()[7], 1e-15);
        assertEquals(25.0, wave.frequencies()[250], 1e-13);
        assertEquals(0.1, wave.resolution(), 1e-15);
    }

    @Test
    void fittedValuesAreWrittenBack() {
        PointWave wave = point("1.26 Hz", "0 m", "0.9 rad");
        assertEquals(1.3, wave.rate());
        assertEquals(Tanks.TWO_PI / 7, wave.sector(), 1e-15);
        assertEquals(7, wave.directions().length);
        assertEquals(List.of("Warning::Poor match"), wave.settings().remarks());
    }

    @Test
    void theStatisticsAreThoseOfASineWave() {
        Settings found = run.statistics("rate", "100 Hz", "x", "6 m", "y", "0 m");
        assertEquals(100.0, found.get("rate", "Hz"));
        assertEquals(1 / F, found.get("reg_t", "s"), 1e-4);
        // A crest is up to half a sample away from the nearest sample.
        double off = 1 - Math.cos(Tanks.TWO_PI * F * 0.005);
        assertEquals(2 * A, found.get("reg_h", "m"), 2 * A * off);
        assertEquals(2 * Math.sqrt(2) * A, found.get("Hs", "m"), 1e-12);
        assertEquals(1 / F, found.get("Ts", "s"), 1e-12);
        assertEquals(Math.sqrt(A / Math.sqrt(2)), found.get("Var", ""), 1e-12);
    }

    @Test
    void aWaveOutlivesItsRunAndItsExperiment() {
        PointWave wave = point("50 Hz", "6 m", "45 deg");
        double[] before = wave.elevation().clone();
        run.definition().build();
        fails(IllegalStateException.class,
                "this run of definition \"run\" is out of date: build it again",
                () -> point("50 Hz", "6 m", "45 deg"));
        fails(IllegalStateException.class,
                "this run of definition \"run\" is out of date: build it again",
                () -> run.statistics("rate", "50 Hz", "x", "6 m", "y", "0 m"));
        experiment.close();
        assertArrayEquals(before, wave.elevation());
        assertEquals(0.1, wave.resolution(), 1e-15);
    }

    @Test
    void refusedSettingsArriveWithTheMessagesOfTheLibrary() {
        refused("Value x=21 is outside dimensions of tank", "50 Hz", "21 m", "45 deg");
        refused("rate::-1 Hz gives no usable number of samples in a repeat time of 10 s", "-1 Hz",
                "6 m", "45 deg");
        refused("Value of delta_angle too small", "50 Hz", "6 m", "0 deg");
        refused("x::not convertable", "50 Hz", "6 s", "45 deg");
        fails(WaveSynthesisException.class, "rate::Not found", () -> run.point());
        fails(WaveSynthesisException.class, "rate::Not found", () -> run.statistics());
    }

    private void refused(String message, String rate, String x, String sector) {
        fails(WaveSynthesisException.class, message, () -> point(rate, x, sector));
    }

    @Test
    void fewerThanSixWavesHaveNoStatistics() {
        Run longWave = Tanks.wave(experiment, 0.5, A, 0).build();
        fails(WaveSynthesisException.class, "Insufficient zero crossings in time series",
                () -> longWave.statistics("rate", "50 Hz", "x", "6 m", "y", "0 m"));
    }

    @Test
    void nullSettingsAreNamed() {
        fails(NullPointerException.class, "settings", () -> run.point((Settings) null));
        fails(NullPointerException.class, "settings", () -> run.statistics((Settings) null));
    }
}
