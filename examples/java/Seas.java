import tidelab.waves.Definition;
import tidelab.waves.Experiment;
import tidelab.waves.ModifierType;
import tidelab.waves.Quantity;
import tidelab.waves.RanGen;
import tidelab.waves.Run;
import tidelab.waves.Settings;
import tidelab.waves.Specification;
import tidelab.waves.SpreadFunc;
import tidelab.waves.WaveMerge;

/** Seas for the wide basin. Each method defines one and builds its run. */
final class Seas {
    /** The point of the random seas: in front of the ridge, in the middle of the basin. */
    static final Settings POINT = Settings.of("x", "5 m", "y", "10 m");

    static final Quantity REPEAT = Quantity.of("256 s");

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

    private Seas() {}

    /** A short-crested random sea: each harmonic has a random direction and a random phase. */
    static Run shortCrested(Experiment basin) {
        Definition definition = definition(basin, "short-crested sea", REPEAT, WaveMerge.Null);
        Specification waves = random(definition, SHORT_CRESTED, RanGen.Default);
        spread(waves, SPREAD, 0, RanGen.Default);
        return definition.build();
    }

    /**
     * Two seas. Each harmonic belongs to only one of them, so no harmonic interferes with itself.
     */
    static Run bimodal(Experiment basin) {
        Definition definition = definition(basin, "bimodal sea", REPEAT, WaveMerge.RMS);
        Specification swell = random(definition, SWELL, RanGen.Default);
        spread(swell, new GodaSpread(75, SWELL.fp()), -0.35, RanGen.Default);
        Specification windSea = random(definition, WIND_SEA, RanGen.FullRandom);
        spread(windSea, new GodaSpread(10, WIND_SEA.fp()), 0.45, RanGen.FullRandom);
        return definition.build();
    }

    /** A focused group with its own direction for each frequency. */
    static Run fan(Experiment basin) {
        Definition definition = definition(basin, "fan", Quantity.of("64 s"), WaveMerge.Null);
        Specification waves = definition.addSpecification();
        waves.set("x", Quantity.of(FOCUS_X, "m"), "y", Quantity.of(FOCUS_Y, "m"), "t",
                Quantity.of(FOCUS_T, "s"));
        GROUP.addTo(waves);
        waves.addModifier(ModifierType.AngleChange,
                     "fan[rad]*(($[Hz]-low[Hz])/(high[Hz]-low[Hz])-0.5)@rad")
                .set("set", true, "fan", Quantity.of(FAN, "rad"), "low",
                        Quantity.of(GROUP.low(), "Hz"), "high", Quantity.of(GROUP.high(), "Hz"));
        return definition.build();
    }

    /** The direction of the fan at a frequency, for the host's own checks. */
    static double fanDirection(double f) {
        return FAN * ((f - GROUP.low()) / (GROUP.high() - GROUP.low()) - 0.5);
    }

    private static Definition definition(
            Experiment basin, String name, Quantity repeat, WaveMerge merge) {
        Definition definition = basin.addDefinition(name);
        definition.set("repeat", repeat, "dalrymple", false, "wave_merge", merge);
        return definition;
    }

    /** Waves with random phases. The generator "Default" ignores the seed. */
    private static Specification random(Definition definition, Jonswap sea, RanGen generator) {
        Specification waves = definition.addSpecification();
        waves.set(POINT.with("t", "0 s"));
        sea.addTo(waves);
        waves.addModifier(ModifierType.PhaseRandom, "").set("ran_gen", generator, "seed", 2);
        return waves;
    }

    private static void spread(Specification waves, GodaSpread law, double mean, RanGen generator) {
        waves.addModifier(ModifierType.AngleSpread, GodaSpread.TEXT)
                .set(law.settings()
                                .with("function", SpreadFunc.Cos2S)
                                .with("angle", Quantity.of(mean, "rad"))
                                .with("min_angle", Quantity.of(-RANGE, "rad"))
                                .with("max_angle", Quantity.of(RANGE, "rad"))
                                .with("ran_gen", generator)
                                .with("seed", 2));
    }
}
