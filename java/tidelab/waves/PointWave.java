package tidelab.waves;

import java.util.Objects;

/**
 * The wave at one point of the tank over one repeat time, before any paddle moves. Made by
 * {@link Run#point(Object...)}; it stays valid whatever happens to the run.
 *
 * <pre>{@code
 * PointWave wave = run.point("rate", "32 Hz", "x", "12 m", "y", "0 m", "delta_angle", "10 deg");
 * double[] times = wave.times();                       // s
 * double[] surface = wave.elevation();                 // m
 * double variance = 0;
 * for (double density : wave.density()) {
 *     variance += density * wave.resolution();         // m2
 * }
 * double hs = 4 * Math.sqrt(variance);                 // m
 * }</pre>
 *
 * <p>Oblique waves over a slope are shown too high: shoaling is included, the refraction
 * coefficient is not. Harmonics above half the rate are left out. A wave that cannot reach the
 * point gives NaN.
 *
 * <p>The arrays belong to the caller. They are not copied again by each call, so a change to one of
 * them is seen by all who share this record.
 *
 * @param settings rate, x, y and delta_angle as the library has written them back, with its remarks
 * @param elevation height of the surface in m; sample j is at {@code j / rate}
 * @param amplitudes amplitude of each harmonic in m, from the mean to half the rate
 * @param density variance density of each harmonic in m&#178;s
 * @param directions share of the variance in each direction sector, without units; sector b is
 *     centred at {@code b * delta_angle}, the direction towards which a wave travels, measured from
 *     the x axis towards the y axis
 */
public record PointWave(Settings settings, double[] elevation, double[] amplitudes,
        double[] density, double[] directions) {
    private static final int ELEVATION = 0;
    private static final int AMPLITUDES = 1;
    private static final int DENSITY = 2;
    private static final int DIRECTIONS = 3;

    /**
     * Takes the arrays as they are. Refuses null.
     *
     * @param settings rate, x, y and delta_angle
     * @param elevation height of the surface in m
     * @param amplitudes amplitude of each harmonic in m
     * @param density variance density of each harmonic in m&#178;s
     * @param directions share of the variance in each direction sector
     */
    public PointWave {
        Objects.requireNonNull(settings, "settings");
        Objects.requireNonNull(elevation, "elevation");
        Objects.requireNonNull(amplitudes, "amplitudes");
        Objects.requireNonNull(density, "density");
        Objects.requireNonNull(directions, "directions");
    }

    /** Only during a call. */
    static PointWave of(long address, long definition, Settings requested) {
        try (Parameters parameters = Parameters.of(requested)) {
            Native.buildPoint(address, definition, parameters.address());
            return new PointWave(parameters.read(), Native.twoD(address, definition, ELEVATION),
                    Native.twoD(address, definition, AMPLITUDES),
                    Native.twoD(address, definition, DENSITY),
                    Native.twoD(address, definition, DIRECTIONS));
        }
    }

    /**
     * The rate that was used: the one that gives a whole number of samples per repeat time.
     *
     * @return samples per second, in Hz
     */
    public double rate() {
        return settings.get("rate", "Hz");
    }

    /**
     * The width of a direction sector, of which a whole number fills the circle.
     *
     * @return the width in rad
     */
    public double sector() {
        return settings.get("delta_angle", "rad");
    }

    /**
     * The distance from one harmonic to the next, which is one over the repeat time.
     *
     * @return the distance in Hz; NaN if the record has no samples
     */
    public double resolution() {
        return rate() / elevation.length;
    }

    /**
     * The time of each sample of {@link #elevation}.
     *
     * @return the times in s, a new array
     */
    public double[] times() {
        double[] times = new double[elevation.length];
        double rate = rate();
        for (int j = 0; j < times.length; ++j) times[j] = j / rate;
        return times;
    }

    /**
     * The frequency of each element of {@link #amplitudes} and {@link #density}.
     *
     * @return the frequencies in Hz, a new array
     */
    public double[] frequencies() {
        double[] frequencies = new double[amplitudes.length];
        double resolution = resolution();
        for (int h = 0; h < frequencies.length; ++h) frequencies[h] = h * resolution;
        return frequencies;
    }
}
