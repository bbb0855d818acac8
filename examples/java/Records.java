import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import tidelab.waves.Analysis;
import tidelab.waves.ProbeSet;
import tidelab.waves.Quantity;
import tidelab.waves.Series;
import tidelab.waves.Settings;

/**
 * The records of probes along the flume, from a file: comment lines that begin with "#", a header
 * with the distance of each probe from the paddle in m, then for each sample the time in s and the
 * elevations in mm.
 */
final class Records {
    final double[] positions; // m
    final double rate; // Hz
    private final double[][] samples; // m, by probe

    Records(Path file) throws IOException {
        List<String> lines =
                Files.readAllLines(file).stream().filter(line -> !line.startsWith("#")).toList();
        positions = numbers(lines.get(0));
        int count = lines.size() - 1;
        samples = new double[positions.length][count];
        for (int j = 0; j < count; ++j) {
            double[] row = numbers(lines.get(j + 1));
            for (int p = 0; p < positions.length; ++p) {
                samples[p][j] = row[p] / 1000;
            }
        }
        double last = Double.parseDouble(lines.get(count).split(",")[0]);
        rate = (count - 1) / last;
    }

    /** The numbers after the first column. */
    private static double[] numbers(String line) {
        return Arrays.stream(line.split(",")).skip(1).mapToDouble(Double::parseDouble).toArray();
    }

    double duration() {
        return samples[0].length / rate;
    }

    /** Adds the records to an analysis, as one set over their whole duration. */
    ProbeSet giveTo(Analysis analysis) {
        List<Series> probes = new ArrayList<>();
        for (int p = 0; p < positions.length; ++p) {
            Settings probe = Settings.of("rate", Quantity.of(rate, "Hz"), "x",
                    Quantity.of(positions[p], "m"), "y", "0 m");
            probes.add(analysis.addSeries(probe, samples[p]));
        }
        return analysis.createSet(probes, "0 s", Quantity.of(duration(), "s"));
    }
}
