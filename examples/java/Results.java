import java.io.IOException;
import java.io.PrintWriter;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Locale;
import tidelab.waves.Bank;
import tidelab.waves.Experiment;
import tidelab.waves.Front;
import tidelab.waves.PaddleMotion;
import tidelab.waves.Repeat;
import tidelab.waves.Run;
import tidelab.waves.Settings;

/** Prints what a host finds, and writes its files to the output folder. */
record Results(Path folder) {
    static Results in(String folder) throws IOException {
        Locale.setDefault(Locale.ROOT);
        return new Results(Files.createDirectories(Path.of(folder)));
    }

    /** Prints the result of a check, and returns whether it passed. */
    static boolean report(boolean good, String format, Object... numbers) {
        System.out.printf("          %s: %s%n", format.formatted(numbers), good ? "good" : "WRONG");
        return good;
    }

    static void describe(Experiment experiment) {
        System.out.printf("site      %s%n", experiment.siteText());
        for (Bank bank : experiment.banks()) {
            System.out.printf("bank      %s, %d paddles, signals in %s%n", bank.name(), bank.size(),
                    bank.signalUnits());
        }
    }

    /** Builds the drive signals, prints the results, and writes signals and fronts to files. */
    void deliver(String name, Run run) throws IOException {
        PaddleMotion motion = run.paddleMotion("50 Hz");
        Repeat repeat = run.repeat();
        System.out.printf(
                "%-9s fitted repeat time %.3f s, harmonics %d to %d, %d fronts at the paddles%n",
                name, repeat.seconds(), repeat.lowestHarmonic(), repeat.highestHarmonic(),
                run.fronts().size());
        for (Bank bank : banks(run)) {
            System.out.printf("          bank %d: %s%n", bank.index() + 1,
                    clipping(motion.statistics(bank.index())));
        }
        int count = run.messages().size();
        System.out.printf("          %s%n", count == 0 ? "no messages" : count + " messages:");
        for (String message : run.messages()) {
            System.out.printf("          %s%n", message);
        }
        writeSignals(name, run, motion);
        writeFronts(name, run);
    }

    private static Iterable<Bank> banks(Run run) {
        return run.definition().experiment().banks();
    }

    private static String clipping(Settings statistics) {
        return statistics.has("clip_peak_ratio")
                ? "%.2g of the half waves clip".formatted(statistics.get("clip_peak_ratio", ""))
                : "nothing clips";
    }

    /** One row per sample: the time, then the signal of each paddle of each bank. */
    private void writeSignals(String name, Run run, PaddleMotion motion) throws IOException {
        double rate = motion.rate().in("Hz");
        StringBuilder header = new StringBuilder("time_s");
        StringBuilder[] rows = null;
        for (Bank bank : banks(run)) {
            double[][] signals = motion.signals(bank.index());
            if (rows == null)
                rows = times(signals[0].length, rate);
            for (int paddle = 0; paddle < bank.size(); ++paddle) {
                header.append(",bank%d_paddle%d_%s".formatted(
                        bank.index() + 1, paddle + 1, bank.signalUnits()));
                for (int j = 0; j < rows.length; ++j) {
                    rows[j].append(",%.9g".formatted(signals[paddle][j]));
                }
            }
        }
        try (PrintWriter file = writer(name + "_signals.csv")) {
            file.println(header);
            for (StringBuilder row : rows) {
                file.println(row);
            }
        }
    }

    private static StringBuilder[] times(int samples, double rate) {
        StringBuilder[] rows = new StringBuilder[samples];
        for (int j = 0; j < samples; ++j) {
            rows[j] = new StringBuilder("%.4f".formatted(j / rate));
        }
        return rows;
    }

    private void writeFronts(String name, Run run) throws IOException {
        try (PrintWriter file = writer(name + "_fronts.csv")) {
            file.println("frequency_Hz,amplitude_m,angle_rad,phase_rad");
            for (Front front : run.fronts()) {
                file.printf("%.9g,%.9g,%.9g,%.9g%n", front.frequency(), front.amplitude(),
                        front.angle(), front.phase());
            }
        }
    }

    /** Opens a file in the output folder and prints its path. */
    PrintWriter writer(String name) throws IOException {
        Path path = folder.resolve(name);
        System.out.printf("          %s%n", path);
        return new PrintWriter(Files.newBufferedWriter(path));
    }
}
