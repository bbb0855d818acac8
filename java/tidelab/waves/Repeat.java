package tidelab.waves;

/**
 * The repeat time of a run and its harmonics. Harmonic {@code h} has {@code h} periods in it.
 *
 * <p>Example: {@code double lowest = run.repeat().frequency(run.repeat().lowestHarmonic());}
 *
 * @param seconds the repeat time in s, as the library has fitted it
 * @param size one more than the highest harmonic
 * @param lowestHarmonic the lowest harmonic that a run makes
 * @param highestHarmonic the highest harmonic that a run makes
 * @param dalrymple whether waves are affected by the side walls
 */
public record Repeat(
        double seconds, int size, int lowestHarmonic, int highestHarmonic, boolean dalrymple) {
    /**
     * {@return the frequency of a harmonic, in Hz}
     *
     * @param harmonic from 0 to the highest harmonic
     * @throws IndexOutOfBoundsException if it is another number
     */
    public double frequency(int harmonic) {
        return Checks.index(harmonic, highestHarmonic + 1, "harmonic") / seconds;
    }

    /** The first five of its numbers. */
    static Repeat of(double[] numbers) {
        return new Repeat(
                numbers[0], (int) numbers[1], (int) numbers[2], (int) numbers[3], numbers[4] != 0);
    }
}
