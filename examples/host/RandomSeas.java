import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import java.io.IOException;
import java.util.Arrays;
import java.util.List;

/**
 * Generates a short-crested random sea, a swell that meets a wind sea, and a focused group whose
 * waves come from many directions in a wide basin, and writes the drive signals of the paddles.
 *
 * <p>Usage: {@code java RandomSeas <library> <site script> <output folder>}. Exits with 1 if one of
 * its checks fails.
 */
public final class RandomSeas {
    private RandomSeas() {}

    public static void main(String[] args) throws IOException {
        Tank.load(args);
        boolean good = true;
        try (Tank tank = new Tank(args)) {
            good &= shortCrested(tank);
            good &= bimodal(tank);
            good &= fan(tank);
        }
        System.exit(good ? 0 : 1);
    }

    private static boolean shortCrested(Tank tank) throws IOException {
        long run = Seas.shortCrested(tank);
        tank.deliver("short_crested", run);
        List<Front> fronts = Front.of(tank.experiment, run);
        return heightIs(fronts, Seas.SHORT_CRESTED.variance()) & directionsFollow(fronts)
                & crestsAreAsShort(fronts);
    }

    private static boolean heightIs(List<Front> fronts, double m0) {
        double found = 4 * Math.sqrt(Front.variance(fronts));
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

    private static boolean bimodal(Tank tank) throws IOException {
        long run = Seas.bimodal(tank);
        tank.deliver("bimodal", run);
        double swell = Seas.SWELL.variance();
        double windSea = Seas.WIND_SEA.variance();
        boolean good = heightIs(Front.of(tank.experiment, run), swell + windSea);

        double[] energy = new double[2];
        boolean[] taken = new boolean[1000];
        boolean shared = false;
        for (int set = 0; set < 2; ++set) {
            long fronts = Kelpbox_Experiment_fronts__SWIG_0(tank.experiment, null, run, set);
            for (int i = 0; i < Kelpbox_StdVectorTransferFront_size(fronts, null); ++i) {
                long front = Kelpbox_StdVectorTransferFront_get(fronts, null, i);
                int harmonic = (int) Kelpbox_TransferFront_get_harmonic(front, null);
                shared |= taken[harmonic];
                taken[harmonic] = true;
                energy[set] += 0.5 * Math.pow(Kelpbox_TransferFront_get_amp(front, null), 2);
            }
        }
        double found = energy[0] / Arrays.stream(energy).sum();
        double requested = swell / (swell + windSea);
        return good
                & Results.report(!shared && Math.abs(found - requested) < 0.03,
                        "swell's share of the energy %.3f, of the spectra %.3f; no harmonic belongs"
                                + " to both",
                        found, requested);
    }

    private static boolean fan(Tank tank) throws IOException {
        long run = Seas.fan(tank);
        tank.deliver("fan", run);
        double step = 1
                / Kelpbox_RunData_value(
                        Kelpbox_Experiment_repeat(tank.experiment, null, run), null);
        List<Front> fronts = Front.of(tank.experiment, run);
        double predicted =
                fronts.stream()
                        .mapToDouble(front
                                -> Math.sqrt(2 * Seas.GROUP.density(front.frequency()) * step))
                        .sum();
        Propagation water = new Propagation(tank.experiment);
        double crest = water.elevation(run, Seas.FOCUS_X, Seas.FOCUS_Y, Seas.FOCUS_T);
        double worst = fronts.stream()
                               .mapToDouble(front
                                       -> Math.abs(Seas.fanDirection(front.frequency())
                                               - water.direction(front, Seas.FOCUS_X)))
                               .max()
                               .orElse(Math.PI);
        return Results.report(Math.abs(crest / predicted - 1) < 0.01,
                       "crest %.4f m at the focus; the spectrum predicts %.4f m", crest, predicted)
                & Results.report(worst < 0.01,
                        "directions at the focus are at most %.4f rad from the formula", worst);
    }
}
