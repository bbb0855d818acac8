package tidelab.waves;

import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.Objects;
import java.util.function.BiFunction;
import java.util.function.Consumer;

/**
 * The analysis of probe records: wave heights and periods, and the wave trains that travel down the
 * tank and back. It needs a site for its water and depth, but no experiment and no paddles.
 *
 * <p>Example: the reflection coefficient of a beach.
 *
 * <pre>{@code
 * try (Analysis analysis = Analysis.open(Path.of("flume.site"))) {
 *     List<Series> probes = new ArrayList<>();
 *     for (int i = 0; i < records.length; ++i) {
 *         Quantity x = Quantity.of(positions[i], "m");
 *         Settings probe = Settings.of("rate", "50 Hz", "x", x, "y", "0 m");
 *         probes.add(analysis.addSeries(probe, records[i]));         // samples in m
 *     }
 *     ProbeSet set = analysis.createSet(probes, "20 s", "60 s");
 *     double reflection = set.waveTrains("freq", "0.7 Hz", "angle", "0 rad").reflection();
 * }
 * }</pre>
 *
 * <p><b>Memory.</b> The library frees nothing of an analysis until the process ends, even after
 * {@link #close}: a series keeps a copy of its samples (8 bytes each), a set the spectra of its
 * window (8 bytes per sample, from the first separation on), and each evaluation of a set the waves
 * that it found. A host that analyses all day must plan for that memory.
 *
 * <p><b>Threads.</b> Calls on one analysis, its series and its sets take turns, so several threads
 * may use it. Analyses are independent of each other and of all experiments, and run in parallel.
 */
public final class Analysis implements AutoCloseable {
    private final Handle handle;

    private Analysis(Handle handle) {
        this.handle = handle;
    }

    /**
     * Opens an analysis with the defaults of {@link Builder}.
     *
     * @param site the site script
     * @return the analysis
     * @throws tidelab.waves.component.WaveSynthesisException if the site cannot be read, or no tank
     *         can be made from it
     */
    public static Analysis open(Path site) {
        return builder().open(site);
    }

    /** {@return what opens an analysis in another way than the default} */
    public static Builder builder() {
        return new Builder();
    }

    /** Opens an analysis. Example: {@code Analysis.builder().silent().open(site)}. */
    public static final class Builder {
        private final SiteOptions options = new SiteOptions();

        private Builder() {}

        /**
         * Names the analysis in messages. The default is the path of the site.
         *
         * @param name the name
         * @return this
         */
        public Builder name(String name) {
            options.name(name);
            return this;
        }

        /**
         * Hands the library's progress and log lines to a consumer instead of standard output, as
         * {@link Experiment.Builder#output} does.
         *
         * @param consumer receives each line, without its end
         * @return this
         */
        public Builder output(Consumer<String> consumer) {
            options.output(consumer);
            return this;
        }

        /**
         * Discards the library's progress and log lines. Those of a call that fails are the message
         * of the cause of its {@link tidelab.waves.component.WaveSynthesisException}.
         *
         * @return this
         */
        public Builder silent() {
            return output(line -> {});
        }

        /**
         * Loads the library if necessary, and reads the site. If this fails, nothing stays behind.
         *
         * @param site the site script
         * @return the analysis
         * @throws tidelab.waves.component.WaveSynthesisException if the site cannot be read, or no
         *         tank can be made from it
         */
        public Analysis open(Path site) {
            return new Analysis(options.open("analysis", site));
        }
    }

    /** {@return what the site fixes: extents of the tank, limits of frequency, and others} */
    public Settings constants() {
        return handle.call(Site::constants);
    }

    /** {@return the tunable values of the site, such as the depth of the water} */
    public Settings settings() {
        return handle.call(Site::settings);
    }

    /**
     * Tunes the site. Names that are left out keep their values. Later evaluations of all sets use
     * the new values. A failure leaves the site as it was.
     *
     * @param settings values by names that {@link #settings} has
     * @return what the library wrote back, with its remarks
     * @throws IllegalArgumentException if a name does not exist; the message has the nearest one
     * @throws tidelab.waves.component.WaveSynthesisException if a value is refused, or no tank can
     *         be made from the values
     */
    public Settings set(Settings settings) {
        Objects.requireNonNull(settings, "settings");
        // Unlike the library's set for analyses, this one checks that a tank can be made, and
        // leaves it ready for a profile.
        return handle.call(address -> {
            Settings before = Site.settings(address);
            return Site.set(address, before, before.updated(settings, handle.label()));
        });
    }

    /**
     * Tunes the site, as {@link #set(Settings)}.
     *
     * @param namesAndValues as for {@link Settings#of}
     * @return what the library wrote back
     */
    public Settings set(Object... namesAndValues) {
        return set(Settings.of(namesAndValues));
    }

    /**
     * {@return the depths in m along the tank, from one end to the other}
     *
     * @param settings {@code delta_x}, the distance between two depths
     * @throws tidelab.waves.component.WaveSynthesisException if it is missing or refused
     */
    public double[] profile(Settings settings) {
        Objects.requireNonNull(settings, "settings");
        return handle.call(address -> Site.profile(address, settings));
    }

    /**
     * {@return the depths in m along the tank, as {@link #profile(Settings)}}
     *
     * @param namesAndValues as for {@link Settings#of}
     */
    public double[] profile(Object... namesAndValues) {
        return profile(Settings.of(namesAndValues));
    }

    /**
     * Adds the record of a probe without a position, which zero crossings do not need.
     *
     * @param rate samples per second, in Hz
     * @param samples height of the surface in m, from time 0 on; copied
     * @return the series
     */
    public Series addSeries(double rate, double[] samples) {
        return addSeries(Settings.of("rate", Quantity.of(rate, "Hz")), samples);
    }

    /**
     * Adds the record of a probe. Its settings are checked where they are used: the rate by
     * {@link #createSet}, the position by {@link ProbeSet#waveTrains(Settings)}.
     *
     * @param probe "rate" (a frequency), and for wave trains "x" and "y" (lengths)
     * @param samples height of the surface in m, from time 0 on; copied
     * @return the series
     */
    public Series addSeries(Settings probe, double[] samples) {
        Objects.requireNonNull(probe, "probe");
        Objects.requireNonNull(samples, "samples");
        return handle.call(address -> {
            try (Parameters given = Parameters.of(probe)) {
                long id = Native.addSeries(address, given.address(), samples);
                return new Series(this, id, probe, samples.length);
            }
        });
    }

    /**
     * Cuts series to one time window: from the sample nearest to the start up to, but not
     * including, the sample nearest to the stop. For wave trains choose a whole number of periods.
     *
     * @param series at least one series of this analysis; for wave trains three or more
     * @param start a time, such as "20 s" or a {@link Quantity}
     * @param stop a time; the window may end with the records
     * @return the set
     * @throws IllegalArgumentException if there is no series, or one of another analysis, or a time
     *         is NaN or no quantity
     * @throws tidelab.waves.component.WaveSynthesisException if the window contains no sample ("Out
     *         of range") or ends after a record ("out of range 2"), or a value is missing or does
     *         not convert
     */
    public ProbeSet createSet(List<Series> series, Object start, Object stop) {
        // A copy, since the caller may change the list at any time. It may hold null.
        List<Series> probes = new ArrayList<>(Objects.requireNonNull(series, "series"));
        Settings window = Settings.of("start_time", Objects.requireNonNull(start, "start"),
                "stop_time", Objects.requireNonNull(stop, "stop"));
        for (String name : window.names()) {
            // The library would take NaN for a time.
            if (Double.isNaN(window.quantity(name).value()))
                throw new IllegalArgumentException("\"" + name + "\" is NaN");
        }
        if (probes.isEmpty())
            throw new IllegalArgumentException("series: a set needs at least one");
        int[] ids = new int[probes.size()];
        for (int i = 0; i < ids.length; ++i) ids[i] = id(probes.get(i), "series[" + i + "]");
        return handle.call(address -> {
            try (Parameters given = Parameters.of(window)) {
                long id = Native.createSet(address, given.address(), ids);
                return new ProbeSet(this, id, Collections.unmodifiableList(probes));
            }
        });
    }

    private int id(Series series, String argument) {
        Objects.requireNonNull(series, argument);
        if (series.analysis() != this) {
            throw new IllegalArgumentException(
                    argument + " is of " + series.analysis() + ", not of " + this);
        }
        return (int) series.id();
    }

    /**
     * Evaluates a set with a new process, since a second evaluation by the same one would count all
     * waves twice. Each process needs a set of the site before it.
     */
    <T> T evaluate(
            long set, int kind, Settings settings, BiFunction<Settings, double[], T> result) {
        return handle.call(address -> {
            try (Parameters given = Parameters.of(settings);
                    Parameters results = Parameters.empty()) {
                double[] heights =
                        Native.evaluate(address, set, kind, given.address(), results.address());
                return result.apply(results.read(), heights);
            }
        });
    }

    /** {@return whether the analysis has been closed} */
    public boolean isClosed() {
        return handle.isClosed();
    }

    /**
     * Ends the analysis after the calls that are running. Every later use of it, its series and its
     * sets is an {@link IllegalStateException}. The library keeps the samples of its series. A
     * second call does nothing.
     */
    @Override
    public void close() {
        handle.close();
    }

    /** {@return what messages call it, such as: analysis "flume.site"} */
    @Override
    public String toString() {
        return handle.label();
    }
}
