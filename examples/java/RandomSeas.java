import java.io.IOException;
import java.nio.file.Path;
import java.util.HashSet;
import java.util.List;
import java.util.Set;
import tidelab.waves.Experiment;
import tidelab.waves.Front;
import tidelab.waves.Run;
import tidelab.waves.TransferFront;

/**
 * Generates a short-crested random sea, a swell that meets a wind sea, and a focused group whose
 * waves come from many directions in a wide basin, and writes the drive signals of the paddles.
 *
 * <p>Usage: {@code java RandomSeas <site script> <output folder>}. Exits with 1 if one of
 * its checks fails.
 */
public final class RandomSeas {
    private RandomSeas() {}

    public static void main(String[] args) throws IOException {
        Results results = Results.in(args[1]);
        boolean good = true;
        try (Experiment basin = Experiment.builder().silent().open(Path.of(args[0]))) {
            Run sea = Seas.shortCrested(basin);
            results.deliver("short_crested", sea);
            good &= heightIs(sea.fronts(), Seas.SHORT_CRESTED.variance());
            good &= directionsFollow(sea.fronts());
            good &= crestsAreAsShort(sea.fronts());

            Run bimodal = Seas.bimodal(basin);
            results.deliver("bimodal", bimodal);
            good &= heightIs(bimodal.fronts(), Seas.SWELL.variance() + Seas.WIND_SEA.variance());
            good &= harmonicsAreDivided(bimodal);

            Run fan = Seas.fan(basin);
            results.deliver("fan", fan);
            good &= wavesMeetAtTheFocus(fan);
        }
        System.exit(good ? 0 : 1);
    }

    private static boolean heightIs(List<Front> fronts, double m0) {
        double variance = fronts.stream().mapToDouble(front -> energy(front.amplitude())).sum();
        double found = 4 * Math.sqrt(variance);
        double requested = 4 * Math.sqrt(m0);
        return Results.report(Math.abs(found / requested - 1) < 0.01,
                "significant height of the fronts %.4f m; 4 sqrt(m0) of the spectrum %.4f m", found,
                requested);
    }

    /**
     * Kolmogorov-Smirnov test of the directions. The cumulative law of its frequency maps each
     * direction to a number that is uniform between 0 and 1 if the directions follow the law. The
     * statistic exceeds 1.63 in one of a hundred seas.
     */
    private static boolean directionsFollow(List<Front> fronts) {
        double[] shares = fronts.stream()
                                  .mapToDouble(front
                                          -> Seas.SPREAD.share(front.frequency(), front.angle(),
                                                  -Seas.RANGE, Seas.RANGE))
                                  .sorted()
                                  .toArray();
        double gap = 0;
        for (int i = 0; i < shares.length; ++i) {
            gap = Math.max(gap,
                    Math.max(shares[i] - (double) i / shares.length,
                            (i + 1.0) / shares.length - shares[i]));
        }
        double statistic = gap * Math.sqrt(shares.length);
        return Results.report(statistic < 1.63,
                "directions of %d fronts against the law of their frequencies: %.2f, at most 1.63",
                shares.length, statistic);
    }

    /**
     * Compares the sum of the cosines of the directions with its expectation by the law. The
     * difference exceeds 2.58 standard deviations in one of a hundred seas.
     */
    private static boolean crestsAreAsShort(List<Front> fronts) {
        double distance = 0;
        double variance = 0;
        for (Front front : fronts) {
            double f = front.frequency();
            double mean = Seas.SPREAD.mean(f, -Seas.RANGE, Seas.RANGE, Math::cos);
            double square =
                    Seas.SPREAD.mean(f, -Seas.RANGE, Seas.RANGE, d -> Math.cos(d) * Math.cos(d));
            distance += Math.cos(front.angle()) - mean;
            variance += square - mean * mean;
        }
        double deviations = Math.abs(distance) / Math.sqrt(variance);
        return Results.report(deviations < 2.58,
                "their mean cosine is %.2f standard deviations from the law's, at most 2.58",
                deviations);
    }

    /** The variance of a sine wave. */
    private static double energy(double amplitude) {
        return 0.5 * amplitude * amplitude;
    }

    private static boolean harmonicsAreDivided(Run bimodal) {
        double[] energy = new double[2];
        Set<Integer> taken = new HashSet<>();
        boolean shared = false;
        for (int set = 0; set < 2; ++set) {
            for (TransferFront front : bimodal.fronts(set)) {
                shared |= !taken.add(front.harmonic());
                energy[set] += energy(front.amplitude());
            }
        }
        double found = energy[0] / (energy[0] + energy[1]);
        double swell = Seas.SWELL.variance();
        double requested = swell / (swell + Seas.WIND_SEA.variance());
        return Results.report(!shared && Math.abs(found - requested) < 0.03,
                "swell's share of the energy %.3f, of the spectra %.3f; no harmonic belongs to"
                        + " both",
                found, requested);
    }

    private static boolean wavesMeetAtTheFocus(Run fan) {
        Propagation water = new Propagation(fan);
        double crest = water.elevation(Seas.FOCUS_X, Seas.FOCUS_Y, Seas.FOCUS_T);
        double predicted = Seas.GROUP.crest(fan);
        double worst = 0;
        for (Front front : fan.fronts()) {
            double requested = Seas.fanDirection(front.frequency());
            worst = Math.max(worst, Math.abs(requested - water.direction(front, Seas.FOCUS_X)));
        }
        return Results.report(Math.abs(crest / predicted - 1) < 0.01,
                       "crest %.4f m at the focus; the spectrum predicts %.4f m", crest, predicted)
                & Results.report(worst < 0.01,
                        "directions at the focus are at most %.4f rad from the formula", worst);
    }
}
