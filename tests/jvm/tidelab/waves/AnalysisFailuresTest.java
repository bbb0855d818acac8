package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tidelab.waves.Tanks.fails;

import java.nio.file.Path;
import java.util.Arrays;
import java.util.List;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.function.Executable;
import tidelab.waves.component.WaveSynthesisException;

/** What an analysis refuses, with which exception and message. */
class AnalysisFailuresTest {
    private Analysis analysis;
    private Series series;

    @BeforeEach
    void open() {
        analysis = Probes.analysis();
        series = analysis.addSeries(50, Probes.sine(0.05, 2, 40));
    }

    @AfterEach
    void close() {
        analysis.close();
    }

    private static void refused(String message, Executable call) {
        fails(WaveSynthesisException.class, message, call);
    }

    private ProbeSet set(double[]... records) {
        return analysis.createSet(Probes.add(analysis, records), "0 s", "20 s");
    }

    private static WaveTrains trains(ProbeSet set) {
        return set.waveTrains("freq", "0.7 Hz", "angle", "0 rad");
    }

    private static double[] wave() {
        return Probes.sine(0.05, 1 / 0.7, 20);
    }

    @Test
    void aWindowMustContainSamplesOfTheRecord() {
        List<Series> one = List.of(series);
        refused("Out of range", () -> analysis.createSet(one, "5 s", "5 s"));
        refused("Out of range", () -> analysis.createSet(one, "-1 s", "5 s"));
        refused("Out of range", () -> analysis.createSet(one, "6 s", "5 s"));
        refused("out of range 2", () -> analysis.createSet(one, "0 s", "40.02 s"));
        assertEquals(2.0, analysis.createSet(one, "0 s", "40 s").zeroCrossings().period(), 1e-9);
    }

    @Test
    void aTimeThatIsNaNIsNamed() {
        List<Series> one = List.of(series);
        Quantity never = Quantity.of(Double.NaN, "s");
        fails(IllegalArgumentException.class, "\"start_time\" is NaN",
                () -> analysis.createSet(one, never, "5 s"));
        fails(IllegalArgumentException.class, "\"stop_time\" is NaN",
                () -> analysis.createSet(one, "0 s", never));
    }

    @Test
    void valuesOfAnotherKindAreNamed() {
        List<Series> one = List.of(series);
        refused("start_time::not convertable", () -> analysis.createSet(one, "0 m", "5 s"));
        refused("stop_time::not convertable", () -> analysis.createSet(one, "0 s", 5));
        Series wrong = analysis.addSeries(Settings.of("rate", "50 m"), new double[100]);
        refused("rate::not convertable", () -> analysis.createSet(List.of(wrong), "0 s", "1 s"));
        Series none = analysis.addSeries(Settings.none(), new double[100]);
        refused("rate::Not found", () -> analysis.createSet(List.of(none), "0 s", "1 s"));
        fails(IllegalArgumentException.class,
                "\"start_time\": \"soon\" is not a number with units, such as \"80 mm\"",
                () -> analysis.createSet(one, "soon", "5 s"));
    }

    @Test
    void aProbeNeedsSixWaves() {
        String message = "Insufficient zero crossings in time series";
        refused(message, () -> analysis.createSet(List.of(series), "0 s", "12 s").zeroCrossings());
        Series still = analysis.addSeries(50, new double[2000]);
        refused(message, () -> analysis.createSet(List.of(still), "0 s", "40 s").zeroCrossings());
        Series empty = analysis.addSeries(50, new double[0]);
        refused("out of range 2", () -> analysis.createSet(List.of(empty), "0 s", "1 s"));
    }

    @Test
    void separationNeedsThreeIndependentProbes() {
        refused("At least two data sets must be provided for frequency analysis",
                () -> trains(set(wave())));
        refused("Too few independant probes to process", () -> trains(set(wave(), wave())));
        List<Series> together = List.of(analysis.addSeries(Probes.at(8), wave()),
                analysis.addSeries(Probes.at(8.001), wave()),
                analysis.addSeries(Probes.at(9), wave()));
        refused("Too few independant probes to process",
                () -> trains(analysis.createSet(together, "0 s", "20 s")));
    }

    @Test
    void separationNeedsRecordsOfOneLength() {
        Settings half = Probes.at(9).with("rate", "25 Hz");
        List<Series> mixed = List.of(analysis.addSeries(Probes.at(8), wave()),
                analysis.addSeries(half, Probes.sine(0.05, 1, 10)),
                analysis.addSeries(Probes.at(10), wave()));
        refused("Inconsistent sizes of data sets",
                () -> trains(analysis.createSet(mixed, "0 s", "20 s")));
    }

    @Test
    void separationNeedsPositions() {
        List<Series> nowhere = List.of(series, series, series);
        refused("x::Not found", () -> trains(analysis.createSet(nowhere, "0 s", "20 s")));
        Series wrong = analysis.addSeries(Probes.at(8).with("x", "3 s"), wave());
        refused("Unable to convert from \"s\" to \"m\"",
                () -> trains(analysis.createSet(List.of(wrong, wrong), "0 s", "20 s")));
    }

    @Test
    void separationNeedsFrequencyAndAngle() {
        ProbeSet set = set(wave(), wave(), wave());
        refused("freq::Not found", () -> set.waveTrains("angle", "0 rad"));
        refused("angle::Not found", () -> set.waveTrains("freq", "0.7 Hz"));
        refused("freq::not convertable", () -> set.waveTrains("freq", "1 m", "angle", "0 rad"));
        refused("angle::not convertable", () -> set.waveTrains("freq", "1 Hz", "angle", "0 m"));
    }

    /** A wave at 0.16 of the rate: its fourth harmonic is element 640 of 501. */
    @Test
    void harmonicsBeyondTheSpectrumAreRefused() {
        double[] fast = Probes.sine(0.05, 1 / 8.0, 20);
        WaveSynthesisException failure = assertThrows(
                WaveSynthesisException.class, () -> trains(set(fast, fast, fast, fast, fast)));
        assertTrue(failure.getMessage().matches("Index \\d+ out of range"), failure.getMessage());
    }

    @Test
    void aFailureLeavesTheAnalysisUsable() {
        ProbeSet set = set(wave(), wave());
        assertThrows(WaveSynthesisException.class, () -> trains(set));
        assertEquals(1 / 0.7, set.zeroCrossings().period(), 1e-3);
        assertEquals(0.25, analysis.settings().get("beach", "m"));
    }

    @Test
    void seriesOfAnotherAnalysisAreRefused() {
        try (Analysis other = Analysis.builder().name("other").silent().open(Tanks.FLUME)) {
            Series foreign = other.addSeries(50, wave());
            fails(IllegalArgumentException.class,
                    "series[1] is of analysis \"other\", not of analysis \"flume\"",
                    () -> analysis.createSet(List.of(series, foreign), "0 s", "20 s"));
        }
    }

    @Test
    void aSetNeedsASeries() {
        fails(IllegalArgumentException.class, "series: a set needs at least one",
                () -> analysis.createSet(List.of(), "0 s", "20 s"));
    }

    @Test
    void nullArgumentsAreNamed() {
        List<Series> one = List.of(series);
        named("samples", () -> analysis.addSeries(50, null));
        named("probe", () -> analysis.addSeries(null, new double[1]));
        named("series", () -> analysis.createSet(null, "0 s", "1 s"));
        named("series[1]", () -> analysis.createSet(Arrays.asList(series, null), "0 s", "1 s"));
        named("start", () -> analysis.createSet(one, null, "1 s"));
        named("stop", () -> analysis.createSet(one, "0 s", null));
        named("settings", () -> analysis.createSet(one, "0 s", "1 s").waveTrains((Settings) null));
        named("settings", () -> analysis.set((Settings) null));
        named("settings", () -> analysis.profile((Settings) null));
        named("site", () -> Analysis.open(null));
    }

    private static void named(String argument, Executable call) {
        fails(NullPointerException.class, argument, call);
    }

    @Test
    void nothingWorksOnAClosedAnalysis() {
        ProbeSet set = analysis.createSet(List.of(series), "0 s", "40 s");
        analysis.close();
        analysis.close();
        assertTrue(analysis.isClosed());
        List<Executable> uses = List.of(()
                                                -> analysis.addSeries(50, new double[1]),
                ()
                        -> analysis.createSet(List.of(series), "0 s", "1 s"),
                ()
                        -> set.zeroCrossings(),
                ()
                        -> trains(set),
                ()
                        -> analysis.settings(),
                ()
                        -> analysis.constants(),
                ()
                        -> analysis.set("beach", "0.3 m"),
                () -> analysis.profile(Settings.of("delta_x", "1 m")));
        for (Executable use : uses) {
            fails(IllegalStateException.class, "analysis \"flume\" is closed", use);
        }
    }

    @Test
    void aSiteThatCannotBeReadLeavesNothingBehind() {
        int before = Handle.live();
        refused("File \"/nowhere.site\" does not exist",
                () -> Analysis.open(Path.of("/nowhere.site")));
        assertEquals(before, Handle.live());
    }

    @Test
    void aRefusedValueLeavesTheSiteAsItWas() {
        assertThrows(WaveSynthesisException.class, () -> analysis.set("beach", "0.3 s"));
        assertThrows(IllegalArgumentException.class, () -> analysis.set("beech", "0.3 m"));
        assertEquals(0.25, analysis.settings().get("beach", "m"));
        assertTrue(analysis.createSet(List.of(series), "0 s", "40 s").zeroCrossings().regular());
    }
}
