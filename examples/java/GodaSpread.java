import java.util.function.DoubleUnaryOperator;
import tidelab.waves.Quantity;
import tidelab.waves.Settings;

/**
 * The directional spreading of wind waves: cos^2s(d / 2) of the deviation d from the mean
 * direction. s is highest at the peak of the spectrum and falls to both sides. This is the law of
 * Mitsuyasu et al. (1975) in the form of Goda and Suzuki, from Goda (2010), "Random Seas and Design
 * of Maritime Structures", section 2.3. s_max is 10 for wind waves, 25 for a short swell and 75 for
 * a long one.
 */
record GodaSpread(double sMax, double fp) {
    /** s for the library: formula, limit, formula. */
    static final String TEXT = "s_max*($[Hz]/fp[Hz])^5#fp[Hz]@Hz#s_max*($[Hz]/fp[Hz])^(-2.5)";

    private static final int STRIPS = 2000;

    /** The parameters of the formula. */
    Settings settings() {
        return Settings.of("s_max", sMax, "fp", Quantity.of(fp, "Hz"));
    }

    /** The same s, for the host's own checks. */
    double s(double f) {
        return sMax * Math.pow(f / fp, f < fp ? 5 : -2.5);
    }

    /** The share of the energy between {@code low} and {@code high} that is below a deviation. */
    double share(double f, double deviation, double low, double high) {
        return sum(f, low, deviation, d -> 1) / sum(f, low, high, d -> 1);
    }

    /** The mean of a function of the deviation between {@code low} and {@code high}. */
    double mean(double f, double low, double high, DoubleUnaryOperator function) {
        return sum(f, low, high, function) / sum(f, low, high, d -> 1);
    }

    /** The integral of the law times a function, by the midpoint rule. */
    private double sum(double f, double low, double high, DoubleUnaryOperator function) {
        double step = (high - low) / STRIPS;
        double sum = 0;
        for (int i = 0; i < STRIPS; ++i) {
            double d = low + (i + 0.5) * step;
            sum += Math.pow(Math.cos(0.5 * d), 2 * s(f)) * function.applyAsDouble(d) * step;
        }
        return sum;
    }
}
