package tidelab.waves;

import java.util.Objects;
import java.util.Set;
import java.util.concurrent.ConcurrentHashMap;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/**
 * A number with its units, such as 80 mm. The units are those of the library; "" is a plain number.
 * NaN and infinite values are allowed, since results may hold them; a text must be a finite number.
 *
 * <p>Example:
 *
 * <pre>{@code
 * double metres = Quantity.of("80 mm").in("m");   // 0.08
 * Quantity turn = Quantity.of(12, "deg").to("rad");
 * }</pre>
 *
 * @param value the number, in {@code units}
 * @param units the name of the units, such as "mm", "Hz", "deg" or "m2/Hz"
 */
public record Quantity(double value, String units) {
    /** Units that the library has accepted, which spares most quantities a native call. */
    private static final Set<String> KNOWN = ConcurrentHashMap.newKeySet();
    private static final Pattern TEXT = Pattern.compile(
            "\\s*+([+-]?(?:\\d++(?:\\.\\d*+)?|\\.\\d++)(?:[eE][+-]?\\d++)?)\\s*+(\\S*+)\\s*+");

    /**
     * Checks the units.
     *
     * @param value the number
     * @param units the name of its units
     *
     * @throws tidelab.waves.component.WaveSynthesisException if the library does not know them
     */
    public Quantity {
        Objects.requireNonNull(units, "units");
        if (!KNOWN.contains(units)) {
            factor(units, units);
            // A host may use any number of products of units.
            if (KNOWN.size() < 1000)
                KNOWN.add(units);
        }
    }

    /**
     * Makes a quantity from a number and its units.
     *
     * @param value the number
     * @param units the name of its units, "" for a plain number
     * @return the quantity
     * @throws tidelab.waves.component.WaveSynthesisException if the library does not know the units
     */
    public static Quantity of(double value, String units) {
        return new Quantity(value, units);
    }

    /**
     * Reads a number and its units, as in "80 mm", "0.8 Hz" or "3".
     *
     * @param text the number, then the units or nothing; blanks may separate them
     * @return the quantity
     * @throws IllegalArgumentException if the text does not start with a number, or the number is
     *         too large
     * @throws tidelab.waves.component.WaveSynthesisException if the library does not know the units
     */
    public static Quantity of(String text) {
        Matcher matcher = TEXT.matcher(Objects.requireNonNull(text, "text"));
        if (!matcher.matches()) {
            throw new IllegalArgumentException(
                    "\"" + text + "\" is not a number with units, such as \"80 mm\"");
        }
        double value = Double.parseDouble(matcher.group(1));
        if (Double.isInfinite(value)) {
            throw new IllegalArgumentException("\"" + text + "\" is too large a number");
        }
        return new Quantity(value, matcher.group(2));
    }

    /**
     * {@return the value in other units}
     *
     * @param units the name of units of the same kind
     * @throws tidelab.waves.component.WaveSynthesisException if the value does not convert to them
     */
    public double in(String units) {
        return value * factor(this.units, Objects.requireNonNull(units, "units"));
    }

    /**
     * {@return this quantity in other units}
     *
     * @param units the name of units of the same kind
     * @throws tidelab.waves.component.WaveSynthesisException if the value does not convert to them
     */
    public Quantity to(String units) {
        return new Quantity(in(units), units);
    }

    /** {@return the number and the units, such as "80.0 mm"} */
    @Override
    public String toString() {
        return units.isEmpty() ? Double.toString(value) : value + " " + units;
    }

    private static double factor(String from, String to) {
        Kelpbox.load();
        return Native.convert(SiteOptions.bytes(from), SiteOptions.bytes(to));
    }
}
