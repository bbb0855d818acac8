package tidelab.waves;

import java.util.ArrayList;
import java.util.List;

/**
 * A plane wave of one frequency.
 *
 * <p>Example: {@code specification.addFronts(List.of(new Front(0.8, 0.025, 0, Math.PI / 2)))}
 *
 * @param frequency in Hz
 * @param amplitude in m
 * @param angle the direction of travel, in rad, from the x axis towards the y axis
 * @param phase in rad
 */
public record Front(double frequency, double amplitude, double angle, double phase) {
    /** One front for each four numbers. */
    static List<Front> list(double[] numbers) {
        List<Front> fronts = new ArrayList<>(numbers.length / 4);
        for (int i = 0; i < numbers.length; i += 4) {
            fronts.add(new Front(numbers[i], numbers[i + 1], numbers[i + 2], numbers[i + 3]));
        }
        return List.copyOf(fronts);
    }
}
