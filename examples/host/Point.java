import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import java.io.IOException;
import java.io.PrintWriter;

/**
 * Predicts a short-crested sea at two points of a wide basin: its spectrum, directions and
 * statistics at the point of the requested sea, and its elevation over the ridge.
 *
 * <p>Usage: {@code java Point <library> <site script> <output folder>}. Exits with 1 if one of its
 * checks fails.
 */
public final class Point {
    private static final double RIDGE_X = 14.0; // m
    private static final double RIDGE_Y = 12.0;
    private static final double[] TIMES = {10, 100, 200}; // s
    private static final double RATE = 20.0; // Hz, about 30 samples per wave
    private static final int SECTORS = 36;

    private final Tank tank;
    private final long run;

    private Point(Tank tank) {
        this.tank = tank;
        run = Seas.shortCrested(tank);
    }

    public static void main(String[] args) throws IOException {
        Tank.load(args);
        boolean good;
        try (Tank tank = new Tank(args)) {
            Point point = new Point(tank);
            Results.printf(
                    "point     x %.1f m, y %.1f m in the short-crested sea%n", Seas.X, Seas.Y);
            point.build(Seas.X, Seas.Y);
            point.writeSpectrum();
            point.writeDirections();
            good = point.statistics() & point.ridge();
        }
        System.exit(good ? 0 : 1);
    }

    private static long place(double x, double y) {
        long params = new_Kelpbox_Params();
        Native.number(params, "rate", RATE, "Hz");
        Native.number(params, "x", x, "m");
        Native.number(params, "y", y, "m");
        return params;
    }

    private void build(double x, double y) {
        long params = place(x, y);
        Native.number(params, "delta_angle", 360.0 / SECTORS, "deg");
        Kelpbox_Experiment_twod_build(tank.experiment, null, run, params, null);
        delete_Kelpbox_Params(params);
    }

    private double[] data(int which) {
        return Native.array(Kelpbox_Experiment_twod_data(tank.experiment, null, run, which));
    }

    private void writeSpectrum() throws IOException {
        double[] amplitudes = data(1);
        double[] densities = data(2);
        Jonswap sea = Seas.SHORT_CRESTED;
        try (PrintWriter file = tank.writer("point_spectrum.csv")) {
            file.println("frequency_Hz,amplitude_m,density_m2s,requested_m2s");
            for (int h = 0; h < densities.length; ++h) {
                double f = h / Seas.REPEAT;
                boolean inside = f >= sea.low() && f <= sea.high();
                file.printf("%.9g,%.9g,%.9g,%.9g%n", f, amplitudes[h], densities[h],
                        inside ? sea.density(f) : 0.0);
            }
        }
    }

    /** One row per sector: its direction, its share of the variance, and the requested share. */
    private void writeDirections() throws IOException {
        double[] shares = data(3);
        double[] densities = data(2);
        double total = 0;
        for (double density : densities) {
            total += density;
        }
        double width = 2 * Math.PI / shares.length;
        try (PrintWriter file = tank.writer("point_directions.csv")) {
            file.println("direction_rad,share,requested");
            for (int b = 0; b < shares.length; ++b) {
                double middle = Math.IEEEremainder(b * width, 2 * Math.PI);
                double requested = 0;
                for (int h = 1; h < densities.length; ++h) {
                    if (densities[h] > 0) {
                        requested += densities[h] / total
                                * (below(middle + width / 2, h) - below(middle - width / 2, h));
                    }
                }
                file.printf("%.9g,%.9g,%.9g%n", b * width, shares[b], requested);
            }
        }
    }

    /** The share of the energy of a harmonic that is below a direction, by the law. */
    private static double below(double direction, int h) {
        if (Math.abs(direction) >= Seas.RANGE) {
            return direction > 0 ? 1 : 0;
        }
        return Seas.SPREAD.share(h / Seas.REPEAT, direction, -Seas.RANGE, Seas.RANGE);
    }

    private boolean statistics() {
        long params = place(Seas.X, Seas.Y);
        Kelpbox_Experiment_twod_stats(tank.experiment, null, run, params, null);
        double found = Kelpbox_Params_get(params, null, "Hs", "m");
        double requested = 4 * Math.sqrt(Seas.SHORT_CRESTED.variance());
        Results.printf(
                "          two thirds of the waves are lower than %.4f m, the highest is %.4f m;"
                        + " mean period %.3f s%n",
                Kelpbox_Params_get(params, null, "sig_h", "m"),
                Kelpbox_Params_get(params, null, "max_amp", "m"),
                Kelpbox_Params_get(params, null, "Ts", "s"));
        delete_Kelpbox_Params(params);
        return Results.report(Math.abs(found / requested - 1) < 0.01,
                "significant height %.4f m; 4 sqrt(m0) of the spectrum %.4f m", found, requested);
    }

    /**
     * Compares the elevation over the ridge with the host's own theory of shoaling and refraction.
     */
    private boolean ridge() {
        build(RIDGE_X, RIDGE_Y);
        double[] eta = data(0);
        Propagation water = new Propagation(tank.experiment);
        double worst = 0;
        for (double t : TIMES) {
            worst = Math.max(worst,
                    Math.abs(eta[(int) Math.round(t * RATE)]
                            - water.elevation(run, RIDGE_X, RIDGE_Y, t)));
        }
        return Results.report(worst < 0.01 * Seas.SHORT_CRESTED.hs(),
                "elevation on the ridge, x %.1f m, y %.1f m, within %.2g m of the host's own"
                        + " theory",
                RIDGE_X, RIDGE_Y, worst);
    }
}
