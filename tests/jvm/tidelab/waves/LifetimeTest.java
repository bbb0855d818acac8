package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotSame;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tidelab.waves.Tanks.fails;

import java.lang.ref.Reference;
import java.util.ArrayList;
import java.util.List;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.function.Executable;

/** When native objects end, and what their Java objects do afterwards. */
class LifetimeTest {
    private static final double[] RECORD = new double[100];

    @Test
    void everyUseAfterCloseIsAnException() {
        Experiment experiment = Tanks.flume();
        Definition definition = Tanks.wave(experiment, 0.5, 0.1, 0);
        Specification place = definition.specifications().get(0);
        Component wave = place.components().get(0);
        Modifier phases = place.addModifier(ModifierType.PhaseRandom, "");
        phases.set("ran_gen", RanGen.Default, "seed", 0);
        Run run = definition.build();
        PaddleMotion motion = run.paddleMotion("50 Hz");
        Bank bank = experiment.bank(0);
        experiment.close();
        experiment.close();
        assertTrue(experiment.isClosed());
        List<Executable> uses = List.of(experiment::siteName, experiment::siteText,
                experiment::constants, experiment::settings,
                ()
                        -> experiment.set("beach", "1 m"),
                ()
                        -> experiment.profile(Settings.of("delta_x", "1 m")),
                experiment::banks,
                ()
                        -> experiment.bank(0),
                ()
                        -> experiment.addDefinition("x"),
                experiment::definitions, experiment::clear, definition::settings,
                definition::addSpecification, definition::specifications, definition::build,
                definition::remove,
                ()
                        -> definition.set("repeat", "9 s"),
                place::addSingle, place::components,
                ()
                        -> place.addSpectrum("x", ""),
                ()
                        -> place.addTimeExpression("x", ""),
                ()
                        -> place.addFronts(List.of()),
                ()
                        -> place.addTimeSeries("x", "m", RECORD),
                ()
                        -> place.addModifier(ModifierType.GainAdjust, "1"),
                wave::settings,
                ()
                        -> wave.set("a", "1 m"),
                wave::remove, phases::settings,
                ()
                        -> phases.set("seed", 1),
                run::repeat, run::sets,
                ()
                        -> run.position(0),
                run::fronts,
                ()
                        -> run.fronts(0),
                run::allFronts, run::messages,
                ()
                        -> run.paddleMotion("50 Hz"),
                () -> motion.signal(0, 0), () -> motion.signals(0), () -> motion.statistics(0));
        for (Executable use : uses) {
            fails(IllegalStateException.class, "experiment \"flume\" is closed", use);
        }
        assertEquals("west", bank.name());
        assertEquals(1, bank.paddles().size());
    }

    @Test
    void everyUseAfterRemoveIsAnException() {
        try (Experiment experiment = Tanks.flume()) {
            Definition definition = Tanks.wave(experiment, 0.5, 0.1, 0);
            Specification place = definition.specifications().get(0);
            Component wave = place.components().get(0);
            wave.remove();
            assertTrue(wave.isRemoved());
            assertFalse(place.isRemoved());
            assertEquals(List.of(), place.components());
            String gone = "component \"Single\" has been removed";
            fails(IllegalStateException.class, gone, wave::settings);
            fails(IllegalStateException.class, gone, () -> wave.set("a", "1 m"));
            fails(IllegalStateException.class, gone, wave::remove);
        }
    }

    @Test
    void whatWasAddedToARemovedItemIsRemovedToo() {
        try (Experiment experiment = Tanks.flume()) {
            Definition definition = Tanks.wave(experiment, 0.5, 0.1, 0);
            Specification place = definition.specifications().get(0);
            Component wave = place.components().get(0);
            Modifier gain = place.addModifier(ModifierType.GainAdjust, "2");
            definition.remove();
            assertTrue(definition.isRemoved() && place.isRemoved() && wave.isRemoved());
            fails(IllegalStateException.class, "modifier GainAdjust has been removed",
                    () -> gain.set());
            fails(IllegalStateException.class,
                    "specification 1 of definition \"run\" has been removed", place::addSingle);
            assertEquals(List.of(), experiment.definitions());
        }
    }

    @Test
    void anItemOfBeforeAClearIsNotTheOneThatReceivesItsNativeId() {
        try (Experiment experiment = Tanks.flume()) {
            Definition before = Tanks.wave(experiment, 0.5, 0.1, 0);
            long id = before.id();
            experiment.clear();
            Definition after = Tanks.wave(experiment, 1.0, 0.2, 0);
            assertEquals(id, after.id());
            assertNotSame(before, after);
            String gone = "definition \"run\" has been removed";
            fails(IllegalStateException.class, gone, before::settings);
            fails(IllegalStateException.class, gone, before::build);
            fails(IllegalStateException.class, gone, before::remove);
            assertEquals(1.0, after.build().fronts().get(0).frequency(), 1e-15);
        }
    }

    @Test
    void aRecordIsKeptAsLongAsItsComponent() {
        Experiment experiment = Tanks.flume();
        Handle handle = experiment.handle();
        Definition definition = Tanks.definition(experiment, "run");
        Specification place = Tanks.place(definition);
        place.addTimeSeries("one", "m", RECORD).remove();
        assertEquals(0, handle.kept());

        place.addTimeSeries("two", "m", RECORD);
        place.addTimeSeries("three", "m", RECORD);
        assertEquals(2, handle.kept());
        place.remove();
        assertEquals(0, handle.kept());

        Tanks.place(definition).addTimeSeries("four", "m", RECORD);
        definition.remove();
        assertEquals(0, handle.kept());

        Tanks.place(Tanks.definition(experiment, "x")).addTimeSeries("five", "m", RECORD);
        experiment.clear();
        assertEquals(0, handle.kept());

        Tanks.place(Tanks.definition(experiment, "x")).addTimeSeries("six", "m", RECORD);
        experiment.close();
        assertEquals(0, handle.kept());
    }

    @Test
    void aRecordCanBeBuiltAfterItsArrayIsGone() {
        try (Experiment experiment = Tanks.flume()) {
            Definition definition = Tanks.definition(experiment, "run");
            double[] samples = new double[100];
            for (int j = 0; j < 100; ++j) samples[j] = 0.1 * Math.cos(Tanks.TWO_PI * j / 10);
            Component record = Tanks.place(definition).addTimeSeries("record", "m", samples);
            java.util.Arrays.fill(samples, 7);
            record.set(
                    "rate", "10 Hz", "scale_ratio", 1, "ramp_time", "0 s", "ramp_type", Ramp.Null);
            for (int i = 0; i < 3; ++i) {
                System.gc();
                List<Front> fronts = definition.build().fronts();
                assertEquals(
                        0.1, fronts.stream().mapToDouble(Front::amplitude).max().orElse(0), 1e-12);
            }
        }
    }

    @Test
    void anExperimentThatIsForgottenIsFreed() {
        int before = Tanks.live();
        List<Experiment> forgotten = new ArrayList<>();
        for (int i = 0; i < 20; ++i) {
            forgotten.add(Tanks.flume());
            Tanks.wave(forgotten.get(i), 0.5, 0.1, 0).build();
        }
        assertEquals(before + 20, Tanks.live());
        forgotten.clear();
        assertEquals(before, Tanks.live());
    }

    @Test
    void aResultKeepsItsExperiment() {
        PaddleMotion motion = Tanks.wave(Tanks.flume(), 0.5, 0.1, 0).build().paddleMotion("50 Hz");
        int live = Tanks.live();
        assertEquals(500, motion.signal(0, 0).length);
        assertEquals(live, Tanks.live());
        Reference.reachabilityFence(motion);
        motion = null;
        assertEquals(live - 1, Tanks.live());
    }
}
