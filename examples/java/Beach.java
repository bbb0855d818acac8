import java.util.List;

/**
 * A regular wave in front of a partly reflecting beach. The records in examples/records are
 * computed from it, so an analysis of them must find it.
 *
 * <p>Lengths are in metres, times in seconds, angles in radians. The second harmonics that are
 * bound to the wave and to its reflection follow Stokes' second-order theory. There are free second
 * harmonics too, as a piston with a sinusoidal motion generates them.
 */
final class Beach {
    static final double DEPTH = 0.7; // in front of the beach
    static final double GRAVITY = 9.81;
    static final double RATE = 50.0; // Hz
    static final int SAMPLES = 2000;
    static final double DURATION = SAMPLES / RATE;

    /**
     * A record holds a whole number of periods, so the wave falls on one element of the record's
     * spectrum. Any other frequency leaks into the neighbouring elements, and the amplitude of the
     * highest one is too low by up to 36 per cent.
     */
    static final int PERIODS = 25;

    static final double FREQUENCY = PERIODS / DURATION; // Hz

    /** Unevenly spaced, so that no two pairs have the same distance, over 3/5 of a wave length. */
    static final double[] PROBES = {9.00, 9.30, 9.75, 10.35, 11.10};

    static final double AMPLITUDE = 0.040;
    static final double REFLECTION = 0.12;
    static final double FREE = 0.0030;
    static final double FREE_BACK = 0.0009;

    static final double NOISE = 0.0002; // standard deviation

    /** The wave number k is negative for a reflected wave. The phase holds at x = 0. */
    record Train(double amplitude, double k, double omega, double phase) {}

    private static final double OMEGA = 2 * Math.PI * FREQUENCY;
    private static final double K = Propagation.waveNumber(OMEGA, DEPTH, GRAVITY);
    private static final double K_FREE = Propagation.waveNumber(2 * OMEGA, DEPTH, GRAVITY);

    static final double BOUND = bound(AMPLITUDE);
    static final double BOUND_BACK = bound(REFLECTION * AMPLITUDE);

    private static final List<Train> TRAINS = List.of(new Train(AMPLITUDE, K, OMEGA, 0.4),
            new Train(REFLECTION* AMPLITUDE, -K, OMEGA, 1.9),
            new Train(BOUND, 2 * K, 2 * OMEGA, 2 * 0.4),
            new Train(BOUND_BACK, -2 * K, 2 * OMEGA, 2 * 1.9),
            new Train(FREE, K_FREE, 2 * OMEGA, 2.6),
            new Train(FREE_BACK, -K_FREE, 2 * OMEGA, -0.7));

    private Beach() {}

    /** Stokes' second harmonic of a wave of this amplitude. */
    private static double bound(double amplitude) {
        double kh = K * DEPTH;
        return K * amplitude * amplitude * Math.cosh(kh) * (2 + Math.cosh(2 * kh))
                / (4 * Math.pow(Math.sinh(kh), 3));
    }

    /** The surface at x, without noise. */
    static double elevation(double x, double t) {
        return TRAINS.stream()
                .mapToDouble(train
                        -> train.amplitude()
                                * Math.cos(train.omega() * t - train.k() * x + train.phase()))
                .sum();
    }

    /** The wave height at x, without noise. */
    static double height(double x) {
        double crest = 0;
        double trough = 0;
        int steps = 1000;
        for (int i = 0; i < steps; ++i) {
            double surface = elevation(x, i / (steps * FREQUENCY));
            crest = Math.max(crest, surface);
            trough = Math.min(trough, surface);
        }
        return crest - trough;
    }
}
