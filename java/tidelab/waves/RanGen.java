package tidelab.waves;

/**
 * How random draws are seeded.
 *
 * <p>Example: {@code Settings.of("ran_gen", RanGen.FullRandom, "seed", 17)}
 */
public enum RanGen implements Choice {
    /** The seed of the modifier's class; {@code seed} is not used. */
    Default,
    /** The seed is {@code seed}. */
    FullRandom,
    /** The seed is {@code seed}; the same effect as {@link #FullRandom}. */
    Distribute;

    @Override
    public String member() {
        return name();
    }

    @Override
    public String type() {
        return "RanGen";
    }
}
