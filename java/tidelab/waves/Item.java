package tidelab.waves;

import java.util.Objects;
import java.util.function.LongFunction;

/**
 * A part of an experiment that has settings: a definition, a specification, a component or a
 * modifier.
 *
 * <p>An item ends with {@link #remove}, of itself or of what it is in, with {@link
 * Experiment#clear} and with {@link Experiment#close}. Every later use is an {@link
 * IllegalStateException}. Quantities may be given in any units that convert.
 *
 * <p>Example:
 *
 * <pre>{@code
 * Component wave = specification.addSingle();
 * System.out.println(wave.settings());   // a, angle, f, phase: without values
 * wave.set("f", "0.8 Hz", "a", "25 mm", "angle", "0 deg", "phase", "0 rad");
 * wave.set("a", "30 mm");                // the others keep their values
 * }</pre>
 */
public abstract sealed class Item permits Definition, Specification, Component, Modifier {
    private final Experiment experiment;
    private final Item parent;
    private long id;
    private volatile boolean removed;
    private Settings last = Settings.none();
    private boolean attempted;
    private boolean incomplete;

    Item(Experiment experiment, Item parent, long id) {
        this.experiment = experiment;
        this.parent = parent;
        this.id = id;
    }

    /** Such as {@code component "PM"}, for messages. */
    abstract String label();

    /** {@return the names that this item needs, with the values that it was last given} */
    public Settings settings() {
        return call(this::present);
    }

    /**
     * Gives the item its values. A name that is left out keeps the value that {@link #settings}
     * shows. A failure keeps those values too.
     *
     * @param settings values by names that {@link #settings} has
     * @return what the library wrote back, such as a fitted repeat time, with its remarks
     * @throws IllegalArgumentException if a name does not exist, or a number is not finite
     * @throws tidelab.waves.component.WaveSynthesisException if the library refuses a value, or
     *         misses one
     */
    public Settings set(Settings settings) {
        Objects.requireNonNull(settings, "settings");
        return call(address -> {
            Settings wanted = present(address).updated(settings, label());
            try (Parameters parameters = Parameters.of(wanted)) {
                beforeSet(address, attempted);
                attempted = true;
                incomplete = true;
                Native.setItem(address, id, parameters.address());
                Settings written = parameters.read();
                last = written;
                incomplete = false;
                return written;
            }
        });
    }

    /**
     * Gives the item its values, as {@link #set(Settings)}.
     *
     * @param namesAndValues as for {@link Settings#of}
     * @return what the library wrote back
     */
    public Settings set(Object... namesAndValues) {
        return set(Settings.of(namesAndValues));
    }

    /** Removes the item and everything that was added to it. */
    public void remove() {
        experiment.handle().change(address -> {
            requireAlive();
            Native.remove(address, id);
            experiment.forget(this);
            end();
            return null;
        });
    }

    /** {@return whether the item has been removed, alone or with what it was in} */
    public boolean isRemoved() {
        return removed;
    }

    /** {@return the experiment that the item is in} */
    public Experiment experiment() {
        return experiment;
    }

    /** {@return what the item was added to; null for a definition} */
    public Item parent() {
        return parent;
    }

    @Override
    public String toString() {
        return label();
    }

    /** Takes a turn of the experiment for a call that needs this item. */
    <T> T call(LongFunction<T> body) {
        return experiment.handle().call(address -> {
            requireAlive();
            return body.apply(address);
        });
    }

    /** As {@link #call}, for a body that adds or removes native items. */
    <T> T change(LongFunction<T> body) {
        return experiment.handle().change(address -> {
            requireAlive();
            return body.apply(address);
        });
    }

    /** The native ID. Only during a call. */
    long id() {
        return id;
    }

    /** Runs before the library receives new values; {@code again} if it received some before. */
    void beforeSet(long address, boolean again) {}

    /** Marks this item, and everything in it, as removed. */
    void end() {
        removed = true;
    }

    /** Gives the item another native ID, after it was removed and added again. */
    void replaced(long newId) {
        id = newId;
    }

    /**
     * The library keeps a part of the values that it refused. A build would use them without a
     * message, so it has to wait for a set that succeeds.
     */
    void requireComplete() {
        if (incomplete) {
            throw new IllegalStateException(
                    "the last set of " + label() + " failed: set it again before the build");
        }
    }

    /** Also without a turn. */
    void requireAlive() {
        if (removed)
            throw new IllegalStateException(label() + " has been removed");
    }

    private Settings present(long address) {
        try (Parameters parameters = Parameters.empty()) {
            Native.queryItem(address, id, parameters.address());
            return parameters.readDeclared().overlaid(last);
        }
    }
}
