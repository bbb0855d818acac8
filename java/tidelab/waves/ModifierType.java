package tidelab.waves;

/**
 * The kinds of modifiers of a specification.
 *
 * <p>Example: {@code specification.addModifier(ModifierType.PhaseRandom, "")}
 */
public enum ModifierType implements Choice {
    /** Multiplies amplitudes by a factor that depends on the frequency. */
    GainAdjust,
    /** Replaces each harmonic by a fan of directions. */
    AngleSweep,
    /** Draws a direction for each front. */
    AngleSpread,
    /** Sets or turns directions, depending on the frequency. */
    AngleChange,
    /** Draws a phase for each front. */
    PhaseRandom,
    /** Gives each harmonic the amplitude and phase of white noise. */
    PhaseWNoise,
    /** Sets or shifts phases, depending on the frequency. */
    PhaseChange;

    @Override
    public String member() {
        return name();
    }

    @Override
    public String type() {
        return "WaveMod";
    }
}
