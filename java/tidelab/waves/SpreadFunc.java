package tidelab.waves;

/**
 * Laws of directional spreading, by the deviation d from the mean direction.
 *
 * <p>Example: {@code modifier.set("function", SpreadFunc.Cos2S, "angle", "0 deg", ...)}
 */
public enum SpreadFunc implements Choice {
    /** cos(d) to the power s. */
    CosS,
    /** cos(d / 2) to the power 2s. */
    Cos2S;

    @Override
    public String member() {
        return name();
    }

    @Override
    public String type() {
        return "SpreadFunc";
    }
}
