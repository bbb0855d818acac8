package tidelab.waves;

import java.util.List;
import java.util.function.LongFunction;
import tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI;

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
        repeat = Repeat.at(
                KelpboxNativeLibraryJNI.Kelpbox_Experiment_repeat(address, null, definition.id()));
        sets = (int) KelpboxNativeLibraryJNI.Kelpbox_Experiment_run_size(
                address, null, definition.id());
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
        return call(address
                -> Position.at(KelpboxNativeLibraryJNI.Kelpbox_Experiment_position(
                        address, null, definition.id(), set)));
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
                KelpboxNativeLibraryJNI.Kelpbox_Experiment_paddle_motion_build(
                        address, null, definition.id(), parameters.address(), null);
                PaddleMotion built = new PaddleMotion(this, parameters.read());
                motion = built;
                return built;
            }
        });
    }

    /** Takes a turn of the experiment for a call that needs this run. */
    <T> T call(LongFunction<T> body) {
        return definition.call(address -> {
            definition.requireCurrent(this);
            return body.apply(address);
        });
    }

    /** Only during a call. */
    void requireCurrent(PaddleMotion asked) {
        if (motion != asked) {
            throw new IllegalStateException("this paddle motion of " + definition.label()
                    + " is out of date: use the latest, or build it again");
        }
    }
}
