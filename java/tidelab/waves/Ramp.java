package tidelab.waves;

/**
 * Shapes of a ramp. A time series requires one; every member has the same effect there.
 *
 * <p>Example: {@code Settings.of("ramp_time", "2 s", "ramp_type", Ramp.Sine)}
 */
public enum Ramp implements Choice {
    /** No shape. */
    Null,
    /** Half a sine. */
    Sine,
    /** A straight line. */
    Linear;

    @Override
    public String member() {
        return name();
    }

    @Override
    public String type() {
        return "Ramp";
    }
}
