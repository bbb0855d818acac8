package tidelab.waves;

import java.util.List;
import java.util.Objects;

/**
 * Series of an {@link Analysis}, cut to one time window. Made by {@link Analysis#createSet}.
 *
 * <pre>{@code
 * ProbeSet set = analysis.createSet(probes, "20 s", "60 s");
 * ZeroCrossings waves = set.zeroCrossings();
 * WaveTrains trains = set.waveTrains("freq", "0.7 Hz", "angle", "0 rad");
 * }</pre>
 *
 * <p>Each evaluation uses the values of the site as they are then. It starts from the records, so
 * two evaluations of one set agree; the library keeps the waves that each has found until the
 * process ends.
 */
public final class ProbeSet {
    private static final int ZERO_CROSSINGS = 0;
    private static final int WAVE_TRAINS = 2;

    private final Analysis analysis;
    private final long id;
    private final List<Series> series;

    ProbeSet(Analysis analysis, long id, List<Series> series) {
        this.analysis = analysis;
        this.id = id;
        this.series = series;
    }

    /** {@return the analysis that the set belongs to} */
    public Analysis analysis() {
        return analysis;
    }

    /** {@return the series, in the order in which they were given} */
    public List<Series> series() {
        return series;
    }

    /**
     * Finds the waves of each probe from one upward zero crossing to the next. The mean is not
     * removed.
     *
     * @return periods and heights
     * @throws tidelab.waves.component.WaveSynthesisException if a probe has fewer than six waves
     *         ("Insufficient zero crossings in time series")
     */
    public ZeroCrossings zeroCrossings() {
        return analysis.evaluate(id, ZERO_CROSSINGS, Settings.none(), ZeroCrossings::of);
    }

    /**
     * Separates the wave trains that travel along a direction and back. Choose a window that holds
     * a whole number of periods, and uneven distances between the probes: where the probes cannot
     * tell the trains apart, the results are wrong and nothing is reported.
     *
     * @param settings "freq" (a frequency, required, but its value changes nothing) and "angle" (of
     *         the forward direction, measured from the x axis towards the y axis)
     * @return the amplitudes of the trains
     * @throws tidelab.waves.component.WaveSynthesisException if there are fewer than three
     *         independent probes ("Too few independant probes to process"), their records differ in
     *         length, a harmonic is above half the rate, or a value is missing or does not convert
     */
    public WaveTrains waveTrains(Settings settings) {
        Objects.requireNonNull(settings, "settings");
        return analysis.evaluate(
                id, WAVE_TRAINS, settings, (results, data) -> WaveTrains.of(results));
    }

    /**
     * As {@link #waveTrains(Settings)}.
     *
     * @param namesAndValues names and values in turn, as for {@link Settings#of}
     * @return the amplitudes of the trains
     */
    public WaveTrains waveTrains(Object... namesAndValues) {
        return waveTrains(Settings.of(namesAndValues));
    }

    /** {@return such as: set of 5 series of analysis "flume.site"} */
    @Override
    public String toString() {
        return "set of " + series.size() + " series of " + analysis;
    }
}
