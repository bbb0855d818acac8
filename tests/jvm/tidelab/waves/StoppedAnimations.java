package tidelab.waves;

import java.util.Arrays;
import java.util.EnumMap;
import java.util.Map;
import java.util.Random;
import java.util.concurrent.CancellationException;
import java.util.concurrent.CompletableFuture;
import java.util.concurrent.ExecutionException;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.Future;
import java.util.concurrent.locks.LockSupport;
import java.util.function.DoubleSupplier;
import tidelab.NativeExperiment;
import tidelab.waves.component.WaveSynthesisException;

/** Animations that are stopped at random moments of their builds, in every way that there is. */
final class StoppedAnimations {
    private static final double X_STEP = 0.04; // m
    private static final double RATE = 20; // Hz
    private static final Settings GRID =
            Surfaces.GRID.with("x_step", Quantity.of(X_STEP, "m")).with("rate", "20 Hz");
    private static final double REPEAT = 20; // s
    private static final double[] RECORD = Probes.sine(10, 2, 10); // mm

    private enum Way { CANCEL, CANCEL_FUTURE, CLOSE, CLOSE_EXPERIMENT, ABANDON, NATIVE_STOP }

    private final Random random = new Random(20240611);
    private final ExecutorService threads = Executors.newSingleThreadExecutor(task -> {
        Thread thread = new Thread(task, "builder");
        thread.setDaemon(true);
        return thread;
    });
    private final Map<Way, Integer> stopped = new EnumMap<>(Way.class);

    void stop(int number) {
        Way way = Way.values()[number % Way.values().length];
        if (way == Way.NATIVE_STOP ? stopNative() : stop(way))
            stopped.merge(way, 1, Integer::sum);
        // Else the moments of the garbage collector would show in the memory.
        if (way == Way.ABANDON)
            Tanks.live();
    }

    /** Of the builds, most must have been met in their middle. */
    void report(SoakTable table, int animations) {
        int least = animations / Way.values().length / 4;
        table.fact(
                Arrays.stream(Way.values()).allMatch(way -> stopped.getOrDefault(way, 0) >= least),
                "stopped before their end: " + stopped + ", at least " + least + " each");
    }

    /**
     * Waits until a random share has been built. With a negative one, the build may not run yet.
     */
    private void waitForRandomMoment(Future<?> build, DoubleSupplier progress) {
        double share = random.nextDouble(-0.1, 1.0);
        while (progress.getAsDouble() < share && !build.isDone()) LockSupport.parkNanos(10_000);
    }

    private boolean stop(Way way) {
        SafeExperiment experiment = new SafeExperiment();
        Animation animation = experiment.irregular(REPEAT, RECORD).animation(GRID);
        if (way == Way.ABANDON) {
            animation.buildSlice(0, random.nextInt(animation.columns()));
            return !animation.isReady();
        }
        CompletableFuture<Animation> build = animation.buildAsync(threads);
        waitForRandomMoment(build, animation::progress);
        switch (way) {
            case CANCEL -> animation.cancel();
            case CANCEL_FUTURE -> build.cancel(true);
            case CLOSE -> animation.close();
            default -> experiment.close();
        }
        boolean early = endedEarly(build);
        experiment.close();
        return early;
    }

    private boolean stopNative() {
        try (NativeExperiment experiment = new NativeExperiment(Tanks.FLUME.toString())) {
            long definition = experiment.irregular(REPEAT, RECORD);
            Future<?> build = threads.submit(() -> experiment.build(definition, RATE, X_STEP));
            waitForRandomMoment(build, () -> experiment.progress(definition));
            double progress = experiment.progress(definition);
            experiment.stop(definition);
            // It ends in silence if no column is in hand.
            endedEarly(build);
            if (progress > 0 && experiment.frames(definition) != 0)
                throw new AssertionError("frames are left");
            return progress > 0 && progress < 1;
        }
    }

    private static boolean endedEarly(Future<?> build) {
        try {
            build.get();
            return false;
        } catch (CancellationException early) {
            return true;
        } catch (ExecutionException failed) {
            Throwable cause = failed.getCause();
            boolean early = cause instanceof CancellationException
                    || cause instanceof IllegalStateException
                    || cause instanceof WaveSynthesisException
                            && cause.getMessage().equals("Animate Cancelled");
            if (early)
                return true;
            throw new AssertionError(cause);
        } catch (InterruptedException e) {
            throw new AssertionError(e);
        }
    }
}
