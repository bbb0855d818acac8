package tidelab.waves;

import java.util.ArrayList;
import java.util.List;

/** Records of probes in the flume, made from closed forms. */
final class Probes {
    /** In m; unevenly spaced, so that no two pairs of probes have the same distance. */
    static final double[] PLACES = {8.0, 8.35, 8.9, 9.7, 10.9};

    static final double RATE = 50; // Hz

    private Probes() {}

    static Analysis analysis() {
        return Analysis.builder().name("flume").silent().open(Tanks.FLUME);
    }

    static Settings at(double x) {
        return Settings.of("rate", Quantity.of(RATE, "Hz"), "x", Quantity.of(x, "m"), "y", "0 m");
    }

    /** A wave that rises through zero a quarter of a period after the start. */
    static double[] sine(double amplitude, double period, double seconds) {
        double[] record = new double[(int) Math.round(seconds * RATE)];
        for (int j = 0; j < record.length; ++j) {
            record[j] = -amplitude * Math.cos(Tanks.TWO_PI * j / RATE / period);
        }
        return record;
    }

    /** Adds amplitude * cos(omega t - k x + phase) for each place; a negative k travels back. */
    static void addTrain(
            double[][] records, double amplitude, double omega, double k, double phase) {
        for (int p = 0; p < records.length; ++p) {
            for (int j = 0; j < records[p].length; ++j) {
                records[p][j] += amplitude * Math.cos(omega * j / RATE - k * PLACES[p] + phase);
            }
        }
    }

    /** The records as series, each at its place. */
    static List<Series> add(Analysis analysis, double[]... records) {
        List<Series> series = new ArrayList<>();
        for (int p = 0; p < records.length; ++p) {
            series.add(analysis.addSeries(at(PLACES[p]), records[p]));
        }
        return series;
    }
}
