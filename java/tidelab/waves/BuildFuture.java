package tidelab.waves;

import java.util.concurrent.CompletableFuture;

/** The result of a build in the background. Cancelling it stops the build. */
final class BuildFuture extends CompletableFuture<Animation> {
    private final BuildWatch watch;

    BuildFuture(BuildWatch watch) {
        this.watch = watch;
    }

    /** An interrupt would not reach the library, so the argument changes nothing. */
    @Override
    public boolean cancel(boolean mayInterruptIfRunning) {
        boolean open = !isDone();
        boolean cancelled = super.cancel(mayInterruptIfRunning);
        if (open && cancelled)
            watch.cancel();
        return cancelled;
    }
}
