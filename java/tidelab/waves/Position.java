package tidelab.waves;

/**
 * The place and time at which the phases of a specification hold.
 *
 * <p>Example: {@code double metres = run.position(0).x();}
 *
 * @param x in m, along the tank
 * @param y in m, across the tank
 * @param t in s
 */
public record Position(double x, double y, double t) {
    /** Its three numbers. */
    static Position of(double[] numbers) {
        return new Position(numbers[0], numbers[1], numbers[2]);
    }
}
