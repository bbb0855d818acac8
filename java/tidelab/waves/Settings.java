package tidelab.waves;

import java.util.Collections;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.NoSuchElementException;
import java.util.Objects;
import java.util.stream.Collectors;

/**
 * Named values that an item, a site or a calculation reads or writes: quantities, members of
 * enumerations, and booleans. Immutable, in a fixed order.
 *
 * <p>Example:
 *
 * <pre>{@code
 * Settings wave = Settings.of("f", "0.8 Hz", "a", "25 mm", "angle", "0 deg", "phase", "0 rad");
 * double metres = wave.get("a", "m");             // 0.025
 * Settings higher = wave.with("a", Quantity.of(30, "mm"));
 * }</pre>
 */
public final class Settings {
    private static final Settings NONE = new Settings(Map.of(), List.of());

    /** A name whose value has not been given yet; {@code kind} is its units or enumeration. */
    record Unset(String kind, boolean number) {}

    private final Map<String, Object> values;
    private final List<String> remarks;

    /** Takes the map over: nobody else may keep it. */
    Settings(Map<String, Object> values, List<String> remarks) {
        this.values = Collections.unmodifiableMap(values);
        this.remarks = List.copyOf(remarks);
    }

    /** {@return settings without any name} */
    public static Settings none() {
        return NONE;
    }

    /**
     * Makes settings from names and values in turn.
     *
     * @param namesAndValues names, each followed by its value: a {@link Quantity} or its text ("25
     *        mm"), a {@link Number} for a plain number, a {@link Boolean} or a {@link Choice}
     * @return the settings, in this order
     * @throws IllegalArgumentException if a value is missing or of another class, a text is not a
     *         quantity, or a name comes twice
     * @throws NullPointerException if a name or a value is null
     */
    public static Settings of(Object... namesAndValues) {
        Objects.requireNonNull(namesAndValues, "namesAndValues");
        Map<String, Object> values = new LinkedHashMap<>();
        for (int i = 0; i < namesAndValues.length; i += 2) {
            if (!(Objects.requireNonNull(namesAndValues[i], "name") instanceof String name)) {
                throw new IllegalArgumentException("not a name: " + namesAndValues[i]);
            }
            if (i + 1 == namesAndValues.length) {
                throw new IllegalArgumentException("\"" + name + "\" has no value");
            }
            if (values.put(name, SettingValue.of(name, namesAndValues[i + 1])) != null) {
                throw new IllegalArgumentException("\"" + name + "\" is given twice");
            }
        }
        return new Settings(values, List.of());
    }

    /**
     * {@return these settings with one value added or replaced}
     *
     * @param name the name
     * @param value as for {@link #of}
     * @throws IllegalArgumentException as for {@link #of}
     */
    public Settings with(String name, Object value) {
        Objects.requireNonNull(name, "name");
        Map<String, Object> copy = new LinkedHashMap<>(values);
        copy.put(name, SettingValue.of(name, value));
        return new Settings(copy, remarks);
    }

    /**
     * {@return these settings without a name}
     *
     * @param name a name that these settings have
     * @throws NoSuchElementException if they do not have it
     */
    public Settings without(String name) {
        value(name);
        Map<String, Object> copy = new LinkedHashMap<>(values);
        copy.remove(name);
        return new Settings(copy, remarks);
    }

    /**
     * {@return a quantity in the units in which it is held; NaN if it has not been given yet}
     *
     * @param name the name
     * @throws NoSuchElementException if the name does not exist
     * @throws IllegalArgumentException if it is not a quantity
     */
    public Quantity quantity(String name) {
        Object value = value(name);
        if (value instanceof Quantity quantity)
            return quantity;
        if (value instanceof Unset unset && unset.number())
            return Quantity.of(Double.NaN, unset.kind());
        throw SettingValue.wrongKind(name, value, "a quantity");
    }

    /**
     * {@return the number of a quantity in some units}
     *
     * @param name the name
     * @param units the units of the result
     * @throws NoSuchElementException if the name does not exist
     * @throws IllegalArgumentException if it is not a quantity
     * @throws tidelab.waves.component.WaveSynthesisException if it does not convert
     */
    public double get(String name, String units) {
        return quantity(name).in(units);
    }

    /**
     * {@return the member of an enumeration}
     *
     * @param name the name
     * @throws NoSuchElementException if the name does not exist or has no value yet
     * @throws IllegalArgumentException if it is a quantity or a boolean
     */
    public Choice choice(String name) {
        return choice(name, Choice.class);
    }

    /**
     * {@return the member of a certain enumeration}
     *
     * @param <C> the enumeration
     * @param name the name
     * @param type the class of the enumeration
     * @throws NoSuchElementException if the name does not exist or has no value yet
     * @throws IllegalArgumentException if it is not of this enumeration
     */
    public <C extends Choice> C choice(String name, Class<C> type) {
        return member(
                name, Objects.requireNonNull(type, "type"), "a member of " + type.getSimpleName());
    }

    /**
     * {@return a boolean}
     *
     * @param name the name
     * @throws NoSuchElementException if the name does not exist or has no value yet
     * @throws IllegalArgumentException if it is not a boolean
     */
    public boolean flag(String name) {
        return member(name, Boolean.class, "a boolean");
    }

    private <T> T member(String name, Class<T> type, String kind) {
        Object value = value(name);
        if (type.isInstance(value))
            return type.cast(value);
        if (value instanceof Unset unset && !unset.number()) {
            throw new NoSuchElementException(
                    "\"" + name + "\" has no value yet: it is a " + unset.kind());
        }
        throw SettingValue.wrongKind(name, value, kind);
    }

    /**
     * {@return whether there is such a name}
     *
     * @param name the name
     */
    public boolean has(String name) {
        return values.containsKey(Objects.requireNonNull(name, "name"));
    }

    /**
     * {@return whether there is such a name and it has a value} An item that was never set has
     * names without values.
     *
     * @param name the name
     */
    public boolean isSet(String name) {
        return has(name) && !(values.get(name) instanceof Unset);
    }

    /** {@return the names, in their order} */
    public List<String> names() {
        return List.copyOf(values.keySet());
    }

    /** {@return what the library remarked, such as "Warning::Poor match"; often nothing} */
    public List<String> remarks() {
        return remarks;
    }

    Map<String, Object> values() {
        return values;
    }

    /**
     * These settings with the values that a host has given. Names without a value replace nothing.
     *
     * @param owner whose settings these are, for the message
     * @throws IllegalArgumentException if one of the names is not among these settings, or a number
     *         is not finite: the library would carry it on to the paddles
     */
    Settings updated(Settings given, String owner) {
        given.values.forEach((name, value) -> {
            if (!values.containsKey(name)) {
                throw new IllegalArgumentException(Nearest.explain(name, owner, values.keySet()));
            }
            if (value instanceof Quantity quantity && !Double.isFinite(quantity.value())) {
                throw new IllegalArgumentException(
                        "\"" + name + "\" of " + owner + " is " + quantity);
            }
        });
        return overlaid(given);
    }

    /** These settings with other values where those have one. */
    Settings overlaid(Settings others) {
        Map<String, Object> copy = new LinkedHashMap<>(values);
        others.values.forEach((name, value) -> {
            if (!(value instanceof Unset))
                copy.put(name, value);
        });
        return new Settings(copy, remarks);
    }

    private Object value(String name) {
        Object value = values.get(Objects.requireNonNull(name, "name"));
        if (value != null)
            return value;
        throw new NoSuchElementException("there is no \"" + name + "\" among "
                + (values.isEmpty() ? "no settings" : String.join(", ", values.keySet())));
    }

    @Override
    public boolean equals(Object other) {
        return other instanceof Settings settings && values.equals(settings.values)
                && remarks.equals(settings.remarks);
    }

    @Override
    public int hashCode() {
        return Objects.hash(values, remarks);
    }

    /** {@return names and values, such as "f = 0.8 Hz, dalrymple = false"} */
    @Override
    public String toString() {
        return values.entrySet()
                .stream()
                .map(entry -> entry.getKey() + SettingValue.text(entry.getValue()))
                .collect(Collectors.joining(", "));
    }
}
