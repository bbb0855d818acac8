import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import java.io.IOException;
import java.nio.file.Path;

/**
 * Reads the records of five probes in front of a beach, and finds in them the wave, its reflection and
 * the free and bound waves of its second harmonic, then heights and period by zero crossings.
 *
 * <p>Usage: {@code java Reflection <library> <site script> <records>}. Ends with 1 when it does not find
 * what the records were made of.
 */
public final class Reflection {

    /** The kinds of a process. */
    private static final long ZERO_CROSSINGS = 0;
    private static final long WAVE_TRAINS = 2;

    /**
     * What noise of 0.2 mm and steps of 0.1 mm leave in an element of a spectrum of 2000 samples, 0.01 mm,
     * five times over: the equations of the second harmonic amplify it.
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

    /** A process on the set. Each wants the values of the site to be set before it, changed or not. */
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
        System.out.printf("records   %d probes, %.0f s at %.0f Hz%n", records.positions.length,
                records.duration(), records.rate);
        double forward = train(out, "Forward free fundamental", Beach.AMPLITUDE);
        double backward =
                train(out, "Backward free fundamental", Beach.REFLECTION * Beach.AMPLITUDE);
        train(out, "Forward bound harmonic", Beach.BOUND);
        train(out, "Backward bound harmonic", Beach.BOUND_BACK);
        train(out, "Forward free harmonic", Beach.FREE);
        train(out, "Backward free harmonic", Beach.FREE_BACK);
        report(Math.abs(backward / forward - Beach.REFLECTION) < REFLECTION_TOLERANCE,
                "reflection coefficient %.4f; made with %.4f", backward / forward, Beach.REFLECTION);
        delete_Kelpbox_Params(out);
        delete_Kelpbox_Params(settings);
    }

    private double train(long out, String name, double made) {
        double found = Kelpbox_Params_get(out, null, name, "");
        report(Math.abs(found - made) < TOLERANCE, "%-25s %7.3f mm; made with %7.3f mm", name,
                1000 * found, 1000 * made);
        return found;
    }

    /** The heights differ from probe to probe, as they stand under a partly standing wave. */
    private void crossings() {
        long none = new_Kelpbox_Params();
        long process = process(ZERO_CROSSINGS);
        long out = results(process, none);
        double period = Kelpbox_Params_get(out, null, "reg_t", "s");
        report(Math.abs(period * Beach.FREQUENCY - 1) < 0.001, "period %.4f s; made with %.4f s",
                period, 1 / Beach.FREQUENCY);
        double[] heights = Native.array(
                Kelpbox_Analysis_get_data(analysis, null, process, none, null));
        for (int p = 0; p < heights.length; ++p) {
            double made = Beach.height(records.positions[p]);
            report(Math.abs(heights[p] / made - 1) < 0.02,
                    "height at %5.2f m %7.2f mm; made with %7.2f mm", records.positions[p],
                    1000 * heights[p], 1000 * made);
        }
        delete_Kelpbox_Params(out);
        delete_Kelpbox_Params(none);
    }

    private void report(boolean matches, String format, Object... numbers) {
        System.out.printf("          %s: %s%n", String.format(format, numbers),
                matches ? "good" : "WRONG");
        good &= matches;
    }
}
