import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import java.io.IOException;

/**
 * Generates a focused wave group and an oblique regular wave between side walls in a wide basin,
 * and writes the drive signals of the paddles.
 *
 * <p>Usage: {@code java Basin <library> <site script> <output folder>}. Exits with 1 if its check
 * of the focus fails.
 */
public final class Basin {
    // A JONSWAP spectrum whose crests all meet at one point at one time.
    static final Jonswap SEA = new Jonswap(0.06, 0.6, 3.3, 0.35, 1.4);
    static final double FOCUS_X = 12.0; // m
    static final double FOCUS_Y = 9.0; // m
    static final double FOCUS_T = 32.0; // s
    static final double REPEAT = 64.0; // s

    private Basin() {}

    public static void main(String[] args) throws IOException {
        Tank.load(args);
        boolean focused;
        try (Tank tank = new Tank(args)) {
            tank.describe();
            focused = group(tank);
            oblique(tank);
        }
        System.exit(focused ? 0 : 1);
    }

    private static boolean group(Tank tank) throws IOException {
        long run = tank.definition("focused group");
        tank.spectrum(tank.specification(run, FOCUS_X, FOCUS_Y, FOCUS_T), SEA);
        tank.build(run, REPEAT, "False", "Null");
        tank.deliver("group", run);

        double predicted = 0;
        long grid = Kelpbox_Experiment_repeat(tank.experiment, null, run);
        double step = 1 / Kelpbox_RunData_value(grid, null);
        long last = Kelpbox_RunData_wave_num(grid, null, SEA.high());
        for (long h = Kelpbox_RunData_wave_num(grid, null, SEA.low()); h <= last; ++h) {
            predicted += Math.sqrt(2 * SEA.density(h * step) * step);
        }
        double crest = new Propagation(tank.experiment).elevation(run, FOCUS_X, FOCUS_Y, FOCUS_T);
        boolean good = Math.abs(crest / predicted - 1) < 0.01;
        Results.printf(
                "focus     crest %.4f m at x %.1f m, y %.1f m, t %.1f s; the spectrum predicts"
                        + " %.4f m: %s%n",
                crest, FOCUS_X, FOCUS_Y, FOCUS_T, predicted, good ? "good" : "WRONG");
        return good;
    }

    private static void oblique(Tank tank) throws IOException {
        long run = tank.definition("oblique wave");
        long waves = tank.specification(run, 0, 0, 0);
        long single = Kelpbox_Experiment_add_single(tank.experiment, null, waves);
        long params = new_Kelpbox_Params();
        Native.number(params, "f", 0.75, "Hz");
        Native.number(params, "a", 20, "mm");
        Native.number(params, "angle", 25, "deg");
        Native.number(params, "phase", 0, "rad");
        tank.set(single, params);
        tank.build(run, REPEAT, "True", "Null");
        tank.deliver("oblique", run);
    }
}
