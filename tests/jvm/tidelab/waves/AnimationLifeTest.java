package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tidelab.waves.Surfaces.GRID;
import static tidelab.waves.Tanks.fails;

import java.util.List;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.function.Executable;
import tidelab.waves.component.WaveSynthesisException;

/** How an animation ends, and what every use of it says then. */
class AnimationLifeTest {
    private Experiment experiment;
    private Definition definition;
    private Run run;
    private Animation animation;

    @BeforeEach
    void open() {
        experiment = Tanks.flume();
        definition = Tanks.wave(experiment, 0.7, 0.1, 0.3);
        run = definition.build();
        animation = run.animation(GRID).build();
    }

    @AfterEach
    void close() {
        experiment.close();
    }

    private void everyUseFails(String message) {
        List<Executable> uses = List.of(()
                                                -> animation.build(),
                ()
                        -> animation.buildSlice(0, 1),
                () -> animation.progress(), () -> animation.isReady(), () -> animation.frame(0));
        for (Executable use : uses) {
            fails(IllegalStateException.class, message, use);
        }
        animation.cancel();
        assertEquals(200, animation.frames());
        assertEquals(20.0, animation.x(20));
    }

    @Test
    void anotherAnimationTakesItsPlace() {
        Animation other = run.animation(GRID.with("x_step", "2 m"));
        everyUseFails("this animation of definition \"run\" is out of date: "
                + "another one has been made");
        animation.close();
        other.build();
        assertTrue(other.isReady());
        assertEquals(11 * 5, other.frame(199).length);
    }

    @Test
    void anAnimationOfAnotherDefinitionDoesNotAffectIt() {
        short[] before = animation.frame(5);
        Run other = Tanks.wave(experiment, 0.5, 0.05, 0).build();
        other.animation(GRID.with("x_step", "2 m")).build().close();
        assertTrue(animation.isReady());
        assertArrayEquals(before, animation.frame(5));
    }

    @Test
    void itEndsWithItsRun() {
        Run next = definition.build();
        everyUseFails("this run of definition \"run\" is out of date: build it again");
        assertEquals(0.0, next.animation(GRID).progress());
        animation.close();
    }

    @Test
    void aSetOfTheDefinitionEndsIt() {
        definition.set("repeat", "20 s");
        everyUseFails("this run of definition \"run\" is out of date: build it again");
    }

    @Test
    void itEndsWithItsDefinition() {
        definition.remove();
        everyUseFails("definition \"run\" has been removed");
        animation.close();
    }

    @Test
    void clearEndsIt() {
        experiment.clear();
        everyUseFails("definition \"run\" has been removed");
        animation.close();
    }

    @Test
    void itEndsWithItsExperiment() {
        experiment.close();
        everyUseFails("experiment \"flume\" is closed");
        animation.close();
        assertTrue(animation.isClosed());
    }

    @Test
    void aClosedAnimationSaysSoAndMakesRoomForAnother() {
        assertFalse(animation.isClosed());
        animation.close();
        animation.close();
        assertTrue(animation.isClosed());
        everyUseFails("animation of definition \"run\" is closed");
        Animation other = run.animation(GRID);
        animation.close();
        assertTrue(other.build().isReady());
    }

    @Test
    void closingFreesTheFramesEvenOfAnOlderRun() {
        definition.build();
        assertEquals(105, nativeFrame().length);
        animation.close();
        fails(WaveSynthesisException.class, "invalid vector<T> subscript", this::nativeFrame);
    }

    private short[] nativeFrame() {
        return experiment.handle().call(address -> Native.frame(address, definition.id(), 0));
    }

    @Test
    void closingAnOlderAnimationKeepsTheFramesOfItsSuccessor() {
        Animation other = run.animation(GRID).build();
        short[] before = other.frame(3);
        animation.close();
        assertArrayEquals(before, other.frame(3));
    }

    @Test
    void framesThatWereReturnedStayAsTheyWere() {
        short[] frame = animation.frame(5);
        short[] copy = frame.clone();
        experiment.close();
        assertArrayEquals(copy, frame);
    }
}
