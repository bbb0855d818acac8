package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tidelab.waves.Surfaces.COLUMNS;
import static tidelab.waves.Surfaces.FRAMES;
import static tidelab.waves.Surfaces.GRID;
import static tidelab.waves.Surfaces.ROWS;
import static tidelab.waves.Tanks.fails;

import java.util.List;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.function.Executable;
import tidelab.waves.component.WaveSynthesisException;

/** What the frames of an animation hold, and when an animation is out of date. */
class AnimationTest {
    /** The library's explicit wave number is within a few parts in 1e5 of the exact one. */
    private static final double TOLERANCE = 4 * 4.0 / 32767;

    private Experiment experiment;
    private Definition definition;

    @BeforeEach
    void open() {
        experiment = Tanks.flume();
        definition = Tanks.wave(experiment, 0.7, 0.1, 0.3);
    }

    @AfterEach
    void close() {
        experiment.close();
    }

    private static void showsWave(Animation animation, double f) {
        for (int t = 0; t < animation.frames(); t += 13) {
            assertArrayEquals(Surfaces.plane(animation, t, f, 0.1, 0.3),
                    Surfaces.metres(animation.frame(t)), TOLERANCE, "frame " + t);
        }
    }

    @Test
    void framesShowAWaveAsInLinearTheory() {
        Animation animation = definition.build().animation(GRID);
        assertSame(animation, animation.build());
        assertEquals(FRAMES, animation.frames());
        assertEquals(COLUMNS * ROWS, animation.frame(0).length);
        showsWave(animation, 0.7);
    }

    /** Five waves in 10 s of 100 samples: a shorter cycle would need 2.5 of them. */
    @Test
    void aWaveOfOneHarmonicIsShownOverTheWholeRepeatTime() {
        Run run = Tanks.wave(experiment, 0.5, 0.1, 0.3).build();
        Animation animation = run.animation(GRID.with("rate", "10 Hz")).build();
        assertEquals(100, animation.frames());
        showsWave(animation, 0.5);
    }

    @Test
    void theGridIsTheOneThatTheLibraryHasFitted() {
        Animation animation = definition.build().animation(
                GRID.with("x_step", "90 cm").with("rate", "20.04 Hz").with("y_step", "0.4 m"));
        assertEquals(20.0, animation.rate());
        assertEquals(23, animation.columns());
        assertEquals(20.0 / 22, animation.settings().get("x_step", "m"), 1e-15);
        assertEquals(100.0 / 11, animation.x(10), 1e-14);
        assertEquals(20.0, animation.x(22));
        assertEquals(4, animation.rows());
        assertEquals(List.of("Warning::Poor match"), animation.settings().remarks());
        assertEquals(-0.5, animation.y(0));
        assertEquals(0.5, animation.y(3));
        assertEquals(9.95, animation.time(199), 1e-14);
        assertEquals(4 * 22 + 3, animation.index(22, 3));
        assertEquals(4.0, Animation.height(Short.MAX_VALUE));
    }

    @Test
    void aStepOfMoreThanTwiceTheRangeLeavesOnePoint() {
        Animation animation = definition.build()
                                      .animation(GRID.with("x_step", "50 m")
                                                         .with("y_step", "3 m")
                                                         .with("x_min", "2 m"))
                                      .build();
        assertEquals(1, animation.columns());
        assertEquals(1, animation.rows());
        assertEquals(2.0, animation.x(0));
        assertEquals(-0.5, animation.y(0));
        showsWave(animation, 0.7);
    }

    @Test
    void slicesInAnyOrderGiveTheWholeAnimation() {
        Run run = definition.build();
        short[] whole = run.animation(GRID).build().frame(77);
        Animation animation = run.animation(GRID);
        assertEquals(0.0, animation.progress());
        int done = 0;
        for (int first : new int[] {14, 0, 7}) {
            assertFalse(animation.isReady());
            animation.buildSlice(first, first + 7);
            done += 7;
            assertEquals(done / (double) COLUMNS, animation.progress(), 1e-15);
        }
        assertTrue(animation.isReady());
        assertArrayEquals(whole, animation.frame(77));
    }

    @Test
    void columnsThatAreBuiltCountOnce() {
        Animation animation = definition.build().animation(GRID);
        for (int i = 0; i < 3; ++i) {
            animation.buildSlice(3, 12);
            assertEquals(9.0 / COLUMNS, animation.progress(), 1e-15);
        }
        animation.buildSlice(0, 5);
        assertEquals(12.0 / COLUMNS, animation.progress(), 1e-15);
        assertFalse(animation.isReady());
        animation.build();
        assertEquals(1.0, animation.progress());
        assertTrue(animation.isReady());
        showsWave(animation, 0.7);
    }

    @Test
    void severalWorkersGiveTheSameFrames() {
        short[] alone = definition.build().animation(GRID).build().frame(50);
        try (Experiment other = Experiment.builder().workers(3).silent().open(Tanks.FLUME)) {
            Run run = Tanks.wave(other, 0.7, 0.1, 0.3).build();
            assertArrayEquals(alone, run.animation(GRID).build().frame(50));
        }
    }

    @Test
    void aGridBeyondTheTankIsBuiltAsFarAsTheTankGoes() {
        Animation animation = definition.build().animation(GRID.with("x_max", "22 m"));
        for (int i = 0; i < 2; ++i) {
            fails(WaveSynthesisException.class, "Value x=21 is outside dimensions of tank",
                    animation::build);
            assertEquals(21.0 / 23, animation.progress(), 1e-15);
            assertFalse(animation.isReady());
        }
        double[] expected = Surfaces.plane(animation, 9, 0.7, 0.1, 0.3);
        double[] heights = Surfaces.metres(animation.frame(9));
        for (int i = 0; i < 21 * ROWS; ++i) {
            assertEquals(expected[i], heights[i], TOLERANCE);
        }
    }

    @Test
    void refusedSettingsArriveWithTheMessagesOfTheLibrary() {
        Run run = definition.build();
        refused(run, "rate::Not found", GRID.without("rate"));
        refused(run, "x_step::not convertable", GRID.with("x_step", "1 s"));
        refused(run, "x_max not greater than x_min", GRID.with("x_max", "0 m"));
        refused(run, "y_max not greater than y_min", GRID.with("y_max", "-1 m"));
        refused(run, "x_step::-1 m gives no usable grid from 0 m to 20 m",
                GRID.with("x_step", "-1 m"));
        refused(run, "rate::-1 Hz gives no usable number of samples in a repeat time of 10 s",
                GRID.with("rate", "-1 Hz"));
    }

    private static void refused(Run run, String message, Settings settings) {
        fails(WaveSynthesisException.class, message, () -> run.animation(settings));
    }

    @Test
    void aRefusedGridLeavesTheAnimationThatExists() {
        Run run = definition.build();
        Animation animation = run.animation(GRID).build();
        refused(run, "x_max not greater than x_min", GRID.with("x_max", "0 m"));
        assertTrue(animation.isReady());
        showsWave(animation, 0.7);
    }

    @Test
    void placesThatDoNotExistAreRefused() {
        Animation animation = definition.build().animation(GRID).build();
        outOfRange(
                "frame 200 does not exist: they count from 0 to 199", () -> animation.frame(200));
        outOfRange("frame -1 does not exist: they count from 0 to 199", () -> animation.frame(-1));
        outOfRange("frame 200 does not exist: they count from 0 to 199", () -> animation.time(200));
        outOfRange("column 21 does not exist: they count from 0 to 20", () -> animation.x(21));
        outOfRange("row 5 does not exist: they count from 0 to 4", () -> animation.index(0, 5));
        outOfRange(
                "columns 0 to 22 do not exist: the grid has 21", () -> animation.buildSlice(0, 22));
        outOfRange(
                "columns -1 to 2 do not exist: the grid has 21", () -> animation.buildSlice(-1, 2));
        outOfRange(
                "columns 3 to 2 do not exist: the grid has 21", () -> animation.buildSlice(3, 2));
    }

    private static void outOfRange(String message, Executable call) {
        fails(IndexOutOfBoundsException.class, message, call);
    }

    /**
     * The machine hardly ever has the memory for such frames, so that the library refuses first.
     */
    @Test
    void aFrameMustFitIntoAnArray() {
        Settings fitted = GRID.with("x_step", "0.01 mm").with("y_step", "0.001 mm");
        fails(IllegalArgumentException.class,
                "a frame of 2000001 by 1000001 points is more than a Java array can hold",
                () -> AnimationGrid.of(fitted, 1));
        assertEquals(20, AnimationGrid.of(GRID, 1).x().at(20));
    }

    @Test
    void nullArgumentsAreNamed() {
        Run run = definition.build();
        fails(NullPointerException.class, "settings", () -> run.animation((Settings) null));
        Animation animation = run.animation(GRID);
        fails(NullPointerException.class, "executor", () -> animation.buildAsync(null));
    }
}
