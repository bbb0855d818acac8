package tidelab.waves;

import java.io.IOException;
import java.io.PrintStream;
import java.io.UncheckedIOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Arrays;
import java.util.Locale;
import java.util.function.IntConsumer;
import java.util.stream.Collectors;

/**
 * Does things many times, measures the resident set of this process at eleven marks, and prints a
 * row for each. It goes to standard error: the library itself writes to standard output.
 */
final class SoakTable {
    private static final double TOLERANCE = 0.05;
    private static final int MARKS = 10;
    private static final PrintStream OUT = System.err;

    private boolean good = true;

    /** {@return whether all rows were good} */
    boolean good() {
        return good;
    }

    /**
     * What must not grow: after the first half, no mark may be 5 % above the one at the half or
     * below it.
     */
    void flat(String what, int count, IntConsumer body) {
        double[] mib = measured(count, body);
        double half = mib[MARKS / 2];
        double off = 0;
        for (int mark = MARKS / 2; mark <= MARKS; ++mark)
            off = Math.max(off, Math.abs(mib[mark] / half - 1));
        row(what, count, mib, off <= TOLERANCE,
                String.format(Locale.ROOT, "%.1f %% off after the half, at most %.0f %%", 100 * off,
                        100 * TOLERANCE));
    }

    /** What may grow in its second half by so many bytes each. */
    void bounded(String what, int count, double bytes, IntConsumer body) {
        double[] mib = measured(count, body);
        double grown = (mib[MARKS] - mib[MARKS / 2]) * 1024 * 1024 / (count - count / 2);
        row(what, count, mib, grown <= bytes,
                String.format(Locale.ROOT, "%.0f bytes each, at most %.0f", grown, bytes));
    }

    /** A row about something else than memory. */
    void fact(boolean holds, String fact) {
        OUT.println((holds ? "  good    " : "  FAILED  ") + fact);
        good &= holds;
    }

    private void row(String what, int count, double[] mib, boolean holds, String verdict) {
        OUT.println(count + " " + what);
        OUT.println("  "
                + Arrays.stream(mib)
                          .mapToObj(each -> String.format(Locale.ROOT, "%.1f", each))
                          .collect(Collectors.joining("  ")));
        fact(holds, verdict);
    }

    private static double[] measured(int count, IntConsumer body) {
        double[] mib = new double[MARKS + 1];
        mib[0] = residentMib();
        int done = 0;
        for (int mark = 1; mark <= MARKS; ++mark) {
            for (int end = (int) ((long) count * mark / MARKS); done < end; ++done)
                body.accept(done);
            // What objects of Java hold of the library's memory is freed by then.
            Tanks.live();
            mib[mark] = residentMib();
        }
        return mib;
    }

    private static double residentMib() {
        try {
            for (String line : Files.readAllLines(Path.of("/proc/self/status"))) {
                if (line.startsWith("VmRSS:"))
                    return Long.parseLong(line.replaceAll("\\D", "")) / 1024.0;
            }
        } catch (IOException e) {
            throw new UncheckedIOException(e);
        }
        throw new IllegalStateException("/proc/self/status has no VmRSS");
    }
}
