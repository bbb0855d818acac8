import java.io.IOException;
import java.nio.file.Path;
import tidelab.waves.Definition;
import tidelab.waves.Experiment;
import tidelab.waves.Run;
import tidelab.waves.Specification;
import tidelab.waves.WaveMerge;

/**
 * Generates a focused wave group and an oblique regular wave between side walls in a wide basin,
 * and writes the drive signals of the paddles.
 *
 * <p>Usage: {@code java Basin <site script> <output folder>}. Exits with 1 if its check of the
 * focus fails.
 */
public final class Basin {
    // A JONSWAP spectrum whose crests all meet at one point at one time.
    private static final Jonswap SEA = new Jonswap(0.06, 0.6, 3.3, 0.35, 1.4);

    private Basin() {}

    public static void main(String[] args) throws IOException {
        Results results = Results.in(args[1]);
        boolean focused;
        try (Experiment basin = Experiment.builder().silent().open(Path.of(args[0]))) {
            Results.describe(basin);
            Run group = group(basin);
            results.deliver("group", group);
            focused = crestIsAsHighAsPredicted(group);
            results.deliver("oblique", oblique(basin));
        }
        System.exit(focused ? 0 : 1);
    }

    private static Run group(Experiment basin) {
        Definition definition = basin.addDefinition("focused group");
        definition.set("repeat", "64 s", "dalrymple", false, "wave_merge", WaveMerge.Null);
        Specification waves = definition.addSpecification();
        waves.set("x", "12 m", "y", "9 m", "t", "32 s");
        SEA.addTo(waves);
        return definition.build();
    }

    private static boolean crestIsAsHighAsPredicted(Run group) {
        double crest = new Propagation(group).elevation(12, 9, 32);
        double predicted = SEA.crest(group);
        boolean good = Math.abs(crest / predicted - 1) < 0.01;
        System.out.printf(
                "focus     crest %.4f m at x 12.0 m, y 9.0 m, t 32.0 s; the spectrum predicts"
                        + " %.4f m: %s%n",
                crest, predicted, good ? "good" : "WRONG");
        return good;
    }

    private static Run oblique(Experiment basin) {
        Definition definition = basin.addDefinition("oblique wave");
        definition.set("repeat", "64 s", "dalrymple", true, "wave_merge", WaveMerge.Null);
        Specification waves = definition.addSpecification();
        waves.set("x", "0 m", "y", "0 m", "t", "0 s");
        waves.addSingle().set("f", "0.75 Hz", "a", "20 mm", "angle", "25 deg", "phase", "0 rad");
        return definition.build();
    }
}
