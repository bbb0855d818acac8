package tidelab.waves;

import java.util.HashMap;
import java.util.List;
import java.util.Map;
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

    private static String key(String type, String member) {
        return type + "::" + member;
    }
}
