import java.io.FileNotFoundException;
import java.io.FileOutputStream;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;

/**
 * Where the hosts print their results: standard output, or the file named by the property {@code
 * results} ({@code java -Dresults=results.txt ...}). The library writes its progress lines to
 * standard output, so the property keeps the two apart.
 */
final class Results {
    private static final PrintStream OUT = open();

    private Results() {}

    static void printf(String format, Object... arguments) {
        OUT.printf(format, arguments);
    }

    /** Prints the result of a check, and returns whether it passed. */
    static boolean report(boolean good, String format, Object... numbers) {
        printf("          %s: %s%n", String.format(format, numbers), good ? "good" : "WRONG");
        return good;
    }

    private static PrintStream open() {
        String file = System.getProperty("results");
        if (file == null) {
            return System.out;
        }
        try {
            // Appends, so that several hosts can share a file.
            return new PrintStream(new FileOutputStream(file, true), true, StandardCharsets.UTF_8);
        } catch (FileNotFoundException e) {
            throw new IllegalArgumentException("cannot write results to " + file, e);
        }
    }
}
