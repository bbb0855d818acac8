package tidelab.waves;

import java.lang.ref.Cleaner;
import java.lang.ref.Reference;
import java.util.concurrent.locks.ReadWriteLock;
import java.util.concurrent.locks.ReentrantLock;
import java.util.concurrent.locks.ReentrantReadWriteLock;
import java.util.function.Consumer;
import java.util.function.LongConsumer;
import java.util.function.LongFunction;

/**
 * One native experiment or analysis: its address, its lock, and the end of its life.
 *
 * <p>Two locks protect it. Calls take turns by {@code turn}. Calls that watch an animation take no
 * turn; {@code life} keeps them apart from the few calls that add, remove or free native objects.
 * The order is always {@code turn} before {@code life}.
 */
final class Handle implements AutoCloseable {
    private static final Cleaner CLEANER = Cleaner.create();

    private final NativeCell cell;
    private final Cleaner.Cleanable cleanable;
    private final String label;
    private final Consumer<String> output;
    private final ReentrantLock turn = new ReentrantLock();
    private final ReadWriteLock life = new ReentrantReadWriteLock();
    private volatile boolean closing;
    private volatile boolean closed;
    private volatile Runnable stopper;

    /**
     * Makes the native object.
     *
     * @param label what messages call it, such as {@code experiment "basin.site"}
     * @param name the name that the library receives, in UTF-8
     * @param output receives the lines for standard output after each call; null to write them
     *         there
     */
    Handle(String label, byte[] name, Consumer<String> output) {
        Kelpbox.load();
        this.label = label;
        this.output = output;
        cell = new NativeCell();
        cleanable = CLEANER.register(this, cell);
        cell.own(Native.newExperiment(name));
    }

    /**
     * Calls the library with the address. Calls may be nested; the outermost one delivers the lines
     * that were written, after it has ended its turn.
     */
    <T> T call(LongFunction<T> body) {
        return take(body, false);
    }

    /** As {@link #call}. */
    void run(LongConsumer body) {
        call(address -> {
            body.accept(address);
            return null;
        });
    }

    /** As {@link #call}, for a body that adds, removes or frees what a watching thread may use. */
    <T> T change(LongFunction<T> body) {
        return take(body, true);
    }

    /**
     * Calls the library without waiting for the turn. Only for the progress, readiness and stopping
     * of an animation.
     */
    <T> T watch(LongFunction<T> body) {
        life.readLock().lock();
        try {
            return body.apply(address());
        } finally {
            life.readLock().unlock();
            Reference.reachabilityFence(this);
        }
    }

    private <T> T take(LongFunction<T> body, boolean alone) {
        Captured lines = output == null ? null : new Captured(output);
        try {
            turn.lock();
            try {
                if (alone)
                    life.writeLock().lock();
                try {
                    long address = address();
                    return lines != null && turn.getHoldCount() == 1
                            ? lines.during(() -> body.apply(address))
                            : body.apply(address);
                } finally {
                    if (alone)
                        life.writeLock().unlock();
                }
            } finally {
                turn.unlock();
                Reference.reachabilityFence(this);
            }
        } finally {
            if (lines != null)
                lines.deliver();
        }
    }

    /**
     * Runs a long body during a call, on the thread that has the turn. A {@link #close} on another
     * thread first runs {@code stop}, which must make the body end soon.
     */
    void stoppable(Runnable stop, Runnable body) {
        stopper = stop;
        try {
            // Either this sees that close has begun, or close sees the stopper.
            if (closing)
                throw new IllegalStateException(label + " is closed");
            body.run();
        } finally {
            stopper = null;
        }
    }

    private long address() {
        if (closed)
            throw new IllegalStateException(label + " is closed");
        return cell.address();
    }

    /**
     * Keeps a Vector that native code points at until {@link #release}, or the end of this object.
     */
    void keep(long vector) {
        cell.keep(vector);
    }

    /** Frees a Vector that native code does not point at any more. */
    void release(long vector) {
        cell.release(vector);
    }

    /** How many Vectors are kept, for tests. */
    int kept() {
        return cell.vectors();
    }

    boolean isClosed() {
        return closed;
    }

    String label() {
        return label;
    }

    @Override
    public String toString() {
        return label;
    }

    /**
     * Stops a build that is running, waits for all running calls, then frees the native object.
     * Later calls do nothing.
     */
    @Override
    public void close() {
        closing = true;
        Runnable stop = stopper;
        if (stop != null)
            stop.run();
        turn.lock();
        life.writeLock().lock();
        try {
            closed = true;
            cleanable.clean();
        } finally {
            life.writeLock().unlock();
            turn.unlock();
        }
    }

    /** How many native experiments and analyses exist, for tests. */
    static int live() {
        return NativeCell.live();
    }
}
