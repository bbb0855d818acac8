import java.io.IOException;
import java.nio.file.Path;
import java.util.Locale;
import tidelab.waves.Analysis;
import tidelab.waves.ProbeSet;
import tidelab.waves.Quantity;
import tidelab.waves.WaveTrains;
import tidelab.waves.ZeroCrossings;

/**
 * Analyses the records of five probes in front of a beach. Separates the wave, its reflection and
 * the free and bound waves of its second harmonic, then finds heights and period by zero crossings.
 *
 * <p>Usage: {@code java Reflection <site script> <records>}. Exits with 1 if a result differs from
 * the waves that the records were computed from.
 */
public final class Reflection {
    /**
     * Noise of 0.2 mm and a resolution of 0.1 mm leave an error of 0.01 mm in an element of a
     * spectrum of 2000 samples. The equations of the second harmonic amplify it, up to five times.
     */
    private static final double TOLERANCE = 0.00005; // m

    private static final double REFLECTION_TOLERANCE = 0.002;

    private final Records records;
    private boolean good = true;

    private Reflection(Records records) {
        this.records = records;
    }

    public static void main(String[] args) throws IOException {
        Locale.setDefault(Locale.ROOT);
        Reflection reflection = new Reflection(new Records(Path.of(args[1])));
        try (Analysis analysis = Analysis.builder().silent().open(Path.of(args[0]))) {
            ProbeSet set = reflection.records.giveTo(analysis);
            reflection.trains(set);
            reflection.crossings(set);
        }
        System.exit(reflection.good ? 0 : 1);
    }

    private void trains(ProbeSet set) {
        WaveTrains trains =
                set.waveTrains("freq", Quantity.of(Beach.FREQUENCY, "Hz"), "angle", "0 rad");
        System.out.printf("records   %d probes, %.0f s at %.0f Hz%n", records.positions.length,
                records.duration(), records.rate);
        train("Forward free fundamental", trains.forwardFreeFundamental(), Beach.AMPLITUDE);
        train("Backward free fundamental", trains.backwardFreeFundamental(),
                Beach.REFLECTION * Beach.AMPLITUDE);
        train("Forward bound harmonic", trains.forwardBoundHarmonic(), Beach.BOUND);
        train("Backward bound harmonic", trains.backwardBoundHarmonic(), Beach.BOUND_BACK);
        train("Forward free harmonic", trains.forwardFreeHarmonic(), Beach.FREE);
        train("Backward free harmonic", trains.backwardFreeHarmonic(), Beach.FREE_BACK);
        report(Math.abs(trains.reflection() - Beach.REFLECTION) < REFLECTION_TOLERANCE,
                "reflection coefficient %.4f; generated with %.4f", trains.reflection(),
                Beach.REFLECTION);
    }

    private void train(String name, double found, double generated) {
        report(Math.abs(found - generated) < TOLERANCE, "%-25s %7.3f mm; generated with %7.3f mm",
                name, 1000 * found, 1000 * generated);
    }

    /** The heights differ from probe to probe, since the wave is partly standing. */
    private void crossings(ProbeSet set) {
        ZeroCrossings waves = set.zeroCrossings();
        report(Math.abs(waves.period() * Beach.FREQUENCY - 1) < 0.001,
                "period %.4f s; generated with %.4f s", waves.period(), 1 / Beach.FREQUENCY);
        double[] heights = waves.heights();
        for (int p = 0; p < heights.length; ++p) {
            double generated = Beach.height(records.positions[p]);
            report(Math.abs(heights[p] / generated - 1) < 0.02,
                    "height at %5.2f m %7.2f mm; generated with %7.2f mm", records.positions[p],
                    1000 * heights[p], 1000 * generated);
        }
    }

    private void report(boolean matches, String format, Object... numbers) {
        good &= Results.report(matches, format, numbers);
    }
}
