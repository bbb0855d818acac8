package tidelab.waves;

/**
 * How a run divides its harmonics among its specifications.
 *
 * <p>Example: {@code Settings.of("repeat", "64 s", "dalrymple", false, "wave_merge",
 * WaveMerge.RMS)}
 */
public enum WaveMerge implements Choice {
    /** Every harmonic carries the fronts of all specifications. */
    Null,
    /** Each harmonic belongs to the specification that is owed the most energy so far. */
    RMS,
    /** Each harmonic belongs to one specification, drawn with a fixed seed. */
    Random;

    @Override
    public String member() {
        return name();
    }

    @Override
    public String type() {
        return "WaveMerge";
    }
}
