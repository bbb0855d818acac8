package tidelab.waves;

import java.util.concurrent.CancellationException;

/**
 * Lets any thread cancel the builds of one animation, without waiting for them.
 *
 * <p>A build takes a ticket when it is requested. A cancellation makes all earlier tickets void, so
 * a build that still waits for its turn is cancelled, too. The library is only stopped while a
 * build runs: a stop at another time would take the frames of an animation that is complete.
 */
final class BuildWatch {
    private long cancellations;
    private Runnable running;

    synchronized long ticket() {
        return cancellations;
    }

    /** Throws CancellationException if the ticket is void. */
    synchronized void require(long ticket) {
        if (ticket != cancellations) {
            throw new CancellationException("the build of the animation was cancelled");
        }
    }

    /** As {@link #require}. From here on, a cancellation stops the library. */
    synchronized void begin(long ticket, Runnable stop) {
        require(ticket);
        running = stop;
    }

    /** Returns whether the build has been cancelled. Any later cancellation comes too late. */
    synchronized boolean end(long ticket) {
        running = null;
        return ticket != cancellations;
    }

    synchronized void cancel() {
        ++cancellations;
        if (running != null)
            running.run();
    }
}
