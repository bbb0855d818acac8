package tidelab;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;

/** The effect of each of the seven modifiers. */
class ModifiersTest extends FlumeTest {
    private long definition;
    private long specification;

    /** The flume with angles limited to 60 degrees. */
    @Override
    String script() {
        return Flume.SCRIPT.replace("maximum = 360; minimum = 0;", "maximum = 60; minimum = -60;");
    }

    /** A run of 10 s with waves of 0.5 Hz and 1 Hz. */
    @BeforeEach
    void make() {
        definition = Kelpbox_Experiment_add_definition(experiment, null, "run");
        specification = Flume.specification(experiment, definition);
        for (double f : new double[] {0.5, 1.0}) {
            long single = Kelpbox_Experiment_add_single(experiment, null, specification);
            Flume.setSingle(experiment, single, f, 0.1, 1.0);
        }
        Flume.setDefinition(experiment, definition, 10);
    }

    private long add(String type, String text) {
        return Kelpbox_Experiment_add_modifier(experiment, null, specification, type, text);
    }

    /** Sets the item with the current parameters. */
    private void set(long item) {
        Kelpbox_Experiment_set__SWIG_1(experiment, null, item, params, null);
    }

    /** Amplitude, angle and phase of each front. */
    private double[][] build() {
        Kelpbox_Experiment_run_build(experiment, null, definition);
        long fronts = Kelpbox_Experiment_fronts__SWIG_1(experiment, null, definition, false);
        double[][] result = new double[(int) Kelpbox_StdVectorFront_size(fronts, null)][];
        for (int i = 0; i < result.length; ++i) {
            long front = Kelpbox_StdVectorFront_get(fronts, null, i);
            result[i] = new double[] {Kelpbox_Front_get_amp(front, null),
                    Kelpbox_Front_get_angle(front, null), Kelpbox_Front_get_phase(front, null)};
        }
        return result;
    }

    @Test
    void gainFollowsAFormulaOfFrequency() {
        set(add("GainAdjust", "2*$[Hz]#0.6@Hz#3"));
        double[][] fronts = build();
        assertEquals(0.1, fronts[0][0], 1e-15);
        assertEquals(0.3, fronts[1][0], 1e-15);
    }

    @Test
    void directionAndPhaseAreAddedOrSet() {
        long angle = add("AngleChange", "$[Hz]@rad");
        long phase = add("PhaseChange", "4*$[Hz]@rad");
        Flume.insert(params, "set", "False", "Bool");
        set(phase);
        Kelpbox_Params_clear(params, null);
        Flume.insert(params, "set", "True", "Bool");
        set(angle);
        assertArrayEquals(new double[] {0.1, 0.5, 3.0}, build()[0], 1e-12);
        assertArrayEquals(new double[] {0.1, 1.0, 5.0}, build()[1], 1e-12);
    }

    @Test
    void aSweepMakesAFanOverTheAnglesOfTheSite() {
        Flume.insert(params, "delta_angle", 30, "deg");
        set(add("AngleSweep", "1"));
        double[][] fronts = build();
        assertEquals(10, fronts.length);
        for (int i = 0; i < 10; ++i) {
            double[] front = {0.02, Math.PI / 6 * (i % 5 - 2), 1.0};
            assertArrayEquals(front, fronts[i], 1e-12);
        }
    }

    @Test
    void aSpreadNarrowsItsRangeAndDrawsWithin() {
        Flume.insert(params, "function", "CosS", "SpreadFunc");
        Flume.insert(params, "angle", 0, "deg");
        Flume.insert(params, "min_angle", -150, "deg");
        Flume.insert(params, "max_angle", 20, "deg");
        Flume.insert(params, "ran_gen", "Distribute", "RanGen");
        Flume.insert(params, "seed", 12, "");
        set(add("AngleSpread", "4"));
        assertEquals(
                0.0001 - Math.PI / 2, Kelpbox_Params_get(params, null, "min_angle", "rad"), 1e-9);
        assertEquals(20, Kelpbox_Params_get(params, null, "max_angle", "deg"), 1e-9);
        assertEquals(1, Kelpbox_Params_comment_size(params, null));
        assertEquals("Warning::Poor match", Kelpbox_Params_comment(params, null, 0));
        double[][] fronts = build();
        for (double[] front : fronts) {
            assertTrue(front[1] > -Math.PI / 2 && front[1] < 0.36, "angle " + front[1]);
        }
        assertNotEquals(fronts[0][1], fronts[1][1]);
    }

    @Test
    void aMeanOutsideTheRangeIsRefused() {
        long spread = add("AngleSpread", "4");
        Flume.insert(params, "function", "Cos2S", "SpreadFunc");
        Flume.insert(params, "angle", 30, "deg");
        Flume.insert(params, "min_angle", -20, "deg");
        Flume.insert(params, "max_angle", 20, "deg");
        Flume.insert(params, "ran_gen", "Default", "RanGen");
        fails("Angle not between min and max", () -> set(spread));
    }

    @Test
    void randomPhasesRepeatAndDependOnTheSeed() {
        long random = add("PhaseRandom", "");
        Flume.insert(params, "ran_gen", "Default", "RanGen");
        set(random);
        double[][] first = build();
        assertEquals(0.1, first[0][0]);
        assertNotEquals(1.0, first[0][2]);
        assertArrayEquals(first[0], build()[0]);
        Kelpbox_Experiment_remove(experiment, null, random);
        Kelpbox_Params_clear(params, null);
        Flume.insert(params, "ran_gen", "FullRandom", "RanGen");
        Flume.insert(params, "seed", 5, "");
        set(add("PhaseRandom", ""));
        assertNotEquals(first[0][2], build()[0][2]);
    }

    @Test
    void noiseChangesAmplitudesAndPhasesUpToHalfItsRate() {
        Flume.insert(params, "ran_gen", "Default", "RanGen");
        Flume.insert(params, "rate", 1.5, "Hz");
        set(add("PhaseWNoise", ""));
        double[][] fronts = build();
        assertNotEquals(0.1, fronts[0][0]);
        assertNotEquals(1.0, fronts[0][2]);
        assertArrayEquals(new double[] {0.1, 0.0, 1.0}, fronts[1]);
    }

    @Test
    void modifiersThatDoNotFitAreRefused() {
        add("PhaseRandom", "");
        fails("add_modifier::Trying to overide an existing modifier",
                () -> add("PhaseChange", "1@rad"));
        fails("add_modifier::AngleChangModifier::Trying to add to invalid type",
                ()
                        -> Kelpbox_Experiment_add_modifier(
                                experiment, null, definition, "AngleChange", "1@rad"));
        fails("Even number of functions in modifier expression", () -> add("GainAdjust", "1#1@Hz"));
        fails("Incorrect output units in expression 0 m, 17", () -> add("AngleChange", "1@m"));
        set(add("GainAdjust", ""));
        fails("Gain::evaluate::there is no expression",
                () -> Kelpbox_Experiment_run_build(experiment, null, definition));
    }
}
