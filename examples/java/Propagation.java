import java.util.List;
import tidelab.waves.Experiment;
import tidelab.waves.Front;
import tidelab.waves.Quantity;
import tidelab.waves.Run;
import tidelab.waves.Settings;

/**
 * Propagates the fronts of a run from the paddle line to a point by the host's own linear theory:
 * the exact dispersion relation, Snell's law and conservation of energy flux over the depth
 * profile.
 */
final class Propagation {
    private static final double STEP = 0.02; // m, along the tank

    private final List<Front> fronts;
    private final double g;
    private final double xLow;
    private final double[] depths;

    Propagation(Run run) {
        fronts = run.fronts();
        Experiment experiment = run.definition().experiment();
        Settings constants = experiment.constants();
        g = constants.get("base_g", "m/s2");
        xLow = constants.get("min_x", "m");
        depths = experiment.profile("delta_x", Quantity.of(STEP, "m"));
    }

    /** The surface elevation in metres at a point in front of the paddles. */
    double elevation(double x, double y, double t) {
        double sum = 0;
        for (Front front : fronts) {
            double omega = 2 * Math.PI * front.frequency();
            double across = across(front);
            double along = 0;
            for (double from = 0; from < x; from += STEP) {
                double to = Math.min(from + STEP, x);
                double k = waveNumber(omega, depth(0.5 * (from + to)), g);
                along += Math.sqrt(k * k - across * across) * (to - from);
            }
            double shoaling =
                    Math.sqrt(groupVelocity(omega, depth(0)) / groupVelocity(omega, depth(x)));
            sum += shoaling * front.amplitude()
                    * Math.cos(omega * t - along - across * y + front.phase());
        }
        return sum;
    }

    /** The direction in radians at x of a front that travels away from the paddle line. */
    double direction(Front front, double x) {
        return Math.asin(across(front) / waveNumber(2 * Math.PI * front.frequency(), depth(x), g));
    }

    /** The wave number along y, which is constant along the tank by Snell's law. */
    private double across(Front front) {
        return waveNumber(2 * Math.PI * front.frequency(), depth(0), g) * Math.sin(front.angle());
    }

    private double depth(double x) {
        double position = (x - xLow) / STEP;
        int i = Math.min((int) position, depths.length - 2);
        double part = position - i;
        return (1 - part) * depths[i] + part * depths[i + 1];
    }

    /** omega^2 = g k tanh(k depth), by Newton's method from the deep-water wave number. */
    static double waveNumber(double omega, double depth, double g) {
        double k = omega * omega / g / Math.sqrt(Math.tanh(omega * omega * depth / g));
        for (int i = 0; i < 50; ++i) {
            double tanh = Math.tanh(k * depth);
            double f = g * k * tanh - omega * omega;
            k -= f / (g * tanh + g * k * depth * (1 - tanh * tanh));
        }
        return k;
    }

    private double groupVelocity(double omega, double depth) {
        double k = waveNumber(omega, depth, g);
        return omega / k * 0.5 * (1 + 2 * k * depth / Math.sinh(2 * k * depth));
    }
}
