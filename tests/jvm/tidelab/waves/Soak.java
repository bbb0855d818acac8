package tidelab.waves;

import tidelab.NativeExperiment;

/**
 * Uses the library as often as a laboratory does in weeks, and looks whether its memory stays
 * constant. Started by {@code scripts/soak}, each kind of work in a JVM of its own: memory that one
 * kind has freed would hide what the next one loses. Each experiment is checked against closed
 * forms, so that none is skipped unnoticed.
 */
public final class Soak {
    private static final double[] RECORD = Probes.sine(10, 2, 10); // mm

    private Soak() {}

    /** The kind of work, and how often. Ends with exit code 1 if a row of the table failed. */
    public static void main(String[] arguments) {
        int count = Integer.parseInt(arguments[1]);
        int live = Tanks.live();
        SoakTable table = new SoakTable();
        switch (arguments[0]) {
            case "experiments":
                table.flat("experiments, by objects and by native functions in turn", count,
                        Soak::experiment);
                break;
            case "animations":
                animations(table, count);
                break;
            case "analyses":
                table.flat("analyses without records", count, SoakedAnalyses::withoutRecords);
                break;
            case "records":
                table.bounded("analyses of records, which the library keeps", count,
                        SoakedAnalyses.BYTES, SoakedAnalyses::withRecords);
                break;
            default:
                throw new IllegalArgumentException(arguments[0]);
        }
        table.fact(Tanks.live() == live, "all native experiments and analyses have been freed");
        System.exit(table.good() ? 0 : 1);
    }

    private static void animations(SoakTable table, int count) {
        StoppedAnimations animations = new StoppedAnimations();
        table.flat("animations, stopped at random moments", count, animations::stop);
        animations.report(table, count);
    }

    /** Ten different sizes in turn, each once through either side. */
    private static void experiment(int number) {
        int size = number / 2 % 10;
        double f = 0.5 + 0.05 * size;
        double a = 0.02 + 0.002 * size;
        double repeat = 20; // holds whole periods of each frequency
        double rate = 20 + 5 * size;
        double xStep = 1.0 / (1 + size % 4);
        if (number % 2 == 0) {
            safe(f, a, repeat, rate, xStep);
        } else {
            raw(f, a, repeat, rate, xStep);
        }
    }

    private static void safe(double f, double a, double repeat, double rate, double xStep) {
        try (SafeExperiment experiment = new SafeExperiment()) {
            experiment.tune();
            Run regular = experiment.regular(f, a, repeat);
            Run irregular = experiment.irregular(repeat, RECORD);
            near(Tanks.stroke(f, a), SafeExperiment.largestMotion(regular, rate), rate, f);
            near(a, SafeExperiment.highestAtPoint(regular, rate), rate, f);
            near(a, SafeExperiment.highestAtPaddle(regular, rate, xStep), rate, f);
            near(1 / f, SafeExperiment.periodAtPoint(regular, rate), rate, f);
            positive(SafeExperiment.largestMotion(irregular, rate));
            positive(SafeExperiment.highestAtPoint(irregular, rate));
            positive(SafeExperiment.highestAtPaddle(irregular, rate, xStep));
            near(4, experiment.refused(regular), rate, 0);
        }
    }

    private static void raw(double f, double a, double repeat, double rate, double xStep) {
        try (NativeExperiment experiment = new NativeExperiment(Tanks.FLUME.toString())) {
            experiment.tune();
            long regular = experiment.regular(f, a, repeat);
            long irregular = experiment.irregular(repeat, RECORD);
            near(Tanks.stroke(f, a), experiment.largestMotion(regular, rate), rate, f);
            near(a, experiment.highestAtPoint(regular, rate), rate, f);
            near(a, experiment.highestAtPaddle(regular, rate, xStep), rate, f);
            near(1 / f, experiment.periodAtPoint(regular, rate), rate, f);
            positive(experiment.largestMotion(irregular, rate));
            positive(experiment.highestAtPoint(irregular, rate));
            positive(experiment.highestAtPaddle(irregular, rate, xStep));
            near(4, experiment.refused(regular), rate, 0);
        }
    }

    /**
     * A crest is up to half a sample away from the nearest sample, and frames have steps of 4 m
     * / 32767.
     */
    private static void near(double expected, double value, double rate, double f) {
        double below = expected * (1 - Math.cos(Math.PI * f / rate));
        double tolerance = below + 1e-3 * expected + 4.0 / 32767;
        if (!(Math.abs(value - expected) <= tolerance))
            throw new AssertionError(value + " instead of " + expected);
    }

    private static void positive(double value) {
        if (!(value > 0))
            throw new AssertionError("nothing was made");
    }
}
