package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;

import java.nio.file.Path;
import org.junit.jupiter.api.function.Executable;
import tidelab.Flume;

/** The flume of flume.site, and short forms of common steps. */
final class Tanks {
    static final double TWO_PI = Flume.TWO_PI;
    static final double DEPTH = Flume.DEPTH;
    static final double GRAVITY = Flume.GRAVITY;

    /** A piston at the end of 20 m of water, 1 m deep; 0.1 Hz to 2 Hz. */
    static final String SCRIPT = Flume.SCRIPT;

    static final Path FLUME = file(SCRIPT);

    static {
        load();
    }

    private Tanks() {}

    /**
     * Loads the library that was built, not its copy in the jar. All tests of this class loader
     * must use the same file: with two, the JVM would take each function from either of them.
     */
    static void load() {
        Flume.load();
    }

    /** A site script with this content, deleted when the JVM ends. */
    static Path file(String content) {
        return Path.of(Flume.file(content));
    }

    /** An experiment that is called "flume" in messages. */
    static Experiment flume() {
        return Experiment.builder().name("flume").silent().open(FLUME);
    }

    /** A definition of 10 s, without specifications. */
    static Definition definition(Experiment experiment, String name) {
        Definition definition = experiment.addDefinition(name);
        definition.set("repeat", "10 s", "dalrymple", false, "wave_merge", WaveMerge.Null);
        return definition;
    }

    /** A specification at the origin and time 0. */
    static Specification place(Definition definition) {
        Specification place = definition.addSpecification();
        place.set("x", "0 m", "y", "0 m", "t", "0 s");
        return place;
    }

    /** A wave along the tank; frequency in Hz, amplitude in m, phase in rad. */
    static Component single(Specification place, double f, double a, double phase) {
        Component single = place.addSingle();
        single.set("f", Quantity.of(f, "Hz"), "a", Quantity.of(a, "m"), "angle", "0 rad", "phase",
                Quantity.of(phase, "rad"));
        return single;
    }

    /** A definition of 10 s with one wave. */
    static Definition wave(Experiment experiment, double f, double a, double phase) {
        Definition definition = definition(experiment, "run");
        single(place(definition), f, a, phase);
        return definition;
    }

    /** The wave number of linear theory, by bisection of omega^2 = g k tanh(k depth). */
    static double waveNumber(double omega) {
        double low = 0.0;
        double high = 1000.0;
        for (int i = 0; i < 200; ++i) {
            double k = 0.5 * (low + high);
            if (GRAVITY * k * Math.tanh(k * DEPTH) < omega * omega) {
                low = k;
            } else {
                high = k;
            }
        }
        return 0.5 * (low + high);
    }

    /** The stroke of a full-depth piston for a wave; both in m. */
    static double stroke(double f, double a) {
        double kd = waveNumber(TWO_PI * f) * DEPTH;
        double sinh = Math.sinh(kd);
        return a * (Math.sinh(2 * kd) + 2 * kd) / (4 * sinh * sinh);
    }

    /**
     * How many native experiments exist, without those that other tests have left to the garbage
     * collector.
     */
    static int live() {
        int live = Handle.live();
        for (int same = 0; same < 3;) {
            System.gc();
            try {
                Thread.sleep(5);
            } catch (InterruptedException e) {
                throw new AssertionError(e);
            }
            int now = Handle.live();
            same = now == live ? same + 1 : 0;
            live = now;
        }
        return live;
    }

    /** The call ends with exactly this exception. */
    static void fails(Class<? extends Throwable> kind, String message, Executable call) {
        Throwable thrown = assertThrows(kind, call);
        assertEquals(kind, thrown.getClass());
        assertEquals(message, thrown.getMessage());
    }
}
