package tidelab.waves;

import java.util.List;

/** Analyses from their beginning to their end, for the soak. */
final class SoakedAnalyses {
    private static final int SAMPLES = 2000;
    private static final double F = 0.7;

    /**
     * What the documentation of {@link Analysis} says that each analysis keeps, per probe: the
     * samples and the spectra of the window, with 8 bytes for each sample. A quarter more is for
     * the waves that it found, and for the objects themselves.
     */
    static final double BYTES = 1.25 * 2 * 8 * SAMPLES * Probes.PLACES.length;

    private static final double[][] RECORDS = records();

    private SoakedAnalyses() {}

    private static double[][] records() {
        double[][] records = new double[Probes.PLACES.length][SAMPLES];
        double omega = Tanks.TWO_PI * F;
        double k = Tanks.waveNumber(omega);
        Probes.addTrain(records, 0.05, omega, k, 0);
        Probes.addTrain(records, 0.01, omega, -k, 1);
        return records;
    }

    static void withoutRecords(int number) {
        try (Analysis analysis = Probes.analysis()) {
            analysis.set(analysis.settings());
            analysis.constants();
            if (analysis.profile("delta_x", "1 m").length != 21)
                throw new AssertionError("the profile has another length");
        }
    }

    /** The two trains of the records are found again. */
    static void withRecords(int number) {
        try (Analysis analysis = Probes.analysis()) {
            List<Series> series = Probes.add(analysis, RECORDS);
            ProbeSet set = analysis.createSet(series, "0 s", "40 s");
            double reflection = set.waveTrains("freq", "0.7 Hz", "angle", "0 rad").reflection();
            if (Math.abs(reflection - 0.2) > 1e-3)
                throw new AssertionError("a reflection of " + reflection + " instead of 0.2");
            double period = set.zeroCrossings().period();
            if (Math.abs(period - 1 / F) > 1e-3)
                throw new AssertionError("a period of " + period + " s");
        }
    }
}
