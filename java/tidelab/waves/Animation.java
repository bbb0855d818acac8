package tidelab.waves;

import java.util.Objects;
import java.util.concurrent.CancellationException;
import java.util.concurrent.CompletableFuture;
import java.util.concurrent.Executor;
import tidelab.waves.component.WaveSynthesisException;

/**
 * The water surface over a grid of the tank, for each sample of the repeat time, before any paddle
 * moves. Made by {@link Run#animation(Object...)}, which checks the grid and takes the memory.
 *
 * <pre>{@code
 * try (Animation animation = run.animation("rate", "10 Hz", "x_step", "25 cm", "x_min", "0 m",
 *         "x_max", "30 m", "y_step", "25 cm", "y_min", "0 m", "y_max", "20 m")) {
 *     animation.build();
 *     for (int t = 0; t < animation.frames(); ++t) {
 *         short[] frame = animation.frame(t);
 *         double metres = Animation.height(frame[animation.index(12, 3)]);
 *         draw(animation.time(t), animation.x(12), animation.y(3), metres);   // s, m, m, m
 *     }
 * }
 * }</pre>
 *
 * <p><b>Frames</b> hold 16-bit numbers in steps of 4 m / 32767. Nothing is clamped: a height of
 * 4.0002 m wraps around to almost -4 m. NaN becomes 0. Oblique waves over a slope are shown too
 * high, as at a point ({@link PointWave}). Columns that have not been built hold arbitrary heights.
 * A frame takes two bytes for each point, in the library's memory, until the animation is closed or
 * replaced or its definition ends.
 *
 * <p><b>Threads.</b> {@link #progress}, {@link #isReady} and {@link #cancel} return at once, on any
 * thread. Everything else takes turns with all other calls to the experiment, which wait while a
 * build runs. {@link #close} and {@link Experiment#close} cancel a build and wait for its end.
 *
 * <p><b>Validity.</b> A definition has one animation. It is out of date once another one has been
 * made for the definition, and together with its run. Every use is then an
 * {@link IllegalStateException}, except of the grid, {@link #cancel} and {@link #close}. Frames
 * that it has returned are copies and stay valid.
 */
public final class Animation implements AutoCloseable {
    private static final double STEP = 4.0 / 32767; // m

    private final AnimationFrames frames;
    private final Settings settings;
    private final AnimationGrid grid;

    private Animation(AnimationFrames frames, Settings settings, AnimationGrid grid) {
        this.frames = frames;
        this.settings = settings;
        this.grid = grid;
    }

    /** Only during a call. */
    static Animation of(Run run, Settings requested, long address) {
        AnimationFrames frames = new AnimationFrames(run, requested);
        Settings fitted = frames.replace(address);
        try {
            return new Animation(frames, fitted, AnimationGrid.of(fitted, frames.count(address)));
        } catch (RuntimeException refused) {
            frames.close();
            throw refused;
        }
    }

    /** {@return the run that is shown} */
    public Run run() {
        return frames.run();
    }

    /** {@return the rate and the grid as the library has fitted them, with its remarks} */
    public Settings settings() {
        return settings;
    }

    /**
     * Builds all columns that have not been built yet, on this thread.
     *
     * @return this
     * @throws CancellationException if {@link #cancel} or {@code close} has ended the build
     * @throws WaveSynthesisException if the grid leaves the tank. The columns inside it have been
     *         built.
     */
    public Animation build() {
        return build(frames.ticket(), 0, columns());
    }

    /**
     * Builds all columns that have not been built yet, on a thread of the executor. Cancelling the
     * future stops the build as {@link #cancel} does, with all other builds of this animation: the
     * future is cancelled at once, the library ends its work within moments, and no frames are
     * left.
     *
     * @param executor runs the build; what it throws if it refuses the task is not caught
     * @return completes with this animation, or with what {@link #build} throws
     */
    public CompletableFuture<Animation> buildAsync(Executor executor) {
        Objects.requireNonNull(executor, "executor");
        long ticket = frames.ticket();
        BuildFuture future = frames.future();
        executor.execute(() -> {
            try {
                future.complete(build(ticket, 0, columns()));
            } catch (Throwable thrown) {
                future.completeExceptionally(thrown);
            }
        });
        return future;
    }

    /**
     * Builds some columns, unless they have been built. Slices may come in any order, and finished
     * columns can be drawn between them. A change of the site in between shows only in columns that
     * are built after it.
     *
     * @param firstColumn the first column
     * @param afterLast the column after the last one, at most {@link #columns}
     * @throws IndexOutOfBoundsException if the grid does not have these columns
     * @throws CancellationException if {@link #cancel} or {@code close} has ended the build
     * @throws WaveSynthesisException if a column is outside the tank
     */
    public void buildSlice(int firstColumn, int afterLast) {
        if (firstColumn < 0 || firstColumn > afterLast || afterLast > columns()) {
            throw new IndexOutOfBoundsException("columns " + firstColumn + " to " + afterLast
                    + " do not exist: the grid has " + columns());
        }
        build(frames.ticket(), firstColumn, afterLast);
    }

    private Animation build(long ticket, int first, int afterLast) {
        frames.build(ticket, first, afterLast, columns());
        return this;
    }

    /**
     * The share of the grid that has been built. On any thread, without waiting.
     *
     * @return 0 to 1; 0 after a cancelled build
     */
    public double progress() {
        return frames.progress();
    }

    /**
     * Whether the whole grid has been built. On any thread, without waiting.
     *
     * @return whether it has
     */
    public boolean isReady() {
        return frames.ready();
    }

    /**
     * Cancels each build of this animation that runs or waits for its turn. On any thread, without
     * waiting: a running build ends at the next check of the library, within moments. No frames are
     * left then; the next build starts from the beginning. Does nothing if there is no build, in
     * particular to frames that are complete.
     */
    public void cancel() {
        frames.cancel();
    }

    /** {@return the number of frames, which show the times from 0 to the repeat time} */
    public int frames() {
        return grid.frames();
    }

    /** {@return frames per second, in Hz} */
    public double rate() {
        return grid.rate();
    }

    /** {@return the number of points along the tank} */
    public int columns() {
        return (int) grid.x().count();
    }

    /** {@return the number of points across the tank} */
    public int rows() {
        return (int) grid.y().count();
    }

    /**
     * {@return the distance of a column from the paddle line, in m}
     *
     * @param column its number, from 0
     * @throws IndexOutOfBoundsException if there is no such column
     */
    public double x(int column) {
        return grid.x().at(Checks.index(column, columns(), "column"));
    }

    /**
     * {@return the position of a row across the tank, in m}
     *
     * @param row its number, from 0
     * @throws IndexOutOfBoundsException if there is no such row
     */
    public double y(int row) {
        return grid.y().at(Checks.index(row, rows(), "row"));
    }

    /**
     * {@return the time that a frame shows, in s}
     *
     * @param frame its number, from 0
     * @throws IndexOutOfBoundsException if there is no such frame
     */
    public double time(int frame) {
        return Checks.index(frame, frames(), "frame") / rate();
    }

    /**
     * {@return the place of a point in a frame}
     *
     * @param column its column, from 0
     * @param row its row, from 0
     * @throws IndexOutOfBoundsException if the grid has no such point
     */
    public int index(int column, int row) {
        return rows() * Checks.index(column, columns(), "column")
                + Checks.index(row, rows(), "row");
    }

    /**
     * {@return a copy of a frame; {@link #height} converts its elements}
     *
     * @param index the number of the frame, from 0
     * @throws IndexOutOfBoundsException if there is no such frame
     * @throws IllegalStateException if the last build was cancelled
     */
    public short[] frame(int index) {
        return frames.frame(Checks.index(index, frames(), "frame"));
    }

    /**
     * {@return the height of the surface in m}
     *
     * @param element an element of a frame
     */
    public static double height(short element) {
        return element * STEP;
    }

    /** {@return whether the animation has been closed} */
    public boolean isClosed() {
        return frames.isClosed();
    }

    /**
     * Cancels a build, waits for its end, and frees the frames. A second call does nothing, and
     * neither does one after another animation has taken the place of this one.
     */
    @Override
    public void close() {
        frames.close();
    }

    /** {@return such as: animation of definition "first run"} */
    @Override
    public String toString() {
        return frames.label();
    }
}
