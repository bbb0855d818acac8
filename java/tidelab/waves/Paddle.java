package tidelab.waves;

import java.util.ArrayList;
import java.util.List;

/**
 * A paddle of a bank.
 *
 * <p>Example: {@code double metres = experiment.bank(0).paddles().get(0).y();}
 *
 * @param number its number in the site script
 * @param x its position along the tank, in m
 * @param y its position across the tank, in m
 * @param angle its direction, in rad
 */
public record Paddle(int number, double x, double y, double angle) {
    /** Four numbers for each paddle. */
    static List<Paddle> list(double[] numbers) {
        List<Paddle> paddles = new ArrayList<>(numbers.length / 4);
        for (int i = 0; i < numbers.length; i += 4) {
            paddles.add(
                    new Paddle((int) numbers[i], numbers[i + 1], numbers[i + 2], numbers[i + 3]));
        }
        return List.copyOf(paddles);
    }
}
