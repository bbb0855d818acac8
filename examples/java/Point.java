import java.io.IOException;
import java.io.PrintWriter;
import java.nio.file.Path;
import java.util.stream.DoubleStream;
import tidelab.waves.Experiment;
import tidelab.waves.PointWave;
import tidelab.waves.Quantity;
import tidelab.waves.Run;
import tidelab.waves.Settings;

/**
 * Predicts a short-crested sea at two points of a wide basin: its spectrum, directions and
 * statistics at the point of the requested sea, and its elevation over the ridge.
 *
 * <p>Usage: {@code java Point <site script> <output folder>}. Exits with 1 if one of its checks
 * fails.
 */
public final class Point {
    private static final Settings RIDGE = Settings.of("x", "14 m", "y", "12 m");
    private static final double[] TIMES = {10, 100, 200}; // s
    private static final Quantity RATE = Quantity.of("20 Hz"); // about 30 samples per wave

    private Point() {}

    public static void main(String[] args) throws IOException {
        Results results = Results.in(args[1]);
        boolean good;
        try (Experiment basin = Experiment.builder().silent().open(Path.of(args[0]))) {
            Run sea = Seas.shortCrested(basin);
            System.out.printf("point     x %.1f m, y %.1f m in the short-crested sea%n",
                    Seas.POINT.get("x", "m"), Seas.POINT.get("y", "m"));
            PointWave wave = at(sea, Seas.POINT);
            writeSpectrum(wave, results);
            writeDirections(wave, results);
            good = statistics(sea) & ridge(sea);
        }
        System.exit(good ? 0 : 1);
    }

    private static PointWave at(Run run, Settings point) {
        return run.point(point.with("rate", RATE).with("delta_angle", "10 deg"));
    }

    private static void writeSpectrum(PointWave wave, Results results) throws IOException {
        double[] frequencies = wave.frequencies();
        Jonswap sea = Seas.SHORT_CRESTED;
        try (PrintWriter file = results.writer("point_spectrum.csv")) {
            file.println("frequency_Hz,amplitude_m,density_m2s,requested_m2s");
            for (int h = 0; h < frequencies.length; ++h) {
                double f = frequencies[h];
                boolean inside = f >= sea.low() && f <= sea.high();
                file.printf("%.9g,%.9g,%.9g,%.9g%n", f, wave.amplitudes()[h], wave.density()[h],
                        inside ? sea.density(f) : 0.0);
            }
        }
    }

    /** One row per sector: its direction, its share of the variance, and the requested share. */
    private static void writeDirections(PointWave wave, Results results) throws IOException {
        double[] frequencies = wave.frequencies();
        double[] densities = wave.density();
        double total = DoubleStream.of(densities).sum();
        double width = wave.sector();
        try (PrintWriter file = results.writer("point_directions.csv")) {
            file.println("direction_rad,share,requested");
            for (int b = 0; b < wave.directions().length; ++b) {
                double middle = Math.IEEEremainder(b * width, 2 * Math.PI);
                double requested = 0;
                for (int h = 1; h < densities.length; ++h) {
                    if (densities[h] > 0) {
                        requested += densities[h] / total
                                * (below(middle + width / 2, frequencies[h])
                                        - below(middle - width / 2, frequencies[h]));
                    }
                }
                file.printf("%.9g,%.9g,%.9g%n", b * width, wave.directions()[b], requested);
            }
        }
    }

    /** The share of the energy of a frequency that is below a direction, by the law. */
    private static double below(double direction, double f) {
        if (Math.abs(direction) >= Seas.RANGE) {
            return direction > 0 ? 1 : 0;
        }
        return Seas.SPREAD.share(f, direction, -Seas.RANGE, Seas.RANGE);
    }

    private static boolean statistics(Run sea) {
        Settings found = sea.statistics(Seas.POINT.with("rate", RATE));
        double requested = 4 * Math.sqrt(Seas.SHORT_CRESTED.variance());
        System.out.printf(
                "          two thirds of the waves are lower than %.4f m, the highest is %.4f m;"
                        + " mean period %.3f s%n",
                found.get("sig_h", "m"), found.get("max_amp", "m"), found.get("Ts", "s"));
        double hs = found.get("Hs", "m");
        return Results.report(Math.abs(hs / requested - 1) < 0.01,
                "significant height %.4f m; 4 sqrt(m0) of the spectrum %.4f m", hs, requested);
    }

    /**
     * Compares the elevation over the ridge with the host's own theory of shoaling and refraction.
     */
    private static boolean ridge(Run sea) {
        double x = RIDGE.get("x", "m");
        double y = RIDGE.get("y", "m");
        double[] eta = at(sea, RIDGE).elevation();
        Propagation water = new Propagation(sea);
        double worst = 0;
        for (double t : TIMES) {
            double found = eta[(int) Math.round(t * RATE.in("Hz"))];
            worst = Math.max(worst, Math.abs(found - water.elevation(x, y, t)));
        }
        return Results.report(worst < 0.01 * Seas.SHORT_CRESTED.hs(),
                "elevation on the ridge, x %.1f m, y %.1f m, within %.2g m of the host's own"
                        + " theory",
                x, y, worst);
    }
}
