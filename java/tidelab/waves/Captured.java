package tidelab.waves;

import java.util.ArrayDeque;
import java.util.Queue;
import java.util.function.Consumer;
import java.util.function.Supplier;
import tidelab.waves.component.WaveSynthesisException;

/** The lines that one call makes the library write to standard output, for a consumer. */
final class Captured {
    /** What a thread has to deliver after the lines that it is delivering. */
    private static final ThreadLocal<Queue<Captured>> WAITING = new ThreadLocal<>();

    private final Consumer<String> consumer;
    /** Null for no lines. */
    private String text;

    Captured(Consumer<String> consumer) {
        this.consumer = consumer;
    }

    <T> T during(Supplier<T> call) {
        try {
            return collecting(call);
        } catch (WaveSynthesisException failure) {
            // For a site script that is refused, only the lines say what is wrong and where.
            if (text != null && failure.getCause() == null)
                failure.initCause(new WaveSynthesisException(text.strip()));
            throw failure;
        }
    }

    private <T> T collecting(Supplier<T> call) {
        Native.captureOutput(true);
        try {
            return call.get();
        } finally {
            try {
                text = Native.takeOutput();
            } finally {
                Native.captureOutput(false);
            }
        }
    }

    /**
     * Hands over the lines. Those of calls that the consumer makes follow when it has returned, so
     * that a consumer is never called from within itself.
     */
    void deliver() {
        if (text == null)
            return;
        Queue<Captured> waiting = WAITING.get();
        if (waiting != null) {
            waiting.add(this);
            return;
        }
        waiting = new ArrayDeque<>();
        WAITING.set(waiting);
        try {
            for (Captured next = this; next != null; next = waiting.poll()) next.hand();
        } finally {
            WAITING.remove();
        }
    }

    /**
     * A consumer that throws must not turn a call that succeeded into one that failed: what it
     * throws goes to the thread's handler of uncaught exceptions, and the rest of these lines are
     * discarded. As in the JVM, what the handler throws is ignored.
     */
    private void hand() {
        try {
            text.lines().forEach(consumer);
        } catch (Throwable thrown) {
            report(thrown);
        }
    }

    private static void report(Throwable thrown) {
        try {
            Thread thread = Thread.currentThread();
            thread.getUncaughtExceptionHandler().uncaughtException(thread, thrown);
        } catch (Throwable ignored) {
            // There is nobody else to report it to.
        }
    }
}
