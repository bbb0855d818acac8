package tidelab.waves;

import java.util.List;
import java.util.Objects;

/** Arguments that the library would not check. */
final class Checks {
    private Checks() {}

    /** The index, if something with that many elements has it. */
    static int index(int index, int size, String what) {
        if (index >= 0 && index < size)
            return index;
        throw new IndexOutOfBoundsException(what + " " + index + " does not exist: "
                + (size == 0 ? "there is none" : "they count from 0 to " + (size - 1)));
    }

    /** A copy of the samples, each multiplied by the factor. */
    static double[] scaled(double[] samples, double factor) {
        double[] copy = Objects.requireNonNull(samples, "samples").clone();
        for (int i = 0; i < copy.length; ++i) {
            if (!Double.isFinite(copy[i])) {
                throw new IllegalArgumentException("samples[" + i + "] is " + copy[i]);
            }
            copy[i] *= factor;
        }
        return copy;
    }

    /** Four numbers for each front. */
    static double[] numbers(List<Front> fronts) {
        requireFourNumbersEach(Objects.requireNonNull(fronts, "fronts").size());
        // A copy, since the caller may change the list at any time.
        Front[] given = fronts.toArray(new Front[0]);
        requireFourNumbersEach(given.length);
        double[] numbers = new double[4 * given.length];
        int i = 0;
        for (Front front : given) {
            int place = i / 4;
            Objects.requireNonNull(front, () -> "fronts[" + place + "]");
            numbers[i++] = finite(front.frequency(), place, "frequency");
            numbers[i++] = finite(front.amplitude(), place, "amplitude");
            numbers[i++] = finite(front.angle(), place, "angle");
            numbers[i++] = finite(front.phase(), place, "phase");
        }
        return numbers;
    }

    private static void requireFourNumbersEach(int fronts) {
        if (fronts > Integer.MAX_VALUE / 4) {
            throw new IllegalArgumentException("fronts: " + fronts + " are too many");
        }
    }

    private static double finite(double number, int place, String name) {
        if (Double.isFinite(number))
            return number;
        throw new IllegalArgumentException("fronts[" + place + "]: " + name + " is " + number);
    }
}
