package tidelab.waves;

import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.Kelpbox_Experiment_animate_stop;

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
import tidelab.NativeExperiment;
import tidelab.waves.component.WaveSynthesisException;

/** Animations that are stopped at random moments of their builds, in every way that there is. */
final class StoppedAnimations {
    private static final double X_STEP = 0.02; // m
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
    private long whole = undisturbed();

    /** The time in ns that a build takes. */
    private static long undisturbed() {
        long least = Long.MAX_VALUE;
        for (int i = 0; i < 10; ++i) {
            try (SafeExperiment experiment = new SafeExperiment()) {
                Animation animation = experiment.irregular(REPEAT, RECORD).animation(GRID);
                long begin = System.nanoTime();
                animation.build();
                least = Math.min(least, System.nanoTime() - begin);
            }
        }
        return least;
    }

    void stop(int number) {
        Way way = Way.values()[number % Way.values().length];
        if (way == Way.NATIVE_STOP ? stopNative() : stop(way))
            stopped.merge(way, 1, Integer::sum);
    }

    /** Of the builds, most must have been met in their middle. */
    void report(SoakTable table, int animations) {
        int least = animations / Way.values().length / 4;
        table.fact(
                Arrays.stream(Way.values()).allMatch(way -> stopped.getOrDefault(way, 0) >= least),
                "stopped before their end: " + stopped + ", at least " + least + " each");
    }

    private void waitUpToAWholeBuild() {
        long end = System.nanoTime() + (long) (whole * random.nextDouble());
        while (System.nanoTime() < end) LockSupport.parkNanos(10_000);
    }

    private boolean stop(Way way) {
        SafeExperiment experiment = new SafeExperiment();
        Animation animation = experiment.irregular(REPEAT, RECORD).animation(GRID);
        if (way == Way.ABANDON) {
            animation.buildSlice(0, random.nextInt(animation.columns()));
            return !animation.isReady();
        }
        CompletableFuture<Animation> build = animation.buildAsync(threads);
        waitUpToAWholeBuild();
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
            waitUpToAWholeBuild();
            Kelpbox_Experiment_animate_stop(experiment.address(), null, definition);
            return endedEarly(build);
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
