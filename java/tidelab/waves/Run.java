package tidelab.waves;

import java.util.List;
import java.util.Objects;
import java.util.function.LongFunction;

/**
 * A run as {@link Definition#build} has built it: its waves, referred to the paddles, and what is
 * computed from them.
 *
 * <p>It is out of date after the next {@code build} or {@code set} of its definition, even a failed
 * one, and after the definition has been removed or the experiment closed. Every use is then an
 * {@link IllegalStateException}. Other changes take effect in the next build and leave this run as
 * it is. Arrays and lists that it has returned are copies and stay valid.
 *
 * <p>Example:
 *
 * <pre>{@code
 * Run run = definition.build();
 * for (Front front : run.fronts()) System.out.println(front.frequency() + " Hz");
 * double[] metres = run.paddleMotion("50 Hz").signal(0, 0);
 * }</pre>
 */
public final class Run {
    private final Definition definition;
    private final Repeat repeat;
    private final int sets;
    private PaddleMotion motion;

    /** Only during the call that has built the run. */
    Run(Definition definition, long address) {
        this.definition = definition;
        double[] numbers = Native.repeat(address, definition.id());
        repeat = Repeat.of(numbers);
        sets = (int) numbers[5];
    }

    /** {@return the definition that this is a run of} */
    public Definition definition() {
        return definition;
    }

    /** {@return the repeat time} */
    public Repeat repeat() {
        return call(address -> repeat);
    }

    /** {@return the number of sets of fronts, one for each specification} */
    public int sets() {
        return call(address -> sets);
    }

    /**
     * {@return where the phases of a set hold}
     *
     * @param set the place of its specification in the definition, from 0
     * @throws IndexOutOfBoundsException if there is no such set
     */
    public Position position(int set) {
        Checks.index(set, sets, "set");
        return Position.of(call(address -> Native.position(address, definition.id(), set)));
    }

    /**
     * {@return the fronts of a set, at its position}
     *
     * @param set the place of its specification in the definition, from 0
     * @throws IndexOutOfBoundsException if there is no such set
     */
    public List<TransferFront> fronts(int set) {
        Checks.index(set, sets, "set");
        return TransferFront.list(
                call(address -> Native.transferFronts(address, definition.id(), set)));
    }

    /** {@return the merged fronts of all sets, at the paddles} */
    public List<Front> fronts() {
        return Front.list(call(address -> Native.fronts(address, definition.id(), true)));
    }

    /** {@return the fronts of all sets one after the other, each at the position of its set} */
    public List<Front> allFronts() {
        return Front.list(call(address -> Native.fronts(address, definition.id(), false)));
    }

    /** {@return what the library reported during the build} */
    public List<String> messages() {
        return List.of(call(address -> Native.messages(address, definition.id())));
    }

    /**
     * Builds the drive signals of all paddles. A paddle motion of this run that was built before is
     * out of date from now on, even if this build fails.
     *
     * @param rate samples per second: a {@link Quantity} or its text, such as "50 Hz"
     * @return the signals
     * @throws IllegalStateException if the last {@code set} of the site failed, and neither a
     *         {@code set} nor a build has succeeded since
     * @throws tidelab.waves.component.WaveSynthesisException if the rate is refused
     */
    public PaddleMotion paddleMotion(Object rate) {
        Settings settings = Settings.of("rate", rate);
        return call(address -> {
            Site.requireTank(address);
            motion = null;
            try (Parameters parameters = Parameters.of(settings)) {
                Native.buildMotion(address, definition.id(), parameters.address());
                PaddleMotion built = new PaddleMotion(this, parameters.read());
                motion = built;
                return built;
            }
        });
    }

    /**
     * Computes the wave at a point.
     *
     * @param settings "rate" (a frequency), "x" and "y" (lengths, x from the paddle line) and
     *        "delta_angle" (the width of a direction sector)
     * @return the wave, which stays valid
     * @throws tidelab.waves.component.WaveSynthesisException if the point is outside the tank, or a
     *         value is missing or refused
     */
    public PointWave point(Settings settings) {
        Objects.requireNonNull(settings, "settings");
        return call(address -> PointWave.of(address, definition.id(), settings));
    }

    /**
     * Computes the wave at a point, as {@link #point(Settings)}.
     *
     * @param namesAndValues as for {@link Settings#of}
     * @return the wave
     */
    public PointWave point(Object... namesAndValues) {
        return point(Settings.of(namesAndValues));
    }

    /**
     * {@return the settings as written back, with what an analysis of a record at the point would
     * report added} {@code Hs} (four standard deviations of the surface), {@code Ts} and {@code
     * Var} (the fourth root of the variance) always; {@code reg_t} and {@code reg_h} of regular
     * waves; {@code sig_t}, {@code sig_h} and {@code max_amp} (the height of the highest wave) of
     * others. {@code sig_h} is not the mean of the highest third.
     *
     * @param settings "rate" (a frequency), "x" and "y" (lengths, x from the paddle line)
     * @throws tidelab.waves.component.WaveSynthesisException if there are fewer than six waves in a
     *         repeat time, the point is outside the tank, or a value is missing or refused
     */
    public Settings statistics(Settings settings) {
        Objects.requireNonNull(settings, "settings");
        return call(address -> {
            try (Parameters parameters = Parameters.of(settings)) {
                Native.pointStatistics(address, definition.id(), parameters.address());
                return parameters.read();
            }
        });
    }

    /**
     * {@return statistics of the wave at a point, as {@link #statistics(Settings)}}
     *
     * @param namesAndValues as for {@link Settings#of}
     */
    public Settings statistics(Object... namesAndValues) {
        return statistics(Settings.of(namesAndValues));
    }

    /**
     * Prepares an animation: checks its grid and takes the memory for its frames. Any earlier
     * animation of the definition is out of date from now on, unless the grid is refused.
     *
     * @param settings "rate" (a frequency), "x_step", "x_min", "x_max", "y_step", "y_min" and
     *        "y_max" (lengths)
     * @return the animation, of which nothing has been built yet
     * @throws IllegalArgumentException if a frame has more points than a Java array can hold
     * @throws tidelab.waves.component.WaveSynthesisException if a value is missing or refused, the
     *         run has no waves, or the machine does not have the memory
     */
    public Animation animation(Settings settings) {
        Objects.requireNonNull(settings, "settings");
        return call(address -> Animation.of(this, settings, address));
    }

    /**
     * Prepares an animation, as {@link #animation(Settings)}.
     *
     * @param namesAndValues as for {@link Settings#of}
     * @return the animation
     */
    public Animation animation(Object... namesAndValues) {
        return animation(Settings.of(namesAndValues));
    }

    /** {@return such as: run of definition "first run"} */
    @Override
    public String toString() {
        return "run of " + definition;
    }

    /** Takes a turn of the experiment for a call that needs this run. */
    <T> T call(LongFunction<T> body) {
        return definition.call(address -> {
            definition.requireCurrent(this);
            return body.apply(address);
        });
    }

    /** Also without a turn. */
    void requireCurrent() {
        definition.requireAlive();
        definition.requireCurrent(this);
    }

    /** Only during a call. */
    void requireCurrent(PaddleMotion asked) {
        if (motion != asked) {
            throw new IllegalStateException("this paddle motion of " + definition.label()
                    + " is out of date: use the latest, or build it again");
        }
    }
}
