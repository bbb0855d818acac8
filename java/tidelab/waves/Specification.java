package tidelab.waves;

import java.util.ArrayList;
import java.util.List;
import java.util.Objects;

/**
 * A group of waves in a definition: components, and at most one modifier each for gain, angle and
 * phase. Its settings {@code x}, {@code y} (lengths) and {@code t} (a time) are the position and
 * time at which the phases hold.
 *
 * <p>Example:
 *
 * <pre>{@code
 * Specification place = definition.addSpecification();
 * place.set("x", "12 m", "y", "0 m", "t", "0 s");
 * place.addSpectrum("flat", "0.3@Hz#0.0001@m2s#1.2@Hz").set();
 * place.addModifier(ModifierType.PhaseRandom, "").set("ran_gen", RanGen.FullRandom, "seed", 17);
 * }</pre>
 */
public final class Specification extends Item {
    private final int number;
    private final List<Component> components = new ArrayList<>();
    private final List<Modifier> modifiers = new ArrayList<>();

    Specification(Definition parent, long id, int number) {
        super(parent.experiment(), parent, id);
        this.number = number;
    }

    /**
     * Adds one sine wave.
     *
     * @return the component, with the settings {@code f}, {@code a}, {@code angle} and {@code
     *         phase}
     */
    public Component addSingle() {
        return add(Component.Kind.SINGLE, "Single", "",
                (address, specification) -> Native.addSingle(address, specification));
    }

    /**
     * Adds a spectrum: formulas of frequency between limits.
     *
     * @param name what messages call it
     * @param text limits and functions in turn, separated by {@code #}
     * @return the component, with the parameters of the formulas as its settings
     * @throws tidelab.waves.component.WaveSynthesisException if the text is refused
     */
    public Component addSpectrum(String name, String text) {
        byte[] label = bytes(name, "name");
        byte[] formulas = bytes(text, "text");
        return add(Component.Kind.SPECTRUM, name, text,
                (address, specification)
                        -> Native.addSpectrum(address, specification, label, formulas));
    }

    /**
     * Adds a surface elevation: formulas of time between limits.
     *
     * @param name what messages call it
     * @param text limits and functions in turn, separated by {@code #}
     * @return the component, with {@code rate} and the parameters of the formulas as its settings
     * @throws tidelab.waves.component.WaveSynthesisException if the text is refused
     */
    public Component addTimeExpression(String name, String text) {
        byte[] label = bytes(name, "name");
        byte[] formulas = bytes(text, "text");
        return add(Component.Kind.TIME_EXPRESSION, name, text,
                (address, specification)
                        -> Native.addTimeExpression(address, specification, label, formulas));
    }

    /**
     * Adds a record of the surface elevation. The samples are copied.
     *
     * @param label what messages call it
     * @param units the units of the samples, which convert to m
     * @param samples the record, at the rate of the setting {@code rate}
     * @return the component, with the settings {@code rate}, {@code scale_ratio}, {@code ramp_time}
     *         and {@code ramp_type}
     * @throws IllegalArgumentException if a sample is not a finite number
     * @throws tidelab.waves.component.WaveSynthesisException if the units do not convert to m
     */
    public Component addTimeSeries(String label, String units, double[] samples) {
        byte[] name = bytes(label, "label");
        double[] metres = Checks.scaled(samples, Quantity.of(1, units).in("m"));
        return change(address -> {
            // The component reads the vector at every build, so the handle keeps it.
            long vector = Native.newVector(name, SiteOptions.bytes("m"), metres);
            experiment().handle().keep(vector);
            try {
                Component made = new Component(this, Component.Kind.TIME_SERIES, label, "", vector,
                        Native.addTimeSeries(address, id(), vector));
                components.add(made);
                return made;
            } catch (RuntimeException failure) {
                experiment().handle().release(vector);
                throw failure;
            }
        });
    }

    /**
     * Adds a list of fronts.
     *
     * @param fronts the fronts; those of 0 Hz or less are ignored
     * @return the component, which needs a {@code set()} without values
     * @throws IllegalArgumentException if one of their numbers is not finite
     */
    public Component addFronts(List<Front> fronts) {
        double[] numbers = Checks.numbers(fronts);
        return add(Component.Kind.FRONTS, "Set of fronts", "",
                (address, specification) -> Native.addFronts(address, specification, numbers));
    }

    /**
     * Adds a modifier. They act in the order gain, angle, phase, whatever the order of adding.
     *
     * @param type the kind of modifier
     * @param text functions and limits in turn, separated by {@code #}; may be empty for {@link
     *        ModifierType#PhaseRandom} and {@link ModifierType#PhaseWNoise}
     * @return the modifier
     * @throws tidelab.waves.component.WaveSynthesisException if the text is refused, or there is a
     *         modifier for the same purpose
     */
    public Modifier addModifier(ModifierType type, String text) {
        Objects.requireNonNull(type, "type");
        Objects.requireNonNull(text, "text");
        return change(address -> {
            Modifier made = new Modifier(this, type, text, address);
            modifiers.add(made);
            return made;
        });
    }

    /** {@return the components that have not been removed, in the order of adding} */
    public List<Component> components() {
        return call(address -> List.copyOf(components));
    }

    /** {@return the modifiers that have not been removed, in the order of adding} */
    public List<Modifier> modifiers() {
        return call(address -> List.copyOf(modifiers));
    }

    private interface Adding {
        long id(long address, long specification);
    }

    private Component add(Component.Kind kind, String name, String text, Adding adding) {
        return change(address -> {
            Component made = new Component(this, kind, name, text, 0, adding.id(address, id()));
            components.add(made);
            return made;
        });
    }

    void forget(Item item) {
        components.remove(item);
        modifiers.remove(item);
    }

    @Override
    void requireComplete() {
        super.requireComplete();
        components.forEach(Item::requireComplete);
        modifiers.forEach(Item::requireComplete);
    }

    @Override
    void end() {
        super.end();
        components.forEach(Item::end);
        modifiers.forEach(Item::end);
    }

    @Override
    String label() {
        return "specification " + number + " of " + parent().label();
    }

    private static byte[] bytes(String text, String argument) {
        return SiteOptions.bytes(Objects.requireNonNull(text, argument));
    }
}
