package tidelab;

import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import java.io.IOException;
import java.io.InputStream;
import java.io.UncheckedIOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;

/** The flume of flume.site, and short forms of common calls. */
public final class Flume {
    public static final double TWO_PI = 2.0 * Math.PI;
    public static final double DEPTH = 1.0;
    public static final double GRAVITY = 9.81;

    public static final String SCRIPT = resource("flume.site");

    private Flume() {}

    public static void load() {
        System.load(System.getProperty("kelpbox.so"));
    }

    private static String resource(String name) {
        try (InputStream in = Flume.class.getResourceAsStream(name)) {
            return new String(in.readAllBytes(), StandardCharsets.UTF_8);
        } catch (IOException e) {
            throw new UncheckedIOException(e);
        }
    }

    /** A file with this content, deleted when the JVM ends. */
    public static String file(String content) {
        try {
            Path path = Files.createTempFile("kelpbox", ".site");
            path.toFile().deleteOnExit();
            return Files.writeString(path, content).toString();
        } catch (IOException e) {
            throw new UncheckedIOException(e);
        }
    }

    static long experiment() {
        return experiment(SCRIPT);
    }

    static long experiment(String script) {
        long experiment = new_Kelpbox_Experiment__SWIG_0();
        Kelpbox_Experiment_initialise(experiment, null, file(script));
        return experiment;
    }

    static void insert(long params, String name, double value, String units) {
        Kelpbox_Params_insert__SWIG_0(params, null, name, value, units);
    }

    static void insert(long params, String name, String member, String type) {
        Kelpbox_Params_insert__SWIG_1(params, null, name, member, type);
    }

    /** Adds a specification and sets it to the origin and time 0. */
    static long specification(long experiment, long definition) {
        long specification = Kelpbox_Experiment_add_specification(experiment, null, definition);
        long params = new_Kelpbox_Params();
        insert(params, "x", 0, "m");
        insert(params, "y", 0, "m");
        insert(params, "t", 0, "s");
        Kelpbox_Experiment_set__SWIG_1(experiment, null, specification, params, null);
        delete_Kelpbox_Params(params);
        return specification;
    }

    static void setDefinition(long experiment, long definition, double repeat) {
        long params = new_Kelpbox_Params();
        insert(params, "repeat", repeat, "s");
        insert(params, "dalrymple", "False", "Bool");
        insert(params, "wave_merge", "Null", "WaveMerge");
        Kelpbox_Experiment_set__SWIG_1(experiment, null, definition, params, null);
        delete_Kelpbox_Params(params);
    }

    static void setSingle(long experiment, long single, double f, double a, double phase) {
        long params = new_Kelpbox_Params();
        insert(params, "f", f, "Hz");
        insert(params, "a", a, "m");
        insert(params, "angle", 0, "rad");
        insert(params, "phase", phase, "rad");
        Kelpbox_Experiment_set__SWIG_1(experiment, null, single, params, null);
        delete_Kelpbox_Params(params);
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
}
