package tidelab.waves;

/**
 * How a record is fitted to a repeat time. No calculation uses it at present.
 *
 * <p>Example: {@code Settings.of("fit", DataMod.Wrap)}
 */
public enum DataMod implements Choice {
    /** Not at all. */
    Null,
    /** The excess is added onto the beginning. */
    Wrap,
    /** The record is stretched. */
    Stretch;

    @Override
    public String member() {
        return name();
    }

    @Override
    public String type() {
        return "DataMod";
    }
}
