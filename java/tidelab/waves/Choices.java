package tidelab.waves;

import java.util.Arrays;
import java.util.HashMap;
import java.util.List;
import java.util.Locale;
import java.util.Map;
import java.util.stream.Collectors;
import tidelab.waves.component.WaveSynthesisException;

/** Finds the constant, or the boolean, for an enumeration and a member that the library reports. */
final class Choices {
    private static final List<Choice[]> TYPES =
            List.of(DataMod.values(), Geometry.values(), ModifierType.values(), RanGen.values(),
                    Ramp.values(), SpreadFunc.values(), WaveMerge.values(), Window.values());
    private static final Map<String, Object> VALUES = new HashMap<>();

    static {
        for (Choice[] type : TYPES) {
            for (Choice choice : type) VALUES.put(key(choice.type(), choice.member()), choice);
        }
        VALUES.put(key("Bool", "False"), false);
        VALUES.put(key("Bool", "True"), true);
    }

    private Choices() {}

    static Object value(String type, String member) {
        Object value = VALUES.get(key(type, member));
        if (value != null)
            return value;
        throw new WaveSynthesisException("Enum type::" + type + "::" + member + "::Not found");
    }

    /**
     * The constants with this name, such as "WaveMerge.RMS"; several are joined by "or"; empty if
     * there is none.
     */
    static String constants(String text) {
        if (text.equalsIgnoreCase("true") || text.equalsIgnoreCase("false"))
            return text.toLowerCase(Locale.ROOT);
        return TYPES.stream()
                .flatMap(Arrays::stream)
                .filter(choice -> choice.member().equals(text))
                .map(choice -> choice.getClass().getSimpleName() + "." + text)
                .collect(Collectors.joining(" or "));
    }

    private static String key(String type, String member) {
        return type + "::" + member;
    }
}
