package tidelab.waves;

import java.util.ArrayList;
import java.util.List;

/**
 * A run to be built: specifications of waves with one repeat time.
 *
 * <p>Its settings are {@code repeat} (a time), {@code dalrymple} (a boolean: waves are affected by
 * side walls), {@code wave_merge} ({@link WaveMerge}), and {@code ran_gen} and {@code seed}, which
 * may be left out.
 *
 * <p>Example:
 *
 * <pre>{@code
 * Definition definition = experiment.addDefinition("first run");
 * definition.set("repeat", "64 s", "dalrymple", false, "wave_merge", WaveMerge.Null);
 * Specification place = definition.addSpecification();
 * // ... components ...
 * Run run = definition.build();
 * }</pre>
 */
public final class Definition extends Item {
    private final String name;
    private final List<Specification> specifications = new ArrayList<>();
    private volatile Run current;
    private volatile AnimationFrames frames;

    Definition(Experiment experiment, String name, long id) {
        super(experiment, null, id);
        this.name = name;
    }

    /** {@return the name that it was given} */
    public String name() {
        return name;
    }

    /**
     * Adds a specification.
     *
     * @return the specification, without values and components
     */
    public Specification addSpecification() {
        return change(address -> {
            Specification made = new Specification(
                    this, Native.addSpecification(address, id()), specifications.size() + 1);
            specifications.add(made);
            return made;
        });
    }

    /** {@return the specifications that have not been removed, in the order of adding} */
    public List<Specification> specifications() {
        return call(address -> List.copyOf(specifications));
    }

    /**
     * Builds the run from the settings and components as they are now. A run that was built before
     * is out of date from now on, even if this build fails.
     *
     * @return the run
     * @throws IllegalStateException if there is no specification, or the last set of an item failed
     * @throws tidelab.waves.component.WaveSynthesisException if the library cannot build the run,
     *         for instance because an item was never set
     */
    public Run build() {
        return call(address -> {
            if (specifications.isEmpty()) {
                // The library would succeed and keep the waves of the build before.
                throw new IllegalStateException(label() + " has no specification to build");
            }
            specifications.forEach(Specification::requireComplete);
            current = null;
            Native.buildRun(address, id());
            Run built = new Run(this, address);
            current = built;
            return built;
        });
    }

    /** What the library holds of an animation; null if nothing. Also without a turn. */
    AnimationFrames frames() {
        return frames;
    }

    /** Only during a call. */
    void frames(AnimationFrames latest) {
        frames = latest;
    }

    /** Also without a turn. */
    void requireCurrent(Run run) {
        if (current != run) {
            throw new IllegalStateException(
                    "this run of " + label() + " is out of date: build it again");
        }
    }

    void forget(Specification specification) {
        specifications.remove(specification);
    }

    /** New values change the harmonics, where the waves of the present run have no place. */
    @Override
    void beforeSet(long address, boolean again) {
        current = null;
    }

    /** The library keeps the values of before if it refuses new ones. */
    @Override
    void requireComplete() {}

    @Override
    void end() {
        super.end();
        current = null;
        frames = null;
        specifications.forEach(Specification::end);
    }

    @Override
    String label() {
        return "definition \"" + name + "\"";
    }
}
