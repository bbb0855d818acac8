package tidelab.waves;

import java.nio.file.Path;
import java.util.Objects;
import java.util.function.Consumer;
import tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI;

/**
 * Wave synthesis on one site: a tank, its wavemakers, and the runs that are defined for them.
 *
 * <p>Calls on one experiment take turns, so several threads may use it. Experiments are independent
 * of each other and run in parallel. {@link #close} frees the native memory; an experiment that is
 * never closed is freed after it has become unreachable.
 *
 * <p>Example: the drive signal of a wave of 25 mm amplitude.
 *
 * <pre>{@code
 * try (Experiment experiment = Experiment.open(Path.of("flume.site"))) {
 *     Definition definition = experiment.addDefinition("first run");
 *     definition.set("repeat", "64 s", "dalrymple", false, "wave_merge", WaveMerge.Null);
 *     Specification place = definition.addSpecification();
 *     place.set("x", "0 m", "y", "0 m", "t", "0 s");
 *     place.addSingle().set("f", "0.8 Hz", "a", "25 mm", "angle", "0 deg", "phase", "0 rad");
 *     double[] metres = definition.build().paddleMotion("50 Hz").signal(0, 0);
 * }
 * }</pre>
 */
public final class Experiment implements AutoCloseable {
    private final Handle handle;

    private Experiment(Handle handle) {
        this.handle = handle;
    }

    /**
     * Opens an experiment with the defaults of {@link Builder}.
     *
     * @param site the site script
     * @return the experiment
     * @throws tidelab.waves.component.WaveSynthesisException if the site cannot be read, or no tank
     *         can be made from it
     */
    public static Experiment open(Path site) {
        return builder().open(site);
    }

    /** {@return what opens an experiment in another way than the default} */
    public static Builder builder() {
        return new Builder();
    }

    /**
     * Opens an experiment. Example: {@code Experiment.builder().workers(4).silent().open(site)}.
     */
    public static final class Builder {
        private final SiteOptions options = new SiteOptions();

        private Builder() {}

        /**
         * Names the experiment in messages. The default is the path of the site.
         *
         * @param name the name
         * @return this
         */
        public Builder name(String name) {
            options.name(name);
            return this;
        }

        /**
         * Sets how many threads build drive signals and animations. Results are the same for every
         * number. The default is 1.
         *
         * @param workers the number of threads, the calling one included
         * @return this
         * @throws IllegalArgumentException if it is less than 1
         */
        public Builder workers(int workers) {
            options.workers(workers);
            return this;
        }

        /**
         * Hands the library's progress and log lines to a consumer instead of standard output. It
         * receives the lines of a call after the call has ended, on the calling thread, and may
         * itself use the experiment. If it throws, the call's result is not affected: the exception
         * goes to the thread's handler of uncaught exceptions, and the call's other lines are
         * discarded.
         *
         * @param consumer receives each line, without its end
         * @return this
         */
        public Builder output(Consumer<String> consumer) {
            options.output(consumer);
            return this;
        }

        /**
         * Discards the library's progress and log lines.
         *
         * @return this
         */
        public Builder silent() {
            return output(line -> {});
        }

        /**
         * Loads the library if necessary, and reads the site. If this fails, nothing stays behind.
         *
         * @param site the site script
         * @return the experiment
         * @throws tidelab.waves.component.WaveSynthesisException if the site cannot be read, or no
         *         tank can be made from it
         */
        public Experiment open(Path site) {
            return new Experiment(options.open("experiment", site));
        }
    }

    /** {@return whether the experiment has been closed} */
    public boolean isClosed() {
        return handle.isClosed();
    }

    /**
     * Frees the experiment with all its items, after the calls that are running have ended. Every
     * later use of it or of its items is an {@link IllegalStateException}. A second call does
     * nothing.
     */
    @Override
    public void close() {
        handle.close();
    }

    Handle handle() {
        return handle;
    }

    /**
     * {@return the parameters of formulas, without values}
     *
     * @param text formulas that are separated by {@code #}, as for a spectrum
     * @throws tidelab.waves.component.WaveSynthesisException if one of them is not a formula
     */
    public static Settings formulaParameters(String text) {
        Objects.requireNonNull(text, "text");
        try (Parameters parameters = Parameters.empty()) {
            KelpboxNativeLibraryJNI.Kelpbox_Experiment_get_params(text, parameters.address(), null);
            return parameters.readDeclared();
        }
    }
}
