package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static org.junit.jupiter.api.Assertions.fail;
import static tidelab.waves.Surfaces.FINE;
import static tidelab.waves.Surfaces.GRID;
import static tidelab.waves.Surfaces.SLOW;
import static tidelab.waves.Surfaces.await;
import static tidelab.waves.Tanks.fails;

import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.CancellationException;
import java.util.concurrent.CompletableFuture;
import java.util.concurrent.ExecutionException;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.Future;
import java.util.concurrent.TimeUnit;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;

/** Builds that other threads watch, cancel and close. */
class AnimationThreadsTest {
    /** In s. The slow build would take several times as long. */
    private static final int LIMIT = 10;

    private final ExecutorService threads = Executors.newCachedThreadPool();
    private Experiment experiment;
    private Run run;

    @BeforeEach
    void open() {
        experiment = Tanks.flume();
        run = Surfaces.crossedSea(experiment);
    }

    @AfterEach
    void close() {
        experiment.close();
        threads.shutdown();
    }

    private static void running(Animation animation) throws Exception {
        await(() -> animation.progress() > 0);
    }

    private static Throwable failure(Future<?> future) {
        return assertThrows(ExecutionException.class, () -> future.get(LIMIT, TimeUnit.SECONDS))
                .getCause();
    }

    private static void hasNoFrames(Animation animation) {
        assertEquals(0.0, animation.progress());
        assertFalse(animation.isReady());
        fails(IllegalStateException.class,
                "animation of definition \"sea\" has no frames: its last build was cancelled",
                () -> animation.frame(0));
    }

    @Test
    void progressGrowsUntilTheFutureCompletes() throws Exception {
        Animation animation = run.animation(FINE);
        CompletableFuture<Animation> future = animation.buildAsync(threads);
        List<Double> seen = new ArrayList<>();
        await(() -> {
            seen.add(animation.progress());
            return animation.isReady();
        });
        assertSame(animation, future.get(LIMIT, TimeUnit.SECONDS));
        assertEquals(1.0, animation.progress());
        assertTrue(seen.stream().distinct().count() > 3, "progress was " + seen);
        assertEquals(seen.stream().sorted().toList(), seen);
    }

    @Test
    void anotherThreadCancelsABuild() throws Exception {
        Animation animation = run.animation(SLOW);
        Future<Animation> builder = threads.submit(animation::build);
        running(animation);
        animation.cancel();
        Throwable thrown = failure(builder);
        assertEquals(CancellationException.class, thrown.getClass());
        assertEquals("the build of the animation was cancelled", thrown.getMessage());
        hasNoFrames(animation);
    }

    @Test
    void aCancelledAnimationCanBeBuiltAgain() throws Exception {
        Animation animation = run.animation(FINE);
        short[] expected = animation.build().frame(20);
        animation.cancel();
        assertTrue(animation.isReady());
        assertArrayEquals(expected, animation.frame(20));

        Animation again = run.animation(FINE);
        Future<Animation> builder = threads.submit(again::build);
        running(again);
        again.cancel();
        failure(builder);
        assertEquals(1.0, again.build().progress());
        assertArrayEquals(expected, again.frame(20));
    }

    @Test
    void cancellingTheFutureStopsTheBuild() throws Exception {
        Animation animation = run.animation(SLOW);
        CompletableFuture<Animation> future = animation.buildAsync(threads);
        running(animation);
        assertTrue(future.cancel(true));
        assertTrue(future.isCancelled());
        assertThrows(CancellationException.class, future::get);
        // This waits for its turn after the build.
        threads.submit(() -> hasNoFrames(animation)).get(LIMIT, TimeUnit.SECONDS);
    }

    @Test
    void aFutureThatWasCancelledBeforeItsTurnBuildsNothing() {
        List<Runnable> tasks = new ArrayList<>();
        Animation animation = run.animation(GRID);
        CompletableFuture<Animation> future = animation.buildAsync(tasks::add);
        future.cancel(true);
        tasks.get(0).run();
        assertTrue(future.isCancelled());
        assertEquals(0.0, animation.progress());
        assertEquals(1.0, animation.build().progress());
    }

    @Test
    void aCancelledFutureThatIsDoneDoesNotCancelTheNextBuild() throws Exception {
        Animation animation = run.animation(GRID);
        List<Runnable> tasks = new ArrayList<>();
        CompletableFuture<Animation> done = animation.buildAsync(Runnable::run);
        CompletableFuture<Animation> next = animation.buildAsync(tasks::add);
        assertFalse(done.cancel(true));
        tasks.get(0).run();
        assertSame(animation, next.get());
    }

    @Test
    void aBuildThatWaitsForItsTurnIsCancelledToo() throws Exception {
        Run other = Tanks.wave(experiment, 0.7, 0.1, 0).build();
        Animation waiting = other.animation(GRID);
        Animation first = run.animation(SLOW);
        Future<Animation> running = threads.submit(first::build);
        running(first);
        CompletableFuture<Animation> future = waiting.buildAsync(threads);
        waiting.cancel();
        first.cancel();
        failure(running);
        assertThrows(CancellationException.class, () -> future.get(LIMIT, TimeUnit.SECONDS));
        assertEquals(0.0, waiting.progress());
    }

    @Test
    void theFutureOfABuildThatFailsHasTheMessageOfTheLibrary() {
        Animation animation = run.animation(GRID.with("x_max", "22 m"));
        CompletableFuture<Animation> future = animation.buildAsync(threads);
        assertEquals("Value x=21 is outside dimensions of tank", failure(future).getMessage());
    }

    @Test
    void closingTheExperimentCancelsABuild() throws Exception {
        Animation animation = run.animation(SLOW);
        Future<Animation> builder = threads.submit(animation::build);
        running(animation);
        experiment.close();
        assertEquals(CancellationException.class, failure(builder).getClass());
        fails(IllegalStateException.class, "experiment \"flume\" is closed", animation::progress);
        fails(IllegalStateException.class, "experiment \"flume\" is closed", animation::build);
        animation.close();
    }

    @Test
    void aBuildThatWaitsWhileTheExperimentClosesDoesNotBegin() throws Exception {
        Animation waiting = Tanks.wave(experiment, 0.7, 0.1, 0).build().animation(SLOW);
        Animation first = run.animation(SLOW);
        Future<Animation> builder = threads.submit(first::build);
        running(first);
        CompletableFuture<Animation> future = waiting.buildAsync(threads);
        experiment.close();
        assertEquals(CancellationException.class, failure(builder).getClass());
        Throwable refused = failure(future);
        assertEquals(IllegalStateException.class, refused.getClass());
        assertEquals("experiment \"flume\" is closed", refused.getMessage());
    }

    @Test
    void aBuildThatGetsItsTurnAfterACloseHasBegunDoesNotBegin() throws Exception {
        Handle handle = experiment.handle();
        Thread closer = new Thread(experiment::close);
        handle.run(address -> {
            closer.start();
            while (closer.getState() != Thread.State.WAITING) {
                Thread.onSpinWait();
            }
            fails(IllegalStateException.class, "experiment \"flume\" is closed",
                    () -> handle.stoppable(() -> {}, () -> fail("has begun")));
        });
        closer.join(TimeUnit.SECONDS.toMillis(LIMIT));
        assertTrue(experiment.isClosed());
    }

    @Test
    void closingTheAnimationCancelsABuild() throws Exception {
        Animation animation = run.animation(SLOW);
        Future<Animation> builder = threads.submit(animation::build);
        running(animation);
        animation.close();
        assertEquals(CancellationException.class, failure(builder).getClass());
        fails(IllegalStateException.class, "animation of definition \"sea\" is closed",
                animation::build);
        assertEquals(1.0, run.animation(GRID).build().progress());
    }

    /** Items come and go between builds, while threads watch. */
    @Test
    void watchingIsSafeWhileTheExperimentChanges() throws Exception {
        Animation animation = run.animation(GRID);
        Future<?> changes = threads.submit(() -> {
            for (int i = 0; i < 200; ++i) {
                Definition added = Tanks.wave(experiment, 0.7, 0.1, 0);
                added.build().animation(GRID).build();
                added.remove();
            }
        });
        Future<?> removals = threads.submit(() -> {
            Definition removed = Tanks.wave(experiment, 0.5, 0.1, 0);
            Animation its = removed.build().animation(GRID);
            while (!changes.isDone()) {
                its.progress();
            }
            removed.remove();
            fails(IllegalStateException.class, "definition \"run\" has been removed",
                    its::progress);
        });
        while (!changes.isDone()) {
            assertTrue(animation.progress() <= 1);
            animation.isReady();
            animation.cancel();
        }
        assertNull(changes.get());
        assertNull(removals.get(LIMIT, TimeUnit.SECONDS));
        assertTrue(animation.build().isReady());
    }
}
