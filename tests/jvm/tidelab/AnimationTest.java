package tidelab;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import java.util.concurrent.atomic.AtomicReference;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.function.Executable;
import tidelab.waves.component.WaveSynthesisException;

/** Animation of the flume: built whole or in slices, watched and stopped by a second thread. */
class AnimationTest extends FlumeTest {
    private static final int COLUMNS = 21;
    private static final int ROWS = 5;
    private static final int FRAMES = 200;

    private long definition;

    @BeforeEach
    void make() {
        definition = Kelpbox_Experiment_add_definition(experiment, null, "run");
        long specification = Flume.specification(experiment, definition);
        // The two harmonics have no common period shorter than the repeat time.
        for (double f : new double[] {0.5, 0.7}) {
            long single = Kelpbox_Experiment_add_single(experiment, null, specification);
            Flume.setSingle(experiment, single, f, 0.1, 0.3);
        }
        Flume.setDefinition(experiment, definition, 10);
        Kelpbox_Experiment_run_build(experiment, null, definition);
        grid(1.0);
    }

    private void grid(double xStep) {
        Kelpbox_Params_clear(params, null);
        Flume.insert(params, "rate", 20, "Hz");
        Flume.insert(params, "x_step", xStep, "m");
        Flume.insert(params, "y_step", 0.25, "m");
        Flume.insert(params, "x_min", 0, "m");
        Flume.insert(params, "x_max", 20, "m");
        Flume.insert(params, "y_min", -0.5, "m");
        Flume.insert(params, "y_max", 0.5, "m");
    }

    private void build() {
        Kelpbox_Experiment_animate_build(experiment, null, definition, params, null);
    }

    private void init() {
        Kelpbox_Experiment_animate_init(experiment, null, definition, params, null);
    }

    private void slice(long first, long last) {
        Kelpbox_Experiment_animate_build_slice(
                experiment, null, definition, params, null, first, last);
    }

    private double progress() {
        return Kelpbox_Experiment_animate_progress(experiment, null, definition);
    }

    private boolean ready() {
        return Kelpbox_Experiment_animate_ready(experiment, null, definition);
    }

    private void stop() {
        Kelpbox_Experiment_animate_stop(experiment, null, definition);
    }

    private long size() {
        return Kelpbox_Experiment_animate_size(experiment, null, definition);
    }

    private short[] frame(long index) {
        long samples = Kelpbox_Experiment_animate_data(experiment, null, definition, index);
        short[] points = new short[(int) Kelpbox_StdVectorShort_size(samples, null)];
        for (int i = 0; i < points.length; ++i) {
            points[i] = Kelpbox_StdVectorShort_get(samples, null, i);
        }
        return points;
    }

    private static String message(Executable call) {
        return assertThrows(WaveSynthesisException.class, call).getMessage();
    }

    @Test
    void framesHoldTheSurfaceAtTheirTime() {
        build();
        assertEquals(FRAMES, size());
        assertEquals(1.0, progress());
        assertTrue(ready());
        // The library's explicit wave numbers differ by a few parts in 1e5 from the exact ones.
        double[] frequencies = {0.5, 0.7};
        for (int t = 0; t < FRAMES; t += 13) {
            short[] points = frame(t);
            assertEquals(COLUMNS * ROWS, points.length);
            for (int ix = 0; ix < COLUMNS; ++ix) {
                double height = 0;
                for (double f : frequencies) {
                    double omega = Flume.TWO_PI * f;
                    height += 0.1 * Math.cos(omega * t / 20.0 - Flume.waveNumber(omega) * ix + 0.3);
                }
                for (int iy = 0; iy < ROWS; ++iy) {
                    assertEquals(height * 32767 / 4, points[ROWS * ix + iy], 4.0);
                }
            }
        }
    }

    @Test
    void progressCountsTheColumnsBuilt() {
        build();
        short[] whole = frame(77);
        stop();
        init();
        for (int column = 0; column < COLUMNS; column += 7) {
            assertEquals(column / (double) COLUMNS, progress(), 1e-15);
            assertFalse(ready());
            slice(column, column + 7);
        }
        assertTrue(ready());
        assertArrayEquals(whole, frame(77));
    }

    @Test
    void adjustedValuesAreWrittenBack() {
        grid(0.9);
        build();
        assertEquals(20.0 / 22, Kelpbox_Params_get(params, null, "x_step", "m"), 1e-15);
        assertEquals(0.25, Kelpbox_Params_get(params, null, "y_step", "m"));
        assertEquals(20.0, Kelpbox_Params_get(params, null, "rate", "Hz"));
        assertEquals(0, Kelpbox_Params_comment_size(params, null));
    }

    @Test
    void failuresArriveWithTheirMessages() {
        assertEquals("animate not initialised", message(() -> slice(0, 1)));
        build();
        assertEquals("invalid vector<T> subscript", message(() -> frame(FRAMES)));
        Kelpbox_Experiment_animate_free(experiment, null, definition);
        assertEquals(0, size());
        assertEquals("invalid vector<T> subscript", message(() -> frame(0)));
        grid(-1);
        assertEquals("x_step::-1 m gives no usable grid from 0 m to 20 m", message(this::build));
        Kelpbox_Params_clear(params, null);
        assertEquals("rate::Not found", message(this::init));
    }

    @Test
    void anotherThreadWatchesABuildToItsEnd() throws InterruptedException {
        grid(0.1);
        for (int round = 0; round < 50; ++round) {
            Kelpbox_Experiment_animate_free(experiment, null, definition);
            AtomicReference<String> problem = new AtomicReference<>();
            Thread watcher = new Thread(() -> {
                double last = 0;
                while (!ready()) {
                    double now = progress();
                    if (now < last || now > 1) {
                        problem.set(last + " then " + now);
                    }
                    last = now;
                }
                if (progress() != 1) {
                    problem.set("ready with " + progress());
                }
            });
            watcher.start();
            build();
            watcher.join();
            assertEquals(null, problem.get());
        }
    }

    @Test
    void anotherThreadStopsABuild() throws InterruptedException {
        grid(0.1);
        for (int round = 0; round < 100; ++round) {
            double moment = round / 110.0;
            AtomicReference<Throwable> thrown = new AtomicReference<>();
            Thread builder = new Thread(this::build);
            builder.setUncaughtExceptionHandler((thread, problem) -> thrown.set(problem));
            builder.start();
            // A stop before the build has begun has no effect, so it is repeated.
            while (builder.isAlive()) {
                if (progress() > moment) {
                    stop();
                }
            }
            builder.join();
            if (thrown.get() != null) {
                assertEquals("Animate Cancelled", thrown.get().getMessage());
            }
            stop();
            assertEquals(0.0, progress());
            assertFalse(ready());
            assertEquals(0, size());
        }
        build();
        assertTrue(ready());
    }
}
