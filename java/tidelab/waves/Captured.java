package tidelab.waves;

import java.util.function.Consumer;
import java.util.function.Supplier;

/** The lines that one call makes the library write to standard output, for a consumer. */
final class Captured {
    private final Consumer<String> consumer;
    private String text = "";

    /** Without a consumer nothing is captured. */
    Captured(Consumer<String> consumer) {
        this.consumer = consumer;
    }

    <T> T during(Supplier<T> call) {
        if (consumer == null)
            return call.get();
        Native.captureOutput(true);
        try {
            return call.get();
        } finally {
            text = Native.takeOutput();
            Native.captureOutput(false);
        }
    }

    /**
     * Hands over the lines. A consumer that throws must not turn a call that succeeded into one
     * that failed: what it throws goes to the thread's handler of uncaught exceptions, and the rest
     * of these lines are discarded.
     */
    void deliver() {
        if (text.isEmpty())
            return;
        try {
            text.lines().forEach(consumer);
        } catch (Throwable thrown) {
            Thread thread = Thread.currentThread();
            thread.getUncaughtExceptionHandler().uncaughtException(thread, thrown);
        }
    }
}
