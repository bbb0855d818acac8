import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import java.io.IOException;
import java.io.PrintWriter;
import java.util.stream.DoubleStream;

/**
 * Animates a short-crested sea and a focused group over a wide basin, one slice of columns at a
 * time, and writes some of the frames.
 *
 * <p>Usage: {@code java Surface <library> <site script> <output folder>}. Exits with 1 if one of
 * its checks fails.
 */
public final class Surface {
    private static final double RATE = 4.0; // Hz, more than twice the highest frequency
    private static final double STEP = 0.2; // m, about 4 points per shortest wave
    private static final double LENGTH = 30.0; // m, of the basin
    private static final double WIDTH = 20.0;
    private static final double SEA_T = 100.0; // s, a moment of the short-crested sea
    private static final double[] FILM = {-14, -7, -3.5, 0, 3.5, 7}; // s, from the focus
    private static final double METRES = 4.0 / 32767; // per count

    private final Tank tank;
    private final long run;
    private long columns;
    private long rows;

    private Surface(Tank tank, long run) {
        this.tank = tank;
        this.run = run;
    }

    public static void main(String[] args) throws IOException {
        Tank.load(args);
        boolean good;
        try (Tank tank = new Tank(args)) {
            Surface sea = new Surface(tank, Seas.shortCrested(tank));
            sea.animate("sea");
            sea.write("surface_sea.csv", SEA_T);
            good = sea.pointsAgree(SEA_T);
            sea.stop();

            Surface group = new Surface(tank, Seas.fan(tank));
            group.animate("group");
            group.write("surface_group.csv",
                    DoubleStream.of(FILM).map(t -> Seas.FOCUS_T + t).toArray());
            good &= group.pointsAgree(Seas.FOCUS_T) & group.highestPointIsTheFocus();
            group.stop();
        }
        System.exit(good ? 0 : 1);
    }

    /** Builds the frames in four slices. Between them a host could draw. */
    private void animate(String name) {
        long params = new_Kelpbox_Params();
        Native.number(params, "rate", RATE, "Hz");
        Native.number(params, "x_step", STEP, "m");
        Native.number(params, "x_min", 0, "m");
        Native.number(params, "x_max", LENGTH, "m");
        Native.number(params, "y_step", STEP, "m");
        Native.number(params, "y_min", 0, "m");
        Native.number(params, "y_max", WIDTH, "m");
        Kelpbox_Experiment_animate_init(tank.experiment, null, run, params, null);
        columns = 1 + Math.round(LENGTH / Kelpbox_Params_get(params, null, "x_step", "m"));
        rows = 1 + Math.round(WIDTH / Kelpbox_Params_get(params, null, "y_step", "m"));
        Results.printf("%-9s %d frames of %d x %d points:", name,
                Kelpbox_Experiment_animate_size(tank.experiment, null, run), columns, rows);
        for (int part = 0; part < 4; ++part) {
            Kelpbox_Experiment_animate_build_slice(tank.experiment, null, run, params, null,
                    part * columns / 4, (part + 1) * columns / 4);
            Results.printf(" %.0f %%",
                    100 * Kelpbox_Experiment_animate_progress(tank.experiment, null, run));
        }
        Results.printf("%n");
        delete_Kelpbox_Params(params);
    }

    /** Ends the build and frees its memory. */
    private void stop() {
        Kelpbox_Experiment_animate_stop(tank.experiment, null, run);
        Kelpbox_Experiment_animate_free(tank.experiment, null, run);
    }

    private double height(double t, long ix, long iy) {
        long frame =
                Kelpbox_Experiment_animate_data(tank.experiment, null, run, Math.round(t * RATE));
        return METRES * Kelpbox_StdVectorShort_get(frame, null, (int) (rows * ix + iy));
    }

    private double x(long ix) {
        return ix * LENGTH / (columns - 1);
    }

    private double y(long iy) {
        return iy * WIDTH / (rows - 1);
    }

    /** One block per moment: the values of x in its first row, then one row for each y. */
    private void write(String name, double... moments) throws IOException {
        try (PrintWriter file = tank.writer(name)) {
            for (double t : moments) {
                file.print(columns);
                for (long ix = 0; ix < columns; ++ix) {
                    file.printf(",%.4g", x(ix));
                }
                file.println();
                for (long iy = 0; iy < rows; ++iy) {
                    file.printf("%.4g", y(iy));
                    for (long ix = 0; ix < columns; ++ix) {
                        file.printf(",%.5f", height(t, ix, iy));
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
        Propagation water = new Propagation(tank.experiment);
        double worst = 0;
        double highest = 0;
        for (long ix = 5; ix < columns; ix += columns / 3) {
            for (long iy = 5; iy < rows; iy += rows / 2) {
                double expected = water.elevation(run, x(ix), y(iy), t);
                worst = Math.max(worst, Math.abs(height(t, ix, iy) - expected));
                highest = Math.max(highest, Math.abs(expected));
            }
        }
        return Results.report(worst < 0.01 * highest,
                "heights up to %.4f m are at most %.5f m from theory", highest, worst);
    }

    private boolean highestPointIsTheFocus() {
        double highest = 0;
        double atX = 0;
        double atY = 0;
        for (long ix = 0; ix < columns; ++ix) {
            for (long iy = 0; iy < rows; ++iy) {
                if (height(Seas.FOCUS_T, ix, iy) > highest) {
                    highest = height(Seas.FOCUS_T, ix, iy);
                    atX = x(ix);
                    atY = y(iy);
                }
            }
        }
        return Results.report(Math.hypot(atX - Seas.FOCUS_X, atY - Seas.FOCUS_Y) < STEP,
                "highest point %.4f m at x %.1f m, y %.1f m", highest, atX, atY);
    }
}
