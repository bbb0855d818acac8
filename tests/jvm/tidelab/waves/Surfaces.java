package tidelab.waves;

import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.TimeoutException;
import java.util.concurrent.locks.LockSupport;
import java.util.function.BooleanSupplier;

/** Animations of the flume, for tests. */
final class Surfaces {
    static final int COLUMNS = 21;
    static final int ROWS = 5;
    static final int FRAMES = 200;

    /** 20 frames per second, every metre of 20 m, and every 25 cm across. */
    static final Settings GRID = Settings.of("rate", "20 Hz", "x_step", "1 m", "x_min", "0 m",
            "x_max", "20 m", "y_step", "0.25 m", "y_min", "-0.5 m", "y_max", "0.5 m");

    /** For the crossed sea, a build takes long enough for another thread to act on it. */
    static final Settings FINE = GRID.with("x_step", "2 cm").with("rate", "4.2 Hz");

    /** For the crossed sea, a build that is not stopped takes longer than any test waits. */
    static final Settings SLOW = FINE.with("x_step", "0.2 mm");

    private Surfaces() {}

    /** A run with many oblique fronts, each of which costs time at each point. */
    static Run crossedSea(Experiment experiment) {
        Definition definition = Tanks.definition(experiment, "sea");
        List<Front> fronts = new ArrayList<>();
        for (int i = 0; i < 20000; ++i) {
            fronts.add(new Front(0.2 + 0.1 * (i % 15), 1e-6, 2e-5 * i - 0.2, 0.01 * i));
        }
        Tanks.place(definition).addFronts(fronts).set();
        return definition.build();
    }

    /** The heights in m of all points of a wave from the paddle line, by linear theory. */
    static double[] plane(Animation animation, int frame, double f, double a, double phase) {
        double omega = Tanks.TWO_PI * f;
        double k = Tanks.waveNumber(omega);
        double[] heights = new double[animation.columns() * animation.rows()];
        for (int column = 0; column < animation.columns(); ++column) {
            for (int row = 0; row < animation.rows(); ++row) {
                heights[animation.index(column, row)] = a
                        * Math.cos(omega * animation.time(frame) - k * animation.x(column) + phase);
            }
        }
        return heights;
    }

    static double[] metres(short[] frame) {
        double[] heights = new double[frame.length];
        for (int i = 0; i < frame.length; ++i) {
            heights[i] = Animation.height(frame[i]);
        }
        return heights;
    }

    /** Waits until something is true, at most 20 s. */
    static void await(BooleanSupplier condition) throws TimeoutException {
        long end = System.nanoTime() + TimeUnit.SECONDS.toNanos(20);
        while (!condition.getAsBoolean()) {
            if (System.nanoTime() > end) {
                throw new TimeoutException("did not become true within 20 s");
            }
            LockSupport.parkNanos(100_000);
        }
    }
}
