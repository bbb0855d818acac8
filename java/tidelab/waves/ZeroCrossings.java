package tidelab.waves;

import java.util.Arrays;
import java.util.Objects;

/**
 * The waves of a set of probes from one upward zero crossing to the next. Made by
 * {@link ProbeSet#zeroCrossings()}.
 *
 * <p>The waves of a probe are regular if their second longest and second shortest period differ by
 * less than 1 per cent of the median. If at least half of the probes are regular, so is the set.
 *
 * <pre>{@code
 * ZeroCrossings waves = set.zeroCrossings();
 * if (waves.regular()) {
 *     System.out.printf("%.3f s, %.1f mm%n", waves.period(), 1000 * waves.height());
 * }
 * }</pre>
 *
 * <p><b>The height of an irregular set is not H1/3</b>, the mean of the highest third. It is the
 * height of the single wave at two thirds of all waves in order of height, 2.96 standard deviations
 * of the surface in a Rayleigh sea; the period is the one of that wave.
 *
 * @param regular whether the set is regular
 * @param period in s; of a regular set the mean over the probes of their median periods, otherwise
 *     the mean over the probes of the period of each one's significant wave
 * @param height in m; of a regular set the mean of {@code heights}, otherwise the mean over the
 *     probes of the height of each one's significant wave
 * @param heights in m; of a regular set the median height of each probe, in the order of the set;
 *     otherwise empty. A copy is taken here and by each call of {@link #heights}.
 */
public record ZeroCrossings(boolean regular, double period, double height, double[] heights) {
    /**
     * Copies the heights. Refuses null.
     *
     * @param regular whether the set is regular
     * @param period in s
     * @param height in m
     * @param heights in m
     */
    public ZeroCrossings {
        heights = Objects.requireNonNull(heights, "heights").clone();
    }

    static ZeroCrossings of(Settings results, double[] heights) {
        if (!results.has("reg_t")) {
            return new ZeroCrossings(
                    false, results.get("sig_t", "s"), results.get("sig_h", "m"), heights);
        }
        double mean = Arrays.stream(heights).average().orElse(Double.NaN);
        return new ZeroCrossings(true, results.get("reg_t", "s"), mean, heights);
    }

    /**
     * The median height of each probe of a regular set.
     *
     * @return the heights in m, a new array; empty for an irregular set
     */
    @Override
    public double[] heights() {
        return heights.clone();
    }

    /** Compares the heights by value. */
    @Override
    public boolean equals(Object other) {
        return other instanceof ZeroCrossings that && regular == that.regular
                && Double.compare(period, that.period) == 0
                && Double.compare(height, that.height) == 0 && Arrays.equals(heights, that.heights);
    }

    @Override
    public int hashCode() {
        return Objects.hash(regular, period, height, Arrays.hashCode(heights));
    }

    @Override
    public String toString() {
        return (regular ? "Regular" : "Irregular") + " waves of " + period + " s and " + height
                + " m";
    }
}
