package tidelab.waves;

import java.nio.file.Path;
import java.util.List;
import java.util.Map;
import java.util.Random;

/** Texts, numbers and settings for random calls: right, nearly right and hostile ones. */
final class RandomValues {
    private static final String LONG = "x".repeat(100_000);
    private static final List<String> TEXTS = List.of("", " ", "\0", "a\0b", "m\u00fcller",
            "\u6ce2", "\ud83c\udf0a", "\ud83c", LONG, "(".repeat(100_000), "-".repeat(100_000),
            "1+(".repeat(30_000), "sin(".repeat(20_000), "1".repeat(20_000) + " a b", "1e999999999",
            "%s%n%d", "f", "t", "a+b*f", "0.3@Hz#0.0001@m2s#1.2@Hz", "0.2@Hz#s*f@m2s#1@Hz",
            "0@s#0.1*sin(6*t)@m#5@s", "1", "1@rad", "-0.3@rad#cos(angle)#0.3@rad", "#", "##", "@",
            "1@", "1/0", "1e400", "NaN", "80 mm", "0.8 Hz", "3", "12 deg", "m", "Hz", "rad", "s",
            "rate", "repeat", "x", "angle", "seed", "flume", "Null", "west");
    private static final List<String> PIECES =
            List.of("0.3", "@", "Hz", "#", "f", "t", "(", ")", "+", "*", "^", "/", ",", "sin",
                    "exp", "s", "m2s", "a", " ", "-", "1e-4", "\0", "?", "=");
    private static final double[] NUMBERS = {0, -0.0, 1, -1, 0.1, 3, 12.5, 1e-9, -1e9, 1e300,
            -1e300, 1e-300, Double.MIN_VALUE, Double.MAX_VALUE, Double.NaN,
            Double.POSITIVE_INFINITY, Double.NEGATIVE_INFINITY};
    private static final int[] INTEGERS = {
            0, 0, 0, 1, 1, 2, 5, -1, 20, 199, 200, Integer.MAX_VALUE, Integer.MIN_VALUE};
    private static final String[] UNITS = {
            "", "m", "mm", "Hz", "s", "rad", "deg", "m2s", "furlong"};

    /** Settings with which each kind of call succeeds. */
    static final Map<String, Settings> RIGHT = Map.of("definition",
            Settings.of("repeat", "10 s", "dalrymple", false, "wave_merge", WaveMerge.Null),
            "specification", Settings.of("x", "0 m", "y", "0 m", "t", "0 s"), "single",
            Settings.of("f", "0.5 Hz", "a", "30 mm", "angle", "0 deg", "phase", "1 rad"),
            "animation",
            Settings.of("rate", "20 Hz", "x_step", "1 m", "x_min", "0 m", "x_max", "20 m", "y_step",
                    "0.25 m", "y_min", "-0.5 m", "y_max", "0.5 m"),
            "point", Settings.of("rate", "20 Hz", "x", "3 m", "y", "0 m", "delta_angle", "10 deg"),
            "statistics", Settings.of("rate", "20 Hz", "x", "3 m", "y", "0 m"), "profile",
            Settings.of("delta_x", "50 cm"), "probe",
            Settings.of("rate", "50 Hz", "x", "8 m", "y", "0 m"), "waveTrains",
            Settings.of("freq", "0.5 Hz", "angle", "0 rad"), "site", Settings.of("beach", "30 cm"));
    private static final List<Settings> ALL = List.copyOf(RIGHT.values());

    private final Random random;

    RandomValues(Random random) {
        this.random = random;
    }

    <T> T one(List<T> list) {
        return list.get(random.nextInt(list.size()));
    }

    String text() {
        if (random.nextInt(3) > 0)
            return one(TEXTS);
        StringBuilder text = new StringBuilder();
        for (int i = random.nextInt(12); i >= 0; --i) text.append(one(PIECES));
        return text.toString();
    }

    double number() {
        return NUMBERS[random.nextInt(NUMBERS.length)];
    }

    int integer() {
        return INTEGERS[random.nextInt(INTEGERS.length)];
    }

    String units() {
        return UNITS[random.nextInt(UNITS.length)];
    }

    /** A value that settings accept, unless it is a text. */
    Object value() {
        switch (random.nextInt(6)) {
            case 0:
                return random.nextBoolean();
            case 1:
                return one(List.<Choice>of(RanGen.FullRandom, WaveMerge.RMS, Window.Nuttall,
                        SpreadFunc.values()[0], Ramp.values()[0], ModifierType.values()[0]));
            case 2:
                return text();
            case 3:
                return random.nextInt(1000);
            default:
                String units = UNITS[random.nextInt(UNITS.length - 1)];
                return Quantity.of(number(), units);
        }
    }

    /** Settings for this kind of call, some with one value or one name changed. */
    Settings settings(String kind) {
        Settings right = RIGHT.getOrDefault(kind, Settings.none());
        if (random.nextInt(20) == 0)
            right = one(ALL);
        if (random.nextInt(2) == 0)
            return right;
        List<String> names = right.names();
        String name = names.isEmpty() || random.nextInt(10) == 0 ? text() : one(names);
        if (random.nextInt(8) == 0 && right.has(name))
            return right.without(name);
        if (random.nextInt(3) > 0 && right.has(name) && isQuantity(right, name)) {
            return right.with(name, Quantity.of(number(), right.quantity(name).units()));
        }
        return right.with(name, value());
    }

    double[] samples() {
        double[] samples = new double[random.nextInt(4) == 0 ? random.nextInt(3) : 500];
        double scale = random.nextInt(20) == 0 ? number() : 0.1;
        for (int j = 0; j < samples.length; ++j)
            samples[j] = scale * Math.sin(0.0628 * 5 * j + 0.3);
        if (samples.length > 0 && random.nextInt(20) == 0)
            samples[random.nextInt(samples.length)] = number();
        return samples;
    }

    Path path() {
        switch (random.nextInt(10)) {
            case 0:
                return Path.of("");
            case 1:
                return Path.of("/tmp");
            case 2:
                return Path.of("missing \u6ce2.site");
            default:
                return Tanks.FLUME;
        }
    }

    static boolean isQuantity(Settings settings, String name) {
        try {
            settings.quantity(name);
            return true;
        } catch (IllegalArgumentException other) {
            return false;
        }
    }
}
