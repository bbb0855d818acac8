import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

/**
 * Seas for the wide basin. Each method adds one to the tank, builds its run and its drive signals,
 * and returns the ID of its definition.
 */
final class Seas {
    /** The point of the random seas: in front of the ridge, in the middle of the basin. */
    static final double X = 5.0; // m

    static final double Y = 10.0; // m
    static final double REPEAT = 256.0; // s

    /** Wind waves. */
    static final Jonswap SHORT_CRESTED = new Jonswap(0.08, 0.6, 3.3, 0.4, 1.4);

    static final GodaSpread SPREAD = new GodaSpread(10, 0.6);
    static final double RANGE = 0.95; // rad, to either side

    /** A swell that meets a wind sea. */
    static final Jonswap SWELL = new Jonswap(0.05, 0.45, 5.0, 0.3, 1.4);

    static final Jonswap WIND_SEA = new Jonswap(0.06, 0.85, 2.0, 0.3, 1.4);

    /** A group whose direction turns with frequency, from one side to the other. */
    static final Jonswap GROUP = new Jonswap(0.06, 0.6, 3.3, 0.4, 1.4);

    static final double FAN = 1.2; // rad, from the longest wave to the shortest
    static final double FOCUS_X = 12.0; // m
    static final double FOCUS_Y = 9.0; // m
    static final double FOCUS_T = 32.0; // s
    static final double GROUP_REPEAT = 64.0; // s

    private Seas() {}

    /** A short-crested random sea: each harmonic has a random direction and a random phase. */
    static long shortCrested(Tank tank) {
        long run = tank.definition("short-crested sea");
        long waves = tank.specification(run, X, Y, 0);
        tank.spectrum(waves, SHORT_CRESTED);
        spread(tank, waves, SPREAD, 0, "Default");
        phases(tank, waves, "Default");
        tank.build(run, REPEAT, "False", "Null");
        return run;
    }

    /**
     * Two seas. Each harmonic belongs to only one of them, so no harmonic interferes with itself.
     */
    static long bimodal(Tank tank) {
        long run = tank.definition("bimodal sea");
        long swell = tank.specification(run, X, Y, 0);
        tank.spectrum(swell, SWELL);
        spread(tank, swell, new GodaSpread(75, SWELL.fp()), -0.35, "Default");
        phases(tank, swell, "Default");
        long windSea = tank.specification(run, X, Y, 0);
        tank.spectrum(windSea, WIND_SEA);
        spread(tank, windSea, new GodaSpread(10, WIND_SEA.fp()), 0.45, "FullRandom");
        phases(tank, windSea, "FullRandom");
        tank.build(run, REPEAT, "False", "RMS");
        return run;
    }

    /** A focused group with its own direction for each frequency. */
    static long fan(Tank tank) {
        long run = tank.definition("fan");
        long waves = tank.specification(run, FOCUS_X, FOCUS_Y, FOCUS_T);
        tank.spectrum(waves, GROUP);
        long params = new_Kelpbox_Params();
        Native.choice(params, "set", "True", "Bool");
        Native.number(params, "fan", FAN, "rad");
        Native.number(params, "low", GROUP.low(), "Hz");
        Native.number(params, "high", GROUP.high(), "Hz");
        tank.modifier(waves, "AngleChange", "fan[rad]*(($[Hz]-low[Hz])/(high[Hz]-low[Hz])-0.5)@rad",
                params);
        tank.build(run, GROUP_REPEAT, "False", "Null");
        return run;
    }

    /** The direction of the fan at a frequency, for the host's own checks. */
    static double fanDirection(double f) {
        return FAN * ((f - GROUP.low()) / (GROUP.high() - GROUP.low()) - 0.5);
    }

    private static void spread(
            Tank tank, long waves, GodaSpread law, double mean, String generator) {
        long params = new_Kelpbox_Params();
        law.into(params);
        Native.choice(params, "function", "Cos2S", "SpreadFunc");
        Native.number(params, "angle", mean, "rad");
        Native.number(params, "min_angle", -RANGE, "rad");
        Native.number(params, "max_angle", RANGE, "rad");
        seed(params, generator);
        tank.modifier(waves, "AngleSpread", GodaSpread.TEXT, params);
    }

    private static void phases(Tank tank, long waves, String generator) {
        long params = new_Kelpbox_Params();
        seed(params, generator);
        tank.modifier(waves, "PhaseRandom", "", params);
    }

    /** The generator "Default" ignores the seed. */
    private static void seed(long params, String generator) {
        Native.choice(params, "ran_gen", generator, "RanGen");
        Native.number(params, "seed", 2, "");
    }
}
