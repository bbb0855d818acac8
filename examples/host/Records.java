import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Arrays;
import java.util.List;

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

    /** Adds the records to an analysis and returns the ID of their set. */
    long giveTo(long analysis) {
        long ids = new_Kelpbox_StdVectorUInt__SWIG_0();
        for (int p = 0; p < positions.length; ++p) {
            long params = new_Kelpbox_Params();
            Native.number(params, "rate", rate, "Hz");
            Native.number(params, "x", positions[p], "m");
            Native.number(params, "y", 0, "m");
            long vector = new_Kelpbox_StdVectorDouble__SWIG_0();
            for (double sample : samples[p]) {
                Kelpbox_StdVectorDouble_add(vector, null, sample);
            }
            Kelpbox_StdVectorUInt_add(ids, null,
                    Kelpbox_Analysis_add_series(analysis, null, params, null, vector, null));
            delete_Kelpbox_StdVectorDouble(vector);
            delete_Kelpbox_Params(params);
        }
        long window = new_Kelpbox_Params();
        Native.number(window, "start_time", 0, "s");
        Native.number(window, "stop_time", duration(), "s");
        long set = Kelpbox_Analysis_create_set(analysis, null, window, null, ids, null);
        delete_Kelpbox_Params(window);
        delete_Kelpbox_StdVectorUInt(ids);
        return set;
    }
}
