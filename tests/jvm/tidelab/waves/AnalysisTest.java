package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.Future;
import java.util.concurrent.TimeUnit;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;

/** Waves of known form are found again in their records. */
class AnalysisTest {
    private static final double OMEGA = Tanks.TWO_PI * 0.7;

    private Analysis analysis;

    @BeforeEach
    void open() {
        analysis = Probes.analysis();
    }

    @AfterEach
    void close() {
        analysis.close();
    }

    @Test
    void regularWavesHaveTheirPeriodAndHeights() {
        Series high = analysis.addSeries(50, Probes.sine(0.05, 2, 40));
        Series low = analysis.addSeries(50, Probes.sine(0.03, 2, 40));
        ZeroCrossings waves = analysis.createSet(List.of(high, low), "0 s", "40 s").zeroCrossings();
        assertTrue(waves.regular());
        assertEquals(2.0, waves.period(), 1e-9);
        assertArrayEquals(new double[] {0.10, 0.06}, waves.heights(), 1e-12);
        assertEquals(0.08, waves.height(), 1e-12);
    }

    /** Waves of 1.2 s and 2 s in turn. Of 12, the one at two thirds by height is a high one. */
    @Test
    void irregularWavesHaveTheHeightAtTwoThirds() {
        double[] record = waves(new double[] {1.2, 2}, new double[] {0.02, 0.05}, 12);
        ZeroCrossings found = evaluate(record);
        assertFalse(found.regular());
        assertEquals(0.10, found.height(), 1e-12);
        assertEquals(2.0, found.period(), 1e-9);
        assertEquals(0, found.heights().length);
    }

    /** Two evaluations by one process would count an outlier twice. */
    @Test
    void aSecondEvaluationEqualsTheFirst() {
        double[] periods = new double[10];
        Arrays.fill(periods, 2);
        periods[4] = 2.4;
        double[] amplitudes = new double[10];
        Arrays.fill(amplitudes, 0.05);
        Series series = analysis.addSeries(50, waves(periods, amplitudes, 10));
        ProbeSet set = analysis.createSet(List.of(series), "0 s", seconds(series));
        ZeroCrossings first = set.zeroCrossings();
        assertTrue(first.regular());
        assertEquals(2.0, first.period(), 1e-9);
        for (int i = 0; i < 3; ++i) {
            ZeroCrossings again = set.zeroCrossings();
            assertEquals(first, again);
            assertEquals(first.hashCode(), again.hashCode());
        }
    }

    /** Waves one after the other, between half a wave at the start and at the end. */
    private static double[] waves(double[] periods, double[] amplitudes, int count) {
        List<Double> samples = new ArrayList<>();
        appendHalf(samples, -1);
        for (int i = 0; i < count; ++i) {
            double period = periods[i % periods.length];
            for (int j = 0; j < Math.round(period * Probes.RATE); ++j) {
                double phase = Tanks.TWO_PI * j / Probes.RATE / period;
                samples.add(amplitudes[i % amplitudes.length] * Math.sin(phase));
            }
        }
        appendHalf(samples, 1);
        return samples.stream().mapToDouble(Double::doubleValue).toArray();
    }

    private static void appendHalf(List<Double> samples, int sign) {
        for (int j = 0; j < 50; ++j) {
            samples.add(sign * 0.01 * Math.sin(Math.PI * j / 50));
        }
    }

    private static Quantity seconds(Series series) {
        return Quantity.of(series.size() / Probes.RATE, "s");
    }

    private ZeroCrossings evaluate(double[] record) {
        Series series = analysis.addSeries(50, record);
        return analysis.createSet(List.of(series), "0 s", seconds(series)).zeroCrossings();
    }

    @Test
    void separationRecoversAllWaveTrains() {
        double[][] records = new double[5][1000];
        double k = Tanks.waveNumber(OMEGA);
        double free = Tanks.waveNumber(2 * OMEGA);
        Probes.addTrain(records, 0.040, OMEGA, k, 0.3);
        Probes.addTrain(records, 0.010, OMEGA, -k, -0.8);
        Probes.addTrain(records, 0.004, 2 * OMEGA, 2 * k, 1.1);
        Probes.addTrain(records, 0.001, 2 * OMEGA, -2 * k, 0.4);
        Probes.addTrain(records, 0.003, 2 * OMEGA, free, -0.5);
        Probes.addTrain(records, 0.002, 2 * OMEGA, -free, 2.0);
        ProbeSet set = analysis.createSet(Probes.add(analysis, records), "0 s", "20 s");
        WaveTrains trains = set.waveTrains("freq", "0.7 Hz", "angle", "0 deg");
        // The library's explicit wave numbers are within a few parts in 1e5 of the exact ones. Over
        // the tank this adds up to a few parts in 1e4 of a wave.
        assertEquals(0.040, trains.forwardFreeFundamental(), 2e-5);
        assertEquals(0.010, trains.backwardFreeFundamental(), 2e-5);
        assertEquals(0.25, trains.reflection(), 1e-3);
        assertEquals(0.004, trains.forwardBoundHarmonic(), 2e-5);
        assertEquals(0.001, trains.backwardBoundHarmonic(), 2e-5);
        assertEquals(0.003, trains.forwardFreeHarmonic(), 2e-5);
        assertEquals(0.002, trains.backwardFreeHarmonic(), 2e-5);
        assertEquals(trains, set.waveTrains("freq", "0.7 Hz", "angle", "0 deg"));
    }

    @Test
    void theOppositeDirectionExchangesForwardAndBackward() {
        double[][] records = new double[5][1000];
        double k = Tanks.waveNumber(OMEGA);
        Probes.addTrain(records, 0.040, OMEGA, k, 0.3);
        Probes.addTrain(records, 0.010, OMEGA, -k, -0.8);
        ProbeSet set = analysis.createSet(Probes.add(analysis, records), "0 s", "20 s");
        WaveTrains trains = set.waveTrains("freq", "0.7 Hz", "angle", "180 deg");
        assertEquals(0.010, trains.forwardFreeFundamental(), 2e-5);
        assertEquals(0.040, trains.backwardFreeFundamental(), 2e-5);
    }

    @Test
    void threeProbesSeparateTheFundamentalOnly() {
        double[][] records = new double[3][1000];
        double k = Tanks.waveNumber(OMEGA);
        Probes.addTrain(records, 0.040, OMEGA, k, 0.3);
        Probes.addTrain(records, 0.004, 2 * OMEGA, 2 * k, 1.1);
        WaveTrains trains = analysis.createSet(Probes.add(analysis, records), "0 s", "20 s")
                                    .waveTrains("freq", "0.7 Hz", "angle", "0 deg");
        assertEquals(0.040, trains.forwardFreeFundamental(), 2e-5);
        assertEquals(0.0, trains.forwardBoundHarmonic());
        assertEquals(0.0, trains.forwardFreeHarmonic());
    }

    /** One sine in two halves of different height: each window sees its own. */
    @Test
    void aSetSeesItsWindowOnly() {
        double[] record = Probes.sine(0.05, 2, 40);
        for (int j = 1000; j < 2000; ++j) {
            record[j] *= 0.5;
        }
        List<Series> series = List.of(analysis.addSeries(50, record));
        ProbeSet first = analysis.createSet(series, "0 s", "20 s");
        ProbeSet second = analysis.createSet(series, Quantity.of(20, "s"), "40 s");
        assertArrayEquals(new double[] {0.10}, first.zeroCrossings().heights(), 1e-12);
        assertArrayEquals(new double[] {0.05}, second.zeroCrossings().heights(), 1e-12);
        assertEquals(series, first.series());
        assertSame(analysis, first.analysis());
    }

    @Test
    void samplesAndHeightsAreCopies() {
        double[] record = Probes.sine(0.05, 2, 40);
        Series series = analysis.addSeries(50, record);
        Arrays.fill(record, 0);
        assertEquals(2000, series.size());
        ZeroCrossings waves = analysis.createSet(List.of(series), "0 s", "40 s").zeroCrossings();
        waves.heights()[0] = 7;
        assertEquals(0.10, waves.heights()[0], 1e-12);
        analysis.close();
        assertEquals(0.10, waves.heights()[0], 1e-12);
    }

    @Test
    void theSiteCanBeReadAndTunedBetweenEvaluations() {
        assertEquals(0.25, analysis.settings().get("beach", "m"));
        assertEquals(0.3, analysis.set("beach", "30 cm").get("beach", "m"), 1e-15);
        double[] depths = analysis.profile(Settings.of("delta_x", "5 m"));
        for (double depth : depths) {
            assertEquals(Tanks.DEPTH, depth, 1e-12);
        }
        assertTrue(depths.length >= 4, "depths: " + depths.length);
        assertTrue(evaluate(Probes.sine(0.05, 2, 40)).regular());
        assertEquals(0.3, analysis.settings().get("beach", "m"), 1e-15);
        assertEquals(depths.length, analysis.profile("delta_x", "5 m").length);
        assertEquals(Geometry.TwoDimensional, analysis.constants().choice("geometry"));
    }

    /** Threads share one analysis, and others have their own. */
    @Test
    void threadsGetTheirOwnResults() throws Exception {
        ExecutorService threads = Executors.newFixedThreadPool(4);
        List<Future<ZeroCrossings>> found = new ArrayList<>();
        for (int i = 0; i < 40; ++i) {
            double height = 0.01 * (i + 1);
            found.add(threads.submit(() -> {
                if (height > 0.2) {
                    return evaluate(Probes.sine(height / 2, 2, 40));
                }
                try (Analysis own = Probes.analysis()) {
                    Series series = own.addSeries(50, Probes.sine(height / 2, 2, 40));
                    return own.createSet(List.of(series), "0 s", "40 s").zeroCrossings();
                }
            }));
        }
        threads.shutdown();
        for (int i = 0; i < 40; ++i) {
            assertEquals(0.01 * (i + 1), found.get(i).get(20, TimeUnit.SECONDS).height(), 1e-12);
        }
    }

    @Test
    void seriesAndSetsSayWhatTheyAre() {
        Series series = analysis.addSeries(50, Probes.sine(0.05, 2, 40));
        assertEquals("series of 2000 samples, rate = 50.0 Hz", series.toString());
        assertEquals("set of 1 series of " + analysis,
                analysis.createSet(List.of(series), "0 s", "40 s").toString());
    }
}
