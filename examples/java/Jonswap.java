import tidelab.waves.Quantity;
import tidelab.waves.Run;
import tidelab.waves.Specification;

/**
 * A JONSWAP spectrum: significant height in m, peak frequency in Hz, peakedness, and the band in
 * Hz. Goda's constant makes the significant height hold for any peakedness.
 */
record Jonswap(double hs, double fp, double gamma, double low, double high) {
    /** The density for the library: limit, formula, limit, formula, limit. */
    private static final String TEXT = String.join("#", "f_low[Hz] @Hz", formula("0.07") + " @m2s",
            "fp[Hz] @Hz", formula("0.09") + " @m2s", "f_high[Hz] @Hz");

    private static String formula(String width) {
        return "0.0624/(0.230+0.0336*peakedness-0.185/(1.9+peakedness))"
                + "*Hs[m]^2*fp[Hz]^4/$[Hz]^5*exp(-1.25*(fp[Hz]/$[Hz])^4)"
                + "*peakedness^exp(-square($[Hz]/fp[Hz]-1)/(2*square(" + width + ")))";
    }

    /** Adds a component with this spectrum. */
    void addTo(Specification specification) {
        specification.addSpectrum("JONSWAP", TEXT)
                .set("Hs", Quantity.of(hs, "m"), "fp", Quantity.of(fp, "Hz"), "peakedness", gamma,
                        "f_low", Quantity.of(low, "Hz"), "f_high", Quantity.of(high, "Hz"));
    }

    /** The same density in m2s, for the host's own checks. */
    double density(double f) {
        double alpha = 0.0624 / (0.230 + 0.0336 * gamma - 0.185 / (1.9 + gamma));
        double width = f < fp ? 0.07 : 0.09;
        double peak = Math.exp(-Math.pow(f / fp - 1, 2) / (2 * width * width));
        return alpha * hs * hs * Math.pow(fp, 4) / Math.pow(f, 5)
                * Math.exp(-1.25 * Math.pow(fp / f, 4)) * Math.pow(gamma, peak);
    }

    /** The variance m0 of the band in m2, by the midpoint rule. */
    double variance() {
        int strips = 20000;
        double step = (high - low) / strips;
        double sum = 0;
        for (int i = 0; i < strips; ++i) {
            sum += density(low + (i + 0.5) * step) * step;
        }
        return sum;
    }

    /** The height in m of the crest where the crests of all fronts of a run meet. */
    double crest(Run run) {
        double step = run.repeat().frequency(1);
        return run.fronts()
                .stream()
                .mapToDouble(front -> Math.sqrt(2 * density(front.frequency()) * step))
                .sum();
    }
}
