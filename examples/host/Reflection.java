import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import java.io.IOException;
import java.nio.file.Path;

/**
 * Analyses the records of five probes in front of a beach. Separates the wave, its reflection and
 * the free and bound waves of its second harmonic, then finds heights and period by zero crossings.
 *
 * <p>Usage: {@code java Reflection <library> <site script> <records>}. Exits with 1 if a result
 * differs from the waves that the records were computed from.
 */
public final class Reflection {
    /** The kinds of processes. */
    private static final long ZERO_CROSSINGS = 0;

    private static final long WAVE_TRAINS = 2;

    /**
     * Noise of 0.2 mm and a resolution of 0.1 mm leave an error of 0.01 mm in an element of a
     * spectrum of 2000 samples. The equations of the second harmonic amplify it, up to five times.
     */
    private static final double TOLERANCE = 0.00005; // m

    private static final double REFLECTION_TOLERANCE = 0.002;

    private final long analysis = new_Kelpbox_Analysis();
    private final Records records;
    private final long set;
    private boolean good = true;

    private Reflection(String[] args) throws IOException {
        Kelpbox_Analysis_initialise(analysis, null, args[1]);
        records = new Records(Path.of(args[2]));
        set = records.giveTo(analysis);
    }

    public static void main(String[] args) throws IOException {
        Tank.load(args);
        Reflection reflection = new Reflection(args);
        reflection.trains();
        reflection.crossings();
        delete_Kelpbox_Analysis(reflection.analysis);
        System.exit(reflection.good ? 0 : 1);
    }

    /** Creates a process. Before each, the values of the site must be set, even if unchanged. */
    private long process(long kind) {
        long params = new_Kelpbox_Params();
        Kelpbox_Analysis_query(analysis, null, params, null);
        Kelpbox_Analysis_set(analysis, null, params, null);
        delete_Kelpbox_Params(params);
        return Kelpbox_Analysis_create_process(analysis, null, set, kind);
    }

    private long results(long process, long settings) {
        long out = new_Kelpbox_Params();
        Kelpbox_Analysis_get_results(analysis, null, process, settings, null, out, null);
        return out;
    }

    private void trains() {
        long settings = new_Kelpbox_Params();
        Native.number(settings, "freq", Beach.FREQUENCY, "Hz");
        Native.number(settings, "angle", 0, "rad");
        long out = results(process(WAVE_TRAINS), settings);
        Results.printf("records   %d probes, %.0f s at %.0f Hz%n", records.positions.length,
                records.duration(), records.rate);
        double forward = train(out, "Forward free fundamental", Beach.AMPLITUDE);
        double backward =
                train(out, "Backward free fundamental", Beach.REFLECTION * Beach.AMPLITUDE);
        train(out, "Forward bound harmonic", Beach.BOUND);
        train(out, "Backward bound harmonic", Beach.BOUND_BACK);
        train(out, "Forward free harmonic", Beach.FREE);
        train(out, "Backward free harmonic", Beach.FREE_BACK);
        report(Math.abs(backward / forward - Beach.REFLECTION) < REFLECTION_TOLERANCE,
                "reflection coefficient %.4f; generated with %.4f", backward / forward,
                Beach.REFLECTION);
        delete_Kelpbox_Params(out);
        delete_Kelpbox_Params(settings);
    }

    private double train(long out, String name, double generated) {
        double found = Kelpbox_Params_get(out, null, name, "");
        report(Math.abs(found - generated) < TOLERANCE, "%-25s %7.3f mm; generated with %7.3f mm",
                name, 1000 * found, 1000 * generated);
        return found;
    }

    /** The heights differ from probe to probe, since the wave is partly standing. */
    private void crossings() {
        long none = new_Kelpbox_Params();
        long process = process(ZERO_CROSSINGS);
        long out = results(process, none);
        double period = Kelpbox_Params_get(out, null, "reg_t", "s");
        report(Math.abs(period * Beach.FREQUENCY - 1) < 0.001,
                "period %.4f s; generated with %.4f s", period, 1 / Beach.FREQUENCY);
        double[] heights =
                Native.array(Kelpbox_Analysis_get_data(analysis, null, process, none, null));
        for (int p = 0; p < heights.length; ++p) {
            double generated = Beach.height(records.positions[p]);
            report(Math.abs(heights[p] / generated - 1) < 0.02,
                    "height at %5.2f m %7.2f mm; generated with %7.2f mm", records.positions[p],
                    1000 * heights[p], 1000 * generated);
        }
        delete_Kelpbox_Params(out);
        delete_Kelpbox_Params(none);
    }

    private void report(boolean matches, String format, Object... numbers) {
        good &= Results.report(matches, format, numbers);
    }
}
