package tidelab.waves;

import java.util.Arrays;
import tidelab.waves.component.WaveSynthesisException;

/** One whole experiment through the objects of the API, which ends as hosts end theirs. */
final class SafeExperiment implements AutoCloseable {
    private final Experiment experiment;

    SafeExperiment() {
        experiment = Tanks.flume();
    }

    @Override
    public void close() {
        experiment.close();
    }

    /** Builds a run of one wave along the tank. */
    Run regular(double f, double a, double repeat) {
        Definition definition = Tanks.definition(experiment, "regular");
        definition.set("repeat", Quantity.of(repeat, "s"));
        Tanks.single(Tanks.place(definition), f, a, 0);
        return definition.build();
    }

    /** Builds a run of a spectrum with random phases, and of a record that is repeated. */
    Run irregular(double repeat, double[] samples) {
        Definition definition = Tanks.definition(experiment, "irregular");
        definition.set("repeat", Quantity.of(repeat, "s"));
        Specification place = Tanks.place(definition);
        place.addSpectrum("flat", "0.3@Hz#0.0001@m2s#1.2@Hz").set();
        place.addModifier(ModifierType.PhaseRandom, "")
                .set("ran_gen", RanGen.FullRandom, "seed", 17);
        place.addTimeSeries("record", "mm", samples)
                .set("rate", "50 Hz", "scale_ratio", 1, "ramp_time", "1 s", "ramp_type", Ramp.Sine);
        Run run = definition.build();
        run.messages();
        return run;
    }

    static double largestMotion(Run run, double rate) {
        PaddleMotion motion = run.paddleMotion(Quantity.of(rate, "Hz"));
        motion.statistics(0);
        return largest(motion.signal(0, 0));
    }

    static double highestAtPoint(Run run, double rate) {
        return largest(run.point(point(rate).with("delta_angle", "10 deg")).elevation());
    }

    static double periodAtPoint(Run run, double rate) {
        return run.statistics(point(rate)).get("reg_t", "s");
    }

    private static Settings point(double rate) {
        return Settings.of("rate", Quantity.of(rate, "Hz"), "x", "3 m", "y", "0 m");
    }

    private static double largest(double[] values) {
        return Arrays.stream(values).max().orElse(0);
    }

    static double highestAtPaddle(Run run, double rate, double xStep) {
        double most = 0;
        try (Animation animation = run.animation(Surfaces.GRID.with("rate", Quantity.of(rate, "Hz"))
                                                         .with("x_step", Quantity.of(xStep, "m")))
                                           .build()) {
            for (int t = 0; t < animation.frames(); ++t)
                most = Math.max(most, Animation.height(animation.frame(t)[0]));
        }
        return most;
    }

    void tune() {
        experiment.set(experiment.settings());
        experiment.profile("delta_x", "1 m");
    }

    int refused(Run run) {
        int refused = 0;
        refused += fails(() -> run.animation(Surfaces.GRID.with("rate", "1 m")));
        refused += fails(() -> run.paddleMotion("1 m"));
        refused += fails(() -> run.definition().addSpecification().addSpectrum("wrong", "1+(@Hz#"));
        refused += fails(() -> Experiment.builder().silent().open(Tanks.FLUME.resolve("none")));
        return refused;
    }

    private static int fails(Runnable call) {
        try {
            call.run();
            return 0;
        } catch (WaveSynthesisException refused) {
            return 1;
        }
    }
}
