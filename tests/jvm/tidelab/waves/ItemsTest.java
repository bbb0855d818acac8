package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tidelab.waves.Tanks.fails;

import java.util.AbstractList;
import java.util.List;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import tidelab.waves.component.WaveSynthesisException;

/** Adding items, and giving them values. */
class ItemsTest {
    private Experiment experiment;
    private Definition definition;
    private Specification place;

    @BeforeEach
    void open() {
        experiment = Tanks.flume();
        definition = Tanks.definition(experiment, "run");
        place = Tanks.place(definition);
    }

    @AfterEach
    void close() {
        experiment.close();
    }

    @Test
    void itemsKnowWhereTheyAre() {
        Component wave = place.addSingle();
        Modifier phases = place.addModifier(ModifierType.PhaseRandom, "");
        assertEquals(List.of(definition), experiment.definitions());
        assertEquals(List.of(place), definition.specifications());
        assertEquals(List.of(wave), place.components());
        assertEquals(List.of(phases), place.modifiers());
        assertSame(place, wave.parent());
        assertSame(definition, place.parent());
        assertNull(definition.parent());
        assertSame(experiment, phases.experiment());
        assertEquals("run", definition.name());
        assertSame(ModifierType.PhaseRandom, phases.type());
        assertEquals("specification 1 of definition \"run\"", place.toString());
    }

    @Test
    void componentsKnowWhatTheyWereMadeFrom() {
        String density = "0.2@Hz#hs[m]^2*0.001@m2s#2@Hz";
        Component spectrum = place.addSpectrum("sea", density);
        Component record = place.addTimeSeries("record", "m", new double[] {0, 1, 0});
        Component fronts = place.addFronts(List.of(new Front(0.5, 0.1, 0, 0)));
        Component pulse = place.addTimeExpression("pulse", "0@s#1@m#2@s");
        assertSame(Component.Kind.SPECTRUM, spectrum.kind());
        assertEquals("sea", spectrum.name());
        assertEquals(density, spectrum.text());
        assertSame(Component.Kind.TIME_SERIES, record.kind());
        assertSame(Component.Kind.FRONTS, fronts.kind());
        assertEquals("", fronts.text());
        assertSame(Component.Kind.TIME_EXPRESSION, pulse.kind());
        assertSame(Component.Kind.SINGLE, place.addSingle().kind());
    }

    @Test
    void anItemThatWasNeverSetHasNamesWithoutValues() {
        Settings needed = place.addSingle().settings();
        assertEquals(List.of("a", "angle", "f", "phase"), needed.names());
        assertFalse(needed.isSet("f"));
        assertEquals("Hz", needed.quantity("f").units());
        Settings run = experiment.addDefinition("new").settings();
        assertFalse(run.isSet("wave_merge"));
        fails(java.util.NoSuchElementException.class,
                "\"wave_merge\" has no value yet: it is a WaveMerge",
                () -> run.choice("wave_merge"));
    }

    @Test
    void namesThatAreLeftOutKeepTheirValues() {
        Component wave = place.addSingle();
        wave.set("f", "500 mHz", "a", "25 mm", "angle", "0 deg", "phase", "90 deg");
        wave.set("a", "30 mm");
        assertEquals(Quantity.of("500 mHz"), wave.settings().quantity("f"));
        assertEquals(Quantity.of("30 mm"), wave.settings().quantity("a"));
        Front front = definition.build().fronts().get(0);
        assertEquals(0.03, front.amplitude(), 1e-15);
        assertEquals(0.5, front.frequency(), 1e-15);
    }

    @Test
    void namesWithoutAValueReplaceNothing() {
        Component wave = place.addSingle();
        Settings unset = wave.settings();
        wave.set("f", "0.5 Hz", "a", "25 mm", "angle", "0 deg", "phase", "90 deg");
        assertEquals(Quantity.of("30 mm"), wave.set(unset.with("a", "30 mm")).quantity("a"));
        assertEquals(Quantity.of("0.5 Hz"), wave.settings().quantity("f"));
    }

    @Test
    void aNameThatTheItemDoesNotHaveIsReportedWithTheNearest() {
        fails(IllegalArgumentException.class,
                "\"phas\" is not a setting of component \"Single\"; did you mean \"phase\"? It has:"
                        + " a, angle, f, phase",
                () -> place.addSingle().set("phas", 0));
    }

    @Test
    void whatTheLibraryFitsIsWrittenBackWithItsRemarks() {
        Settings written = definition.set("repeat", "10.196 s");
        assertEquals(10.2, written.get("repeat", "s"), 1e-12);
        assertEquals(List.of(), written.remarks());
        assertEquals(10.2, definition.settings().get("repeat", "s"), 1e-12);

        Component record = place.addTimeSeries("record", "m", new double[200]);
        Settings fitted = record.set(
                "rate", "10 Hz", "scale_ratio", 1, "ramp_time", "15 s", "ramp_type", Ramp.Sine);
        assertEquals(10.0, fitted.get("ramp_time", "s"), 1e-12);
        assertEquals(List.of("Warning::Poor match"), fitted.remarks());
    }

    @Test
    void aMissingValueIsReportedByTheLibrary() {
        fails(WaveSynthesisException.class, "a::Not found",
                () -> place.addSingle().set("f", "1 Hz"));
        fails(WaveSynthesisException.class, "dalrymple::Not found",
                () -> experiment.addDefinition("new").set("repeat", "10 s"));
    }

    @Test
    void aBuildWaitsUntilAFailedSetIsRepeated() {
        Component wave = Tanks.single(place, 0.5, 0.1, 0);
        assertThrows(WaveSynthesisException.class, () -> wave.set("f", "1 Hz", "phase", "3 m"));
        assertEquals(0.5, wave.settings().get("f", "Hz"));
        fails(IllegalStateException.class,
                "the last set of component \"Single\" failed: set it again before the build",
                definition::build);
        wave.set();
        assertEquals(0.5, definition.build().fronts().get(0).frequency(), 1e-15);
    }

    @Test
    void aDefinitionKeepsItsValuesWhenNewOnesAreRefused() {
        Tanks.single(place, 0.5, 0.1, 0);
        assertThrows(WaveSynthesisException.class, () -> definition.set("repeat", "1 m"));
        assertEquals(10.0, definition.build().repeat().seconds());
    }

    @Test
    void aModifierThatIsSetAgainForgetsItsFirstValues() {
        Tanks.single(place, 1.0, 0.1, 0);
        Modifier gain = place.addModifier(ModifierType.GainAdjust, "1#limit[Hz]@Hz#k[]");
        gain.set("limit", "0.8 Hz", "k", 3);
        assertEquals(0.3, definition.build().fronts().get(0).amplitude(), 1e-15);
        gain.set("k", 4);
        assertEquals(0.4, definition.build().fronts().get(0).amplitude(), 1e-15);
        gain.set("limit", "1.2 Hz");
        assertEquals(0.1, definition.build().fronts().get(0).amplitude(), 1e-15);
        gain.remove();
        assertEquals(List.of(), place.modifiers());
        assertEquals(0.1, definition.build().fronts().get(0).amplitude(), 1e-15);
    }

    @Test
    void aSecondModifierForTheSamePurposeIsRefused() {
        place.addModifier(ModifierType.PhaseRandom, "");
        fails(WaveSynthesisException.class, "add_modifier::Trying to overide an existing modifier",
                () -> place.addModifier(ModifierType.PhaseChange, "0@rad"));
        assertEquals(1, place.modifiers().size());
    }

    @Test
    void samplesAreConvertedToMetres() {
        double[] millimetres = new double[100];
        for (int j = 0; j < 100; ++j) millimetres[j] = 40 * Math.cos(Tanks.TWO_PI * j / 20);
        Component record = place.addTimeSeries("record", "mm", millimetres);
        record.set("rate", "10 Hz", "scale_ratio", 1, "ramp_time", "0 s", "ramp_type", Ramp.Null);
        List<Front> fronts = definition.build().fronts();
        Front wave = fronts.stream().filter(front -> front.amplitude() > 1e-9).toList().get(0);
        assertEquals(0.5, wave.frequency(), 1e-12);
        assertEquals(0.04, wave.amplitude(), 1e-12);
        fails(WaveSynthesisException.class, "Unable to convert from \"s\" to \"m\"",
                () -> place.addTimeSeries("record", "s", millimetres));
    }

    @Test
    void numbersThatAreNotFiniteAreRefusedWhereTheyWouldReachAPaddle() {
        fails(IllegalArgumentException.class, "\"a\" of component \"Single\" is NaN m",
                () -> place.addSingle().set("a", Quantity.of(Double.NaN, "m")));
        fails(IllegalArgumentException.class, "\"beach\" of experiment \"flume\" is Infinity m",
                () -> experiment.set("beach", Quantity.of(Double.POSITIVE_INFINITY, "m")));
        fails(IllegalArgumentException.class, "samples[1] is NaN",
                () -> place.addTimeSeries("record", "m", new double[] {0, Double.NaN}));
        fails(IllegalArgumentException.class, "fronts[1]: phase is Infinity",
                ()
                        -> place.addFronts(List.of(new Front(1, 1, 0, 0),
                                new Front(1, 1, 0, Double.POSITIVE_INFINITY))));
    }

    @Test
    void nullsAreNamed() {
        fails(NullPointerException.class, "name", () -> experiment.addDefinition(null));
        fails(NullPointerException.class, "name", () -> place.addSpectrum(null, ""));
        fails(NullPointerException.class, "text", () -> place.addTimeExpression("x", null));
        fails(NullPointerException.class, "label", () -> place.addTimeSeries(null, "m", null));
        fails(NullPointerException.class, "samples", () -> place.addTimeSeries("x", "m", null));
        fails(NullPointerException.class, "fronts", () -> place.addFronts(null));
        fails(NullPointerException.class, "fronts[0]",
                () -> place.addFronts(java.util.Arrays.asList((Front) null)));
        fails(NullPointerException.class, "type", () -> place.addModifier(null, ""));
        fails(NullPointerException.class, "settings", () -> place.set((Settings) null));
    }

    @Test
    void aMessageHasEveryCharacterOfAName() {
        place.addSpectrum("\0 \u6ce2 \ud83c\udf0a", "0.2@Hz#0.0001@m2s#2@Hz");
        fails(WaveSynthesisException.class, "\0 \u6ce2 \ud83c\udf0a::evaluate::when not ready",
                definition::build);
        fails(WaveSynthesisException.class, "Unknown units - \ud83c\udf0a",
                () -> Quantity.of(1, "\ud83c\udf0a"));
    }

    @Test
    void aListOfFrontsMayGrowMeanwhile() {
        Front front = new Front(0.5, 0.1, 0, 0);
        List<Front> growing = new AbstractList<>() {
            private int size = 1;

            @Override
            public Front get(int index) {
                return front;
            }

            @Override
            public int size() {
                return size < 3 ? size++ : size;
            }
        };
        place.addFronts(growing).set();
        int fronts = definition.build().fronts(0).size();
        assertTrue(fronts > 0, fronts + " fronts");
    }
}
