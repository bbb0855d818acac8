package tidelab.waves;

import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import java.util.Objects;
import java.util.function.Consumer;

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
    private final List<Definition> definitions = new ArrayList<>();
    private List<Bank> banks;

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
         * receives the lines of a call after the call has ended, on the calling thread. It may use
         * the experiment; the lines of its own calls follow when it has returned. If the call fails
         * with a {@link tidelab.waves.component.WaveSynthesisException}, the lines are also the
         * message of its cause. If the consumer throws, the call's result is not affected: the
         * exception goes to the thread's handler of uncaught exceptions, and the call's other lines
         * are discarded.
         *
         * @param consumer receives each line, without its end
         * @return this
         */
        public Builder output(Consumer<String> consumer) {
            options.output(consumer);
            return this;
        }

        /**
         * Discards the library's progress and log lines. Those of a call that fails are the message
         * of the cause of its {@link tidelab.waves.component.WaveSynthesisException}.
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

    /** {@return the names of the site, the tank and the configuration} */
    public String siteName() {
        return handle.call(Native::siteName);
    }

    /** {@return those names and a checksum of the script, which identify the site} */
    public String siteText() {
        return handle.call(Native::siteText);
    }

    /** {@return what the site fixes: extents of the tank, limits of frequency, and others} */
    public Settings constants() {
        return handle.call(Site::constants);
    }

    /** {@return the tunable values of the site, such as the depth of the water} */
    public Settings settings() {
        return handle.call(Site::settings);
    }

    /**
     * Tunes the site. Names that are left out keep their values. Runs take the change into account
     * at their next build. A failure leaves the site as it was.
     *
     * @param settings values by names that {@link #settings} has
     * @return what the library wrote back, with its remarks
     * @throws IllegalArgumentException if a name does not exist, or a number is not finite
     * @throws tidelab.waves.component.WaveSynthesisException if a value is refused, or no tank can
     *         be made from the values
     */
    public Settings set(Settings settings) {
        Objects.requireNonNull(settings, "settings");
        return handle.call(address -> {
            Settings before = Site.settings(address);
            return Site.set(address, before, before.updated(settings, handle.label()));
        });
    }

    /**
     * Tunes the site, as {@link #set(Settings)}.
     *
     * @param namesAndValues as for {@link Settings#of}
     * @return what the library wrote back
     */
    public Settings set(Object... namesAndValues) {
        return set(Settings.of(namesAndValues));
    }

    /**
     * {@return the depths in m along the tank, from one end to the other}
     *
     * @param settings {@code delta_x}, the distance between two depths
     * @throws tidelab.waves.component.WaveSynthesisException if it is missing or refused
     */
    public double[] profile(Settings settings) {
        Objects.requireNonNull(settings, "settings");
        return handle.call(address -> Site.profile(address, settings));
    }

    /**
     * {@return the depths in m along the tank, as {@link #profile(Settings)}}
     *
     * @param namesAndValues as for {@link Settings#of}
     */
    public double[] profile(Object... namesAndValues) {
        return profile(Settings.of(namesAndValues));
    }

    /** {@return the banks of paddles of the site} */
    public List<Bank> banks() {
        return handle.call(address -> {
            if (banks == null)
                banks = Bank.all(address);
            return banks;
        });
    }

    /**
     * {@return a bank of paddles}
     *
     * @param index its place in the site, from 0
     * @throws IndexOutOfBoundsException if the site has no such bank
     */
    public Bank bank(int index) {
        List<Bank> all = banks();
        return all.get(Checks.index(index, all.size(), "bank"));
    }

    /**
     * Adds a definition of a run.
     *
     * @param name what messages call it
     * @return the definition
     */
    public Definition addDefinition(String name) {
        byte[] bytes = SiteOptions.bytes(Objects.requireNonNull(name, "name"));
        return handle.change(address -> {
            Definition made = new Definition(this, name, Native.addDefinition(address, bytes));
            definitions.add(made);
            return made;
        });
    }

    /** {@return the definitions that have not been removed, in the order of adding} */
    public List<Definition> definitions() {
        return handle.call(address -> List.copyOf(definitions));
    }

    /** Removes all definitions, and everything in them. The site stays as it is. */
    public void clear() {
        handle.change(address -> {
            Native.clear(address);
            definitions.forEach(Definition::end);
            definitions.clear();
            return null;
        });
    }

    /** {@return whether the experiment has been closed} */
    public boolean isClosed() {
        return handle.isClosed();
    }

    /**
     * Frees the experiment with all its items, after the calls that are running have ended. The
     * build of an animation is cancelled. Every later use of the experiment or of its items is an
     * {@link IllegalStateException}. A second call does nothing.
     */
    @Override
    public void close() {
        handle.close();
    }

    /** {@return what messages call it, such as: experiment "flume.site"} */
    @Override
    public String toString() {
        return handle.label();
    }

    Handle handle() {
        return handle;
    }

    /** Removes an item from the list that it is in. Only during a call. */
    void forget(Item item) {
        if (item.parent() instanceof Definition definition) {
            definition.forget((Specification) item);
        } else if (item.parent() instanceof Specification specification) {
            specification.forget(item);
        } else {
            definitions.remove(item);
        }
    }

    /**
     * {@return the parameters of formulas, without values}
     *
     * @param text formulas that are separated by {@code #}, as for a spectrum
     * @throws tidelab.waves.component.WaveSynthesisException if one of them is not a formula
     */
    public static Settings formulaParameters(String text) {
        Objects.requireNonNull(text, "text");
        byte[] formulas = SiteOptions.bytes(text);
        try (Parameters parameters = Parameters.empty()) {
            // No experiment, so no output of one: the line about a fault is discarded.
            return new Captured(line -> {}).during(() -> {
                Native.formulaParameters(formulas, parameters.address());
                return parameters.readDeclared();
            });
        }
    }
}
