package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tidelab.waves.Tanks.fails;

import java.util.Arrays;
import java.util.List;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.function.Executable;
import tidelab.waves.component.WaveSynthesisException;

/** What a run holds, what is built from it, and when it is out of date. */
class RunTest {
    private static final String STALE =
            "this run of definition \"run\" is out of date: build it again";

    private Experiment experiment;

    @BeforeEach
    void open() {
        experiment = Tanks.flume();
    }

    @AfterEach
    void close() {
        experiment.close();
    }

    @Test
    void aSingleWaveDrivesThePistonAsInTheClosedForm() {
        double rate = 50;
        PaddleMotion motion = Tanks.wave(experiment, 0.7, 0.04, 0.3).build().paddleMotion("50 Hz");
        assertEquals(Quantity.of(rate, "Hz"), motion.rate());
        assertEquals(List.of(), motion.remarks());
        // The library's explicit wave number is within a few parts in 1e5 of the exact one.
        double stroke = Tanks.stroke(0.7, 0.04);
        double[] expected = new double[500];
        for (int j = 0; j < 500; ++j) {
            expected[j] = stroke * Math.cos(Tanks.TWO_PI * 0.7 * j / rate + 0.3 - Math.PI / 2);
        }
        assertArrayEquals(expected, motion.signal(0, 0), 1e-4 * stroke);
        assertArrayEquals(new double[][] {motion.signal(0, 0)}, motion.signals(0));
        assertEquals(List.of(), motion.statistics(0).names());
    }

    @Test
    void aSignalThatClipsIsReported() {
        PaddleMotion motion = Tanks.wave(experiment, 0.5, 0.5, 0).build().paddleMotion("100 Hz");
        double peak = Arrays.stream(motion.signal(0, 0)).map(Math::abs).max().orElseThrow();
        Settings clipped = motion.statistics(0);
        assertEquals(1.0, clipped.get("clip_peak_ratio", ""));
        assertEquals(1 - Math.pow(0.3 / peak, 2), clipped.get("clip_power_ratio", ""), 1e-6);
    }

    @Test
    void theRepeatTimeHasItsHarmonics() {
        Definition definition = Tanks.wave(experiment, 0.7, 0.04, 0);
        definition.set("repeat", "10.0004 s");
        Repeat repeat = definition.build().repeat();
        assertEquals(new Repeat(10.0, 21, 1, 20, false), repeat);
        assertEquals(0.7, repeat.frequency(7), 1e-15);
        fails(IndexOutOfBoundsException.class,
                "harmonic 21 does not exist: they count from 0 to 20", () -> repeat.frequency(21));
    }

    @Test
    void frontsAndMessagesAreThoseOfTheRun() {
        Definition definition = Tanks.definition(experiment, "run");
        Specification place = Tanks.place(definition);
        Tanks.single(place, 0.5, 0.02, 0.25);
        Tanks.single(place, 0.55, 0.01, 0);
        Tanks.single(place, 5.0, 0.01, 0);
        Specification later = definition.addSpecification();
        later.set("x", "3 m", "y", "0.1 m", "t", "2 s");
        Tanks.single(later, 1.0, 0.03, 0);
        Run run = definition.build();
        assertEquals(2, run.sets());
        assertEquals(new Position(3, 0.1, 2), run.position(1));
        TransferFront first = run.fronts(0).get(0);
        assertEquals(new TransferFront(5, 0.02, 0, 0.25), first);
        assertEquals(10, run.fronts(1).get(0).harmonic());
        assertEquals(3, run.allFronts().size());
        assertEquals(3, run.fronts().size());
        assertEquals(0.02, run.fronts().get(0).amplitude(), 1e-15);
        assertEquals(List.of("Single frequency 0.55Hz altered to 0.6Hz to fit repeat time",
                             "Discarding single frequency 5 as it is out of range"),
                run.messages());
    }

    @Test
    void placesThatDoNotExistAreNamed() {
        Run run = Tanks.wave(experiment, 0.5, 0.02, 0).build();
        PaddleMotion motion = run.paddleMotion("50 Hz");
        String none = " does not exist: they count from 0 to 0";
        fails(IndexOutOfBoundsException.class, "set 1" + none, () -> run.position(1));
        fails(IndexOutOfBoundsException.class, "set -1" + none, () -> run.fronts(-1));
        fails(IndexOutOfBoundsException.class, "bank 1" + none, () -> motion.signal(1, 0));
        fails(IndexOutOfBoundsException.class, "bank -1" + none, () -> motion.signals(-1));
        fails(IndexOutOfBoundsException.class, "bank 2" + none, () -> motion.statistics(2));
        fails(IndexOutOfBoundsException.class, "paddle 1" + none, () -> motion.signal(0, 1));
    }

    @Test
    void resultsAreCopies() {
        PaddleMotion motion = Tanks.wave(experiment, 0.5, 0.02, 0).build().paddleMotion("50 Hz");
        double[] signal = motion.signal(0, 0);
        double first = signal[0];
        signal[0] = 99;
        assertEquals(first, motion.signal(0, 0)[0]);
        assertThrows(UnsupportedOperationException.class, experiment.banks()::clear);
    }

    @Test
    void aRunIsOutOfDateAfterTheNextBuild() {
        Definition definition = Tanks.wave(experiment, 0.5, 0.02, 0);
        Run first = definition.build();
        Run second = definition.build();
        staleIs(STALE, first, null);
        assertEquals(1, second.fronts().size());
        definition.addSpecification();
        fails(WaveSynthesisException.class, "Evaluating specification before values set",
                definition::build);
        staleIs(STALE, second, null);
    }

    @Test
    void aRunIsOutOfDateAfterASetOfItsDefinition() {
        Definition definition = Tanks.wave(experiment, 0.5, 0.02, 0);
        Run run = definition.build();
        definition.set("repeat", "20 s");
        staleIs(STALE, run, null);
        Run next = definition.build();
        assertThrows(WaveSynthesisException.class, () -> definition.set("repeat", "20 m"));
        staleIs(STALE, next, null);
    }

    @Test
    void aRunStaysAsItIsWhenItsItemsChange() {
        Definition definition = Tanks.wave(experiment, 0.5, 0.02, 0);
        Run run = definition.build();
        Specification place = definition.specifications().get(0);
        place.components().get(0).set("a", "50 mm");
        experiment.set("beach", "0.5 m");
        Tanks.wave(experiment, 1.0, 0.1, 0).build();
        place.remove();
        assertEquals(0.02, run.fronts().get(0).amplitude(), 1e-15);
        double stroke = Tanks.stroke(0.5, 0.02);
        assertEquals(stroke, max(run.paddleMotion("50 Hz").signal(0, 0)), 1e-3 * stroke);
    }

    @Test
    void aPaddleMotionIsOutOfDateAfterTheNext() {
        Run run = Tanks.wave(experiment, 0.5, 0.02, 0).build();
        PaddleMotion first = run.paddleMotion("50 Hz");
        PaddleMotion second = run.paddleMotion("25 Hz");
        String stale = "this paddle motion of definition \"run\" is out of date: use the latest, or"
                + " build it again";
        fails(IllegalStateException.class, stale, () -> first.signal(0, 0));
        assertEquals(250, second.signal(0, 0).length);
        assertThrows(WaveSynthesisException.class, () -> run.paddleMotion("1 m"));
        fails(IllegalStateException.class, stale, () -> second.signals(0));
        fails(IllegalStateException.class, stale, () -> second.statistics(0));
        assertEquals(1, run.fronts().size());
    }

    @Test
    void aRunEndsWithItsDefinition() {
        Definition removed = Tanks.wave(experiment, 0.5, 0.02, 0);
        Run ofRemoved = removed.build();
        PaddleMotion motionOfRemoved = ofRemoved.paddleMotion("50 Hz");
        removed.remove();
        staleIs("definition \"run\" has been removed", ofRemoved, motionOfRemoved);
        Run ofCleared = Tanks.wave(experiment, 0.5, 0.02, 0).build();
        experiment.clear();
        staleIs("definition \"run\" has been removed", ofCleared, null);
    }

    @Test
    void aRateThatIsNotOneIsRefused() {
        Run run = Tanks.wave(experiment, 0.5, 0.02, 0).build();
        fails(WaveSynthesisException.class, "rate::not convertable", () -> run.paddleMotion("1 m"));
        fails(WaveSynthesisException.class, "rate::not convertable", () -> run.paddleMotion(50));
        fails(WaveSynthesisException.class,
                "rate::5e+07 Hz gives no usable number of samples in a repeat time of 10 s",
                () -> run.paddleMotion("50 MHz"));
        fails(NullPointerException.class, "value of \"rate\"", () -> run.paddleMotion(null));
    }

    @Test
    void aDefinitionWithoutSpecificationsIsNotBuilt() {
        Definition definition = Tanks.wave(experiment, 0.5, 0.02, 0);
        definition.build();
        definition.specifications().get(0).remove();
        fails(IllegalStateException.class, "definition \"run\" has no specification to build",
                definition::build);
    }

    @Test
    void anItemThatWasNeverSetIsReportedByTheLibrary() {
        Definition definition = Tanks.definition(experiment, "run");
        Tanks.place(definition).addSingle();
        fails(WaveSynthesisException.class, "Single::evaluate::when not ready", definition::build);
        Definition unset = experiment.addDefinition("unset");
        Tanks.place(unset);
        fails(WaveSynthesisException.class, "Evaluate before setting state", unset::build);
    }

    private static double max(double[] signal) {
        double max = Arrays.stream(signal).max().orElseThrow();
        assertTrue(max > 0);
        return max;
    }

    private static void staleIs(String message, Run run, PaddleMotion motion) {
        List<Executable> uses = List.of(run::repeat, run::sets, run::fronts, run::allFronts,
                run::messages,
                () -> run.position(0), () -> run.fronts(0), () -> run.paddleMotion("50 Hz"));
        for (Executable use : uses) fails(IllegalStateException.class, message, use);
        if (motion == null)
            return;
        fails(IllegalStateException.class, message, () -> motion.signal(0, 0));
        fails(IllegalStateException.class, message, () -> motion.statistics(0));
    }

    @Test
    void experimentRunAndMotionSayWhatTheyAre() {
        Run run = Tanks.wave(experiment, 1.0, 0.02, 0).build();
        assertEquals("experiment \"flume\"", experiment.toString());
        assertEquals("run of definition \"run\"", run.toString());
        assertEquals("paddle motion of definition \"run\" at 50.0 Hz",
                run.paddleMotion("50 Hz").toString());
    }
}
