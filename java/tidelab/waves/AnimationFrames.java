package tidelab.waves;

import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import java.util.BitSet;
import java.util.function.LongFunction;
import tidelab.waves.component.WaveSynthesisException;

/**
 * The frames of one animation in the library, which holds those of one animation for each
 * definition. Columns are built in slices, since a whole build would show some waves of a single
 * harmonic with another length, and would write a line for each front and column.
 */
final class AnimationFrames {
    private final Run run;
    private final Settings requested;
    private final BuildWatch watch = new BuildWatch();
    private final BitSet built = new BitSet();
    /** False after a cancelled build: the library then has no frames to fill. */
    private boolean laidOut;
    private volatile boolean closed;

    AnimationFrames(Run run, Settings requested) {
        this.run = run;
        this.requested = requested;
    }

    Run run() {
        return run;
    }

    /**
     * Replaces the frames that the definition has, unless the grid is refused. Only during a call.
     *
     * @return the rate and the grid as fitted
     */
    Settings replace(long address) {
        // An init on frames that exist checks the grid and leaves the frames as they are.
        init(address);
        run.definition().frames(null);
        Settings fitted = layOut(address);
        run.definition().frames(this);
        return fitted;
    }

    private Settings init(long address) {
        try (Parameters parameters = Parameters.of(requested)) {
            Native.layOutFrames(address, id(), parameters.address());
            return parameters.read();
        }
    }

    private Settings layOut(long address) {
        Kelpbox_Experiment_animate_stop(address, null, id());
        Settings fitted = init(address);
        built.clear();
        laidOut = true;
        return fitted;
    }

    /** Only during a call. */
    long count(long address) {
        return Kelpbox_Experiment_animate_size(address, null, id());
    }

    /** For a build that is about to be requested. */
    long ticket() {
        return watch.ticket();
    }

    BuildFuture future() {
        return new BuildFuture(watch);
    }

    void cancel() {
        watch.cancel();
    }

    /** Builds those of the columns that have not been built, out of so many in all. */
    void build(long ticket, int first, int afterLast, int columns) {
        watch.require(ticket);
        run.call(address -> {
            watch.require(ticket);
            requireLatest();
            handle().stoppable(watch::cancel, () -> {
                watch.begin(ticket, () -> Kelpbox_Experiment_animate_stop(address, null, id()));
                try {
                    if (!laidOut)
                        layOut(address);
                    // A stop before the library has begun to lay out has no effect.
                    watch.require(ticket);
                    buildColumns(address, first, afterLast, columns);
                } finally {
                    if (watch.end(ticket))
                        drop(address, ticket);
                }
            });
            return null;
        });
    }

    /** After a cancellation, even one after the last column, there are no frames. */
    private void drop(long address, long ticket) {
        laidOut = false;
        Kelpbox_Experiment_animate_stop(address, null, id());
        watch.require(ticket);
    }

    private void buildColumns(long address, int first, int afterLast, int columns) {
        for (int from = built.nextClearBit(first); from < afterLast;
                from = built.nextClearBit(from)) {
            int next = built.nextSetBit(from);
            int to = next < 0 ? afterLast : Math.min(next, afterLast);
            double before = Kelpbox_Experiment_animate_progress(address, null, id());
            try {
                Native.buildColumns(address, id(), from, to);
                built.set(from, to);
            } catch (WaveSynthesisException refused) {
                // The columns before the refused one are built, and must not be counted twice. The
                // addend absorbs the rounding of the two shares.
                double after = Kelpbox_Experiment_animate_progress(address, null, id());
                built.set(from, from + (int) (Math.max(0, after - before) * columns + 1e-6));
                throw refused;
            }
        }
    }

    double progress() {
        return watching(address -> Kelpbox_Experiment_animate_progress(address, null, id()));
    }

    boolean ready() {
        return watching(address -> Kelpbox_Experiment_animate_ready(address, null, id()));
    }

    private <T> T watching(LongFunction<T> question) {
        return handle().watch(address -> {
            run.requireCurrent();
            requireLatest();
            return question.apply(address);
        });
    }

    short[] frame(int index) {
        return run.call(address -> {
            requireLatest();
            if (!laidOut) {
                throw new IllegalStateException(
                        label() + " has no frames: its last build was cancelled");
            }
            return Native.frame(address, id(), index);
        });
    }

    boolean isClosed() {
        return closed;
    }

    void close() {
        closed = true;
        watch.cancel();
        try {
            handle().change(address -> {
                if (run.definition().frames() == this) {
                    run.definition().frames(null);
                    Kelpbox_Experiment_animate_free(address, null, id());
                }
                return null;
            });
        } catch (IllegalStateException closedExperiment) {
            // It has freed the frames.
        }
    }

    /** Such as: animation of definition "first run". */
    String label() {
        return "animation of " + run.definition();
    }

    private void requireLatest() {
        if (closed)
            throw new IllegalStateException(label() + " is closed");
        if (run.definition().frames() != this) {
            throw new IllegalStateException(
                    "this " + label() + " is out of date: another one has been made");
        }
    }

    private Handle handle() {
        return run.definition().experiment().handle();
    }

    private long id() {
        return run.definition().id();
    }
}
