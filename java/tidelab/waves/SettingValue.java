package tidelab.waves;

import java.util.Objects;
import tidelab.waves.component.WaveSynthesisException;

/** The classes of values that settings hold. */
final class SettingValue {
    private SettingValue() {}

    /** What is held for a value that a host has given. */
    static Object of(String name, Object value) {
        Objects.requireNonNull(value, () -> "value of \"" + name + "\"");
        if (value instanceof Quantity || value instanceof Choice || value instanceof Boolean) {
            return value;
        }
        if (value instanceof Number number)
            return Quantity.of(number.doubleValue(), "");
        if (!(value instanceof String text)) {
            throw new IllegalArgumentException("\"" + name
                    + "\": a quantity, a text such as \"25 mm\", a number, a boolean or a choice is"
                    + " expected, not " + value.getClass().getName());
        }
        String constants = Choices.constants(text);
        if (!constants.isEmpty()) {
            throw new IllegalArgumentException("\"" + name + "\": a text is a quantity, such as"
                    + " \"25 mm\"; give " + constants + " instead of \"" + text + "\"");
        }
        try {
            return Quantity.of(text);
        } catch (IllegalArgumentException | WaveSynthesisException refused) {
            throw new IllegalArgumentException(
                    "\"" + name + "\": " + refused.getMessage(), refused);
        }
    }

    static IllegalArgumentException wrongKind(String name, Object value, String expected) {
        return new IllegalArgumentException(
                "\"" + name + "\" is not " + expected + ": \"" + name + text(value) + "\"");
    }

    /** Such as " = 25.0 mm". */
    static String text(Object value) {
        if (value instanceof Settings.Unset unset)
            return " without value (" + unset.kind() + ")";
        if (value instanceof Choice choice)
            return " = " + choice.member();
        return " = " + value;
    }
}
