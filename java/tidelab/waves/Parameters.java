package tidelab.waves;

import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI;

/** Native parameters for one call. Used in a try statement, which frees them. */
final class Parameters implements AutoCloseable {
    private long address;

    private Parameters(Settings settings) {
        Kelpbox.load();
        Map<String, Object> given = new LinkedHashMap<>(settings.values());
        given.values().removeIf(value -> value instanceof Settings.Unset);
        int count = given.size();
        String[] names = given.keySet().toArray(new String[0]);
        double[] values = new double[count];
        String[] units = new String[count];
        String[] types = new String[count];
        for (int i = 0; i < count; ++i) {
            Object value = given.get(names[i]);
            if (value instanceof Quantity quantity) {
                values[i] = quantity.value();
                units[i] = quantity.units();
            } else if (value instanceof Choice choice) {
                units[i] = choice.member();
                types[i] = choice.type();
            } else {
                units[i] = (boolean) value ? "True" : "False";
                types[i] = "Bool";
            }
        }
        address = Native.newParams(names, values, units, types);
    }

    static Parameters empty() {
        return new Parameters(Settings.none());
    }

    /** Names without a value are left out, so that the library reports them as missing. */
    static Parameters of(Settings settings) {
        return new Parameters(settings);
    }

    long address() {
        return address;
    }

    /** What the library has written, with its remarks. All names have values. */
    Settings read() {
        String[] texts = Native.paramTexts(address);
        double[] numbers = Native.paramValues(address);
        Map<String, Object> values = new LinkedHashMap<>();
        for (int i = 0; i < numbers.length; ++i) {
            String unitsOrMember = texts[3 * i + 1];
            String type = texts[3 * i + 2];
            values.put(texts[3 * i],
                    type == null ? Quantity.of(numbers[i], unitsOrMember)
                                 : Choices.value(type, unitsOrMember));
        }
        return new Settings(values, List.of(Native.paramComments(address)));
    }

    /** What the library has declared: names that may have no value yet. */
    Settings readDeclared() {
        String[] texts = Native.paramTexts(address);
        Map<String, Object> values = new LinkedHashMap<>();
        for (int i = 0; i < texts.length; i += 3) {
            boolean isNumber = texts[i + 2] == null;
            values.put(texts[i], new Settings.Unset(texts[isNumber ? i + 1 : i + 2], isNumber));
        }
        return new Settings(values, List.of());
    }

    @Override
    public void close() {
        KelpboxNativeLibraryJNI.delete_Kelpbox_Params(address);
        address = 0;
    }
}
