import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import java.util.Locale;
import java.util.Random;

/**
 * Writes the records of five probes in front of a reflecting beach, with noise and a resolution of
 * 0.1 mm: examples/records/reflecting_beach.csv. Beach describes the waves.
 */
public final class ProbeRecords {
    private static final long SEED = 1;

    private ProbeRecords() {}

    public static void main(String[] args) {
        Locale.setDefault(Locale.ROOT);
        PrintStream out = new PrintStream(System.out, false, StandardCharsets.UTF_8);
        out.print(
                "# Surface elevation in mm under five probes of Flume 1. Made by ProbeRecords.\n");
        out.print("# The head of a probe's column is its distance from the piston in m.\n");
        out.print("time_s");
        for (double x : Beach.PROBES) {
            out.printf(",%.2f", x);
        }
        out.print("\n");
        Random random = new Random(SEED);
        for (int j = 0; j < Beach.SAMPLES; ++j) {
            out.printf("%.2f", j / Beach.RATE);
            for (double x : Beach.PROBES) {
                double surface =
                        Beach.elevation(x, j / Beach.RATE) + Beach.NOISE * random.nextGaussian();
                out.printf(",%.1f", 1000 * surface);
            }
            out.print("\n");
        }
        out.flush();
    }
}
