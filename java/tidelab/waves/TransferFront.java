package tidelab.waves;

import java.util.ArrayList;
import java.util.List;

/**
 * A plane wave of one harmonic of the repeat time.
 *
 * <p>Example: {@code double hertz = run.repeat().frequency(front.harmonic());}
 *
 * @param harmonic how many periods the repeat time has
 * @param amplitude in m
 * @param angle the direction of travel, in rad, from the x axis towards the y axis
 * @param phase in rad
 */
public record TransferFront(int harmonic, double amplitude, double angle, double phase) {
    /** One front for each four numbers. */
    static List<TransferFront> list(double[] numbers) {
        List<TransferFront> fronts = new ArrayList<>(numbers.length / 4);
        for (int i = 0; i < numbers.length; i += 4) {
            fronts.add(new TransferFront(
                    (int) numbers[i], numbers[i + 1], numbers[i + 2], numbers[i + 3]));
        }
        return List.copyOf(fronts);
    }
}
