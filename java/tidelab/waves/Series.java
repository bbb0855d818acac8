package tidelab.waves;

/**
 * The record of one probe in an {@link Analysis}. The library keeps its samples until the process
 * ends.
 *
 * <pre>{@code
 * Settings probe = Settings.of("rate", "50 Hz", "x", "8.35 m", "y", "0 m");
 * Series series = analysis.addSeries(probe, samples);                  // samples in m
 * double seconds = series.size() / series.settings().get("rate", "Hz");
 * }</pre>
 */
public final class Series {
    private final Analysis analysis;
    private final long id;
    private final Settings settings;
    private final int size;

    Series(Analysis analysis, long id, Settings settings, int size) {
        this.analysis = analysis;
        this.id = id;
        this.settings = settings;
        this.size = size;
    }

    /** {@return the analysis that the series belongs to} */
    public Analysis analysis() {
        return analysis;
    }

    /** {@return the rate and, if it was given, the position of the probe} */
    public Settings settings() {
        return settings;
    }

    /** {@return the number of samples} */
    public int size() {
        return size;
    }

    /** {@return such as: series of 2000 samples, rate = 50.0 Hz} */
    @Override
    public String toString() {
        return "series of " + size + " samples, " + settings;
    }

    long id() {
        return id;
    }
}
