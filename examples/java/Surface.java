import java.io.IOException;
import java.io.PrintWriter;
import java.nio.file.Path;
import java.util.stream.DoubleStream;
import tidelab.waves.Animation;
import tidelab.waves.Experiment;
import tidelab.waves.Quantity;
import tidelab.waves.Run;

/**
 * Animates a short-crested sea and a focused group over a wide basin, one slice of columns at a
 * time, and writes some of the frames.
 *
 * <p>Usage: {@code java Surface <site script> <output folder>}. Exits with 1 if one of its checks
 * fails.
 */
public final class Surface {
    private static final double RATE = 4.0; // Hz, more than twice the highest frequency
    private static final double STEP = 0.2; // m, about 4 points per shortest wave
    private static final double SEA_T = 100.0; // s, a moment of the short-crested sea
    private static final double[] FILM = {-14, -7, -3.5, 0, 3.5, 7}; // s, from the focus

    private final Animation animation;

    private Surface(Animation animation) {
        this.animation = animation;
    }

    public static void main(String[] args) throws IOException {
        Results results = Results.in(args[1]);
        boolean good;
        try (Experiment basin = Experiment.builder().silent().open(Path.of(args[0]))) {
            try (Animation animation = animate("sea", Seas.shortCrested(basin))) {
                Surface sea = new Surface(animation);
                sea.write(results, "surface_sea.csv", SEA_T);
                good = sea.pointsAgree(SEA_T);
            }
            try (Animation animation = animate("group", Seas.fan(basin))) {
                Surface group = new Surface(animation);
                group.write(results, "surface_group.csv",
                        DoubleStream.of(FILM).map(t -> Seas.FOCUS_T + t).toArray());
                good &= group.pointsAgree(Seas.FOCUS_T) & group.highestPointIsTheFocus();
            }
        }
        System.exit(good ? 0 : 1);
    }

    /** Builds the frames in four slices. Between them a host could draw. */
    private static Animation animate(String name, Run run) {
        Quantity step = Quantity.of(STEP, "m");
        Animation animation = run.animation("rate", Quantity.of(RATE, "Hz"), "x_step", step,
                "x_min", "0 m", "x_max", "30 m", "y_step", step, "y_min", "0 m", "y_max", "20 m");
        System.out.printf("%-9s %d frames of %d x %d points:", name, animation.frames(),
                animation.columns(), animation.rows());
        for (int part = 0; part < 4; ++part) {
            animation.buildSlice(
                    part * animation.columns() / 4, (part + 1) * animation.columns() / 4);
            System.out.printf(" %.0f %%", 100 * animation.progress());
        }
        System.out.println();
        return animation;
    }

    private short[] frame(double t) {
        return animation.frame((int) Math.round(t * RATE));
    }

    /** The height of the surface in m. */
    private double height(short[] frame, int column, int row) {
        return Animation.height(frame[animation.index(column, row)]);
    }

    /** One block per moment: the values of x in its first row, then one row for each y. */
    private void write(Results results, String name, double... moments) throws IOException {
        try (PrintWriter file = results.writer(name)) {
            for (double t : moments) {
                short[] frame = frame(t);
                file.print(animation.columns());
                for (int ix = 0; ix < animation.columns(); ++ix) {
                    file.printf(",%.4g", animation.x(ix));
                }
                file.println();
                for (int iy = 0; iy < animation.rows(); ++iy) {
                    file.printf("%.4g", animation.y(iy));
                    for (int ix = 0; ix < animation.columns(); ++ix) {
                        file.printf(",%.5f", height(frame, ix, iy));
                    }
                    file.println();
                }
                file.println();
                file.println();
            }
        }
    }

    /** Compares points before, on and after the ridge with the host's own theory. */
    private boolean pointsAgree(double t) {
        Propagation water = new Propagation(animation.run());
        short[] frame = frame(t);
        double worst = 0;
        double highest = 0;
        for (int ix = 5; ix < animation.columns(); ix += animation.columns() / 3) {
            for (int iy = 5; iy < animation.rows(); iy += animation.rows() / 2) {
                double expected = water.elevation(animation.x(ix), animation.y(iy), t);
                worst = Math.max(worst, Math.abs(height(frame, ix, iy) - expected));
                highest = Math.max(highest, Math.abs(expected));
            }
        }
        return Results.report(worst < 0.01 * highest,
                "heights up to %.4f m are at most %.5f m from theory", highest, worst);
    }

    private boolean highestPointIsTheFocus() {
        short[] frame = frame(Seas.FOCUS_T);
        double highest = 0;
        double atX = 0;
        double atY = 0;
        for (int ix = 0; ix < animation.columns(); ++ix) {
            for (int iy = 0; iy < animation.rows(); ++iy) {
                if (height(frame, ix, iy) > highest) {
                    highest = height(frame, ix, iy);
                    atX = animation.x(ix);
                    atY = animation.y(iy);
                }
            }
        }
        return Results.report(Math.hypot(atX - Seas.FOCUS_X, atY - Seas.FOCUS_Y) < STEP,
                "highest point %.4f m at x %.1f m, y %.1f m", highest, atX, atY);
    }
}
