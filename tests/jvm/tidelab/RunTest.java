package tidelab;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import tidelab.waves.component.WaveSynthesisException;

/** The steps of a run, from the site to the drive signal. */
class RunTest extends FlumeTest {
    private long definition;
    private long specification;

    @BeforeEach
    void make() {
        definition = Kelpbox_Experiment_add_definition(experiment, null, "run");
        specification = Flume.specification(experiment, definition);
    }

    private void single(double f, double a, double phase) {
        long single = Kelpbox_Experiment_add_single(experiment, null, specification);
        Flume.setSingle(experiment, single, f, a, phase);
    }

    @Test
    void theSiteDescribesItself() {
        assertEquals("Flume piston", Kelpbox_Experiment_context_name(experiment, null));
        String identity = Kelpbox_Experiment_context_string(experiment, null);
        assertTrue(identity.matches("Test::Flume::piston#0x[0-9a-f]+"), identity);

        Kelpbox_Experiment_get_consts(experiment, null, params, null);
        assertEquals(20.0, Kelpbox_Params_get(params, null, "max_x", "m"));
        assertEquals(2.0, Kelpbox_Params_get(params, null, "max_freq", "Hz"));
        assertEquals(100.0, Kelpbox_Params_get(params, null, "base_rate", "Hz"));
        assertEquals(1.0, Kelpbox_Params_get(params, null, "max_beach", "m"));
        assertEquals(4, Kelpbox_Params_get_enum(params, null, "geometry", "Geometry"));

        assertEquals(1, Kelpbox_Experiment_paddle_banks(experiment, null));
        assertEquals(1, Kelpbox_Experiment_paddle_bank_size(experiment, null, 0));
        long bank = new_Kelpbox_Params();
        assertEquals("west", Kelpbox_Experiment_paddle_bank_info(experiment, null, 0, bank, null));
        assertEquals(0.3, Kelpbox_Params_get(bank, null, "clip_paddle_motion", "m"));
        assertEquals(-0.4, Kelpbox_Params_get(bank, null, "min_paddle_motion", "m"));
        assertEquals(2.5, Kelpbox_Params_get(bank, null, "gain", "V"));
        delete_Kelpbox_Params(bank);
        long paddle = new_Kelpbox_Params();
        Kelpbox_Experiment_paddle_info(experiment, null, 0, 0, paddle, null);
        assertEquals(1.0, Kelpbox_Params_get(paddle, null, "paddle_num", ""));
        delete_Kelpbox_Params(paddle);
    }

    @Test
    void theSiteCanBeTunedAndItsChecksumStays() {
        String identity = Kelpbox_Experiment_context_string(experiment, null);
        Flume.insert(params, "beach", 50, "cm");
        Kelpbox_Experiment_set(experiment, null, params, null);
        Kelpbox_Params_clear(params, null);
        Kelpbox_Experiment_query__SWIG_0(experiment, null, params, null);
        assertEquals(0.5, Kelpbox_Params_get(params, null, "beach", "m"), 1e-15);
        assertEquals(identity, Kelpbox_Experiment_context_string(experiment, null));
    }

    @Test
    void theProfileIsSampledFromEndToEnd() {
        Flume.insert(params, "delta_x", 5, "m");
        long depths = Kelpbox_Experiment_profile(experiment, null, params, null);
        assertEquals(5, Kelpbox_StdVectorDouble_size(depths, null));
        for (int i = 0; i < 5; ++i) {
            assertEquals(1.0, Kelpbox_StdVectorDouble_get(depths, null, i));
        }
        delete_Kelpbox_StdVectorDouble(depths);
    }

    @Test
    void aSingleWaveDrivesThePistonAsInTheClosedForm() {
        final double f = 0.7;
        final double a = 0.04;
        final double phase = 0.3;
        final double rate = 50;
        single(f, a, phase);
        Flume.setDefinition(experiment, definition, 10);
        Kelpbox_Experiment_run_build(experiment, null, definition);
        Flume.insert(params, "rate", rate, "Hz");
        Kelpbox_Experiment_paddle_motion_build(experiment, null, definition, params, null);

        // The wave amplitude of a full-depth piston is 4 sinh^2(kd) / (sinh(2kd) + 2kd) of its
        // stroke. The library's explicit wave number is within a few parts in 1e5 of the exact one
        // that is used here.
        double k = Flume.waveNumber(Flume.TWO_PI * f);
        double kd = k * Flume.DEPTH;
        double sinh = Math.sinh(kd);
        double stroke = a * (Math.sinh(2 * kd) + 2 * kd) / (4 * sinh * sinh);
        long signal = Kelpbox_Experiment_paddle_motion_data(experiment, null, definition, 0, 0);
        int n = (int) Kelpbox_StdVectorDouble_size(signal, null);
        assertEquals(500, n);
        for (int j = 0; j < n; ++j) {
            double expected = stroke * Math.cos(Flume.TWO_PI * f * j / rate + phase - Math.PI / 2);
            assertEquals(expected, Kelpbox_StdVectorDouble_get(signal, null, j), 1e-4 * stroke);
        }
        Kelpbox_Params_clear(params, null);
        Kelpbox_Experiment_paddle_motion_stats(experiment, null, definition, 0, params, null);
        assertTrue(Kelpbox_StdVectorParam_isEmpty(Kelpbox_Params_param_list(params, null), null));
    }

    @Test
    void theFittedRepeatTimeIsWrittenBack() {
        Flume.insert(params, "repeat", 10.0004, "s");
        Flume.insert(params, "dalrymple", "False", "Bool");
        Flume.insert(params, "wave_merge", "Null", "WaveMerge");
        Kelpbox_Experiment_set__SWIG_1(experiment, null, definition, params, null);
        assertEquals(10.0, Kelpbox_Params_get(params, null, "repeat", "s"));
        long run = Kelpbox_Experiment_repeat(experiment, null, definition);
        assertEquals(10.0, Kelpbox_RunData_value(run, null));
        assertEquals(20, Kelpbox_RunData_harmonic(run, null, 0));
        assertEquals(1, Kelpbox_RunData_harmonic(run, null, 1));
        assertEquals(21, Kelpbox_RunData_size(run, null));
        assertEquals(7, Kelpbox_RunData_wave_num(run, null, 0.7));
        assertEquals(0.7, Kelpbox_RunData_freq(run, null, 7), 1e-15);
    }

    @Test
    void frontsAndMessagesAreReadFromTheRun() {
        single(0.5, 0.02, 0);
        single(0.55, 0.01, 0);
        single(5.0, 0.01, 0);
        Flume.setDefinition(experiment, definition, 10);
        Kelpbox_Experiment_run_build(experiment, null, definition);
        assertEquals(1, Kelpbox_Experiment_run_size(experiment, null, definition));
        long fronts = Kelpbox_Experiment_fronts__SWIG_2(experiment, null, definition);
        assertEquals(2, Kelpbox_StdVectorFront_size(fronts, null));
        long first = Kelpbox_StdVectorFront_get(fronts, null, 0);
        assertEquals(0.5, Kelpbox_Front_get_freq(first, null), 1e-15);
        assertEquals(0.02, Kelpbox_Front_get_amp(first, null), 1e-15);
        assertEquals(fronts, Kelpbox_Experiment_fronts__SWIG_1(experiment, null, definition, true));
        long transfer = Kelpbox_Experiment_fronts__SWIG_0(experiment, null, definition, 0);
        assertEquals(5,
                Kelpbox_TransferFront_get_harmonic(
                        Kelpbox_StdVectorTransferFront_get(transfer, null, 0), null));

        long messages = Kelpbox_Experiment_messages(experiment, null, definition);
        assertEquals(2, Kelpbox_StdVectorString_size(messages, null));
        assertEquals("Single frequency 0.55Hz altered to 0.6Hz to fit repeat time",
                Kelpbox_StdVectorString_get(messages, null, 0));
        assertEquals("Discarding single frequency 5 as it is out of range",
                Kelpbox_StdVectorString_get(messages, null, 1));
        delete_Kelpbox_StdVectorString(messages);
    }

    @Test
    void aSignalThatClipsIsDeliveredAndCounted() {
        single(0.5, 0.5, 0);
        Flume.setDefinition(experiment, definition, 10);
        Kelpbox_Experiment_run_build(experiment, null, definition);
        Flume.insert(params, "rate", 100, "Hz");
        Kelpbox_Experiment_paddle_motion_build(experiment, null, definition, params, null);
        long signal = Kelpbox_Experiment_paddle_motion_data(experiment, null, definition, 0, 0);
        double peak = 0;
        for (int j = 0; j < Kelpbox_StdVectorDouble_size(signal, null); ++j) {
            peak = Math.max(peak, Math.abs(Kelpbox_StdVectorDouble_get(signal, null, j)));
        }
        assertTrue(peak > 0.3, "peak " + peak);
        Kelpbox_Experiment_paddle_motion_stats(experiment, null, definition, 0, params, null);
        assertEquals(1.0, Kelpbox_Params_get(params, null, "clip_peak_ratio", ""));
        assertEquals(1 - Math.pow(0.3 / peak, 2),
                Kelpbox_Params_get(params, null, "clip_power_ratio", ""), 1e-6);
    }

    @Test
    void nothingIsDeliveredBeforeItIsBuilt() {
        assertEquals("Bank out of range or paddle_motion not built",
                assertThrows(WaveSynthesisException.class,
                        ()
                                -> Kelpbox_Experiment_paddle_motion_data(
                                        experiment, null, definition, 0, 0))
                        .getMessage());
        long single = Kelpbox_Experiment_add_single(experiment, null, specification);
        assertEquals(3, single - definition + 1);
        Flume.setDefinition(experiment, definition, 10);
        assertEquals("Single::evaluate::when not ready",
                assertThrows(WaveSynthesisException.class,
                        () -> Kelpbox_Experiment_run_build(experiment, null, definition))
                        .getMessage());
    }
}
