package tidelab.waves;

import java.util.List;
import java.util.function.LongFunction;

/**
 * The drive signals of all paddles over one repeat time, in m for pistons and in rad for flaps.
 * Sample {@code j} of {@code n} is at {@code j / n} of the repeat time.
 *
 * <p>It is out of date after the next {@link Run#paddleMotion}, and together with its run. Every
 * use is then an {@link IllegalStateException}. Arrays that it has returned are copies and stay
 * valid.
 *
 * <p>Example:
 *
 * <pre>{@code
 * PaddleMotion motion = run.paddleMotion("50 Hz");
 * double[] first = motion.signal(0, 0);
 * double share = motion.statistics(0).get("clip_peak_ratio", "");   // only if a signal clips
 * }</pre>
 */
public final class PaddleMotion {
    private final Run run;
    private final Settings settings;

    PaddleMotion(Run run, Settings settings) {
        this.run = run;
        this.settings = settings;
    }

    /** {@return the samples per second that were asked for; the library fits no rate here} */
    public Quantity rate() {
        return settings.quantity("rate");
    }

    /** {@return what the library remarked; often nothing} */
    public List<String> remarks() {
        return settings.remarks();
    }

    /**
     * {@return the signal of a paddle, in m or rad}
     *
     * @param bank the place of the bank in the site, from 0
     * @param paddle the place of the paddle in the bank, from 0
     * @throws IndexOutOfBoundsException if there is no such bank or paddle
     */
    public double[] signal(int bank, int paddle) {
        Checks.index(paddle, bank(bank).size(), "paddle");
        return call(address -> Native.signal(address, id(), bank, paddle));
    }

    /**
     * {@return the signals of all paddles of a bank, in m or rad}
     *
     * @param bank the place of the bank in the site, from 0
     * @throws IndexOutOfBoundsException if there is no such bank
     */
    public double[][] signals(int bank) {
        bank(bank);
        return call(address -> Native.signals(address, id(), bank));
    }

    /**
     * {@return how much the signals of a bank exceed its clip limit} Empty if none does. Otherwise
     * plain numbers: {@code clip_peak_ratio}, {@code clip_power_ratio} and others.
     *
     * @param bank the place of the bank in the site, from 0
     * @throws IndexOutOfBoundsException if there is no such bank
     */
    public Settings statistics(int bank) {
        bank(bank);
        return call(address -> {
            try (Parameters parameters = Parameters.empty()) {
                Native.motionStatistics(address, id(), bank, parameters.address());
                return parameters.read();
            }
        });
    }

    /** {@return such as: paddle motion of definition "first run" at 50.0 Hz} */
    @Override
    public String toString() {
        return "paddle motion of " + run.definition() + " at " + rate();
    }

    private Bank bank(int index) {
        return run.definition().experiment().bank(index);
    }

    private long id() {
        return run.definition().id();
    }

    private <T> T call(LongFunction<T> body) {
        return run.call(address -> {
            run.requireCurrent(this);
            return body.apply(address);
        });
    }
}
