package tidelab;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.function.Executable;
import tidelab.waves.component.WaveSynthesisException;

/** The steps of an analysis, and a full circle: a sea is generated, measured and recovered. */
class AnalysisTest {
    /** Unevenly spaced, so that no two pairs of probes have the same distance. */
    private static final double[] PROBES = {8.0, 8.35, 8.9, 9.7, 10.9};

    private long analysis;

    @BeforeAll
    static void load() {
        Flume.load();
    }

    @BeforeEach
    void make() {
        analysis = new_Kelpbox_Analysis();
        Kelpbox_Analysis_initialise(analysis, null, Flume.file(Flume.SCRIPT));
    }

    @AfterEach
    void free() {
        delete_Kelpbox_Analysis(analysis);
    }

    private long series(double[] samples, double rate, double x) {
        long params = new_Kelpbox_Params();
        Flume.insert(params, "rate", rate, "Hz");
        Flume.insert(params, "x", x, "m");
        Flume.insert(params, "y", 0, "m");
        long vector = new_Kelpbox_StdVectorDouble__SWIG_0();
        for (double sample : samples) {
            Kelpbox_StdVectorDouble_add(vector, null, sample);
        }
        long id = Kelpbox_Analysis_add_series(analysis, null, params, null, vector, null);
        delete_Kelpbox_StdVectorDouble(vector);
        delete_Kelpbox_Params(params);
        return id;
    }

    private long set(double stop, long... series) {
        long params = new_Kelpbox_Params();
        Flume.insert(params, "start_time", 0, "s");
        Flume.insert(params, "stop_time", stop, "s");
        long ids = new_Kelpbox_StdVectorUInt__SWIG_0();
        for (long id : series) {
            Kelpbox_StdVectorUInt_add(ids, null, id);
        }
        long set = Kelpbox_Analysis_create_set(analysis, null, params, null, ids, null);
        delete_Kelpbox_StdVectorUInt(ids);
        delete_Kelpbox_Params(params);
        return set;
    }

    /** Sets the site's values, unchanged. Each process needs a set before it. */
    private void tune() {
        long params = new_Kelpbox_Params();
        Kelpbox_Analysis_query(analysis, null, params, null);
        Kelpbox_Analysis_set(analysis, null, params, null);
        delete_Kelpbox_Params(params);
    }

    private long process(long set, long kind) {
        tune();
        return Kelpbox_Analysis_create_process(analysis, null, set, kind);
    }

    private long results(long process) {
        long settings = new_Kelpbox_Params();
        Flume.insert(settings, "freq", 1, "Hz");
        Flume.insert(settings, "angle", 0, "rad");
        long out = new_Kelpbox_Params();
        Kelpbox_Analysis_get_results(analysis, null, process, settings, null, out, null);
        delete_Kelpbox_Params(settings);
        return out;
    }

    private double result(long process, String name, String units) {
        long out = results(process);
        double value = Kelpbox_Params_get(out, null, name, units);
        delete_Kelpbox_Params(out);
        return value;
    }

    private long data(long process) {
        long none = new_Kelpbox_Params();
        long data = Kelpbox_Analysis_get_data(analysis, null, process, none, null);
        delete_Kelpbox_Params(none);
        return data;
    }

    private static double[] sine(double amplitude, double period, double rate, int samples) {
        double[] result = new double[samples];
        for (int j = 0; j < samples; ++j) {
            result[j] = -amplitude * Math.cos(Flume.TWO_PI * j / rate / period);
        }
        return result;
    }

    private static String failure(Executable call) {
        return assertThrows(WaveSynthesisException.class, call).getMessage();
    }

    @Test
    void aMeasurementGoesFromSeriesToResults() {
        long high = series(sine(0.05, 2, 50, 2000), 50, 8);
        long low = series(sine(0.03, 2, 50, 2000), 50, 9);
        assertEquals(0, high);
        assertEquals(1, low);
        long set = set(40, high, low);
        assertEquals(2, set);

        long waves = process(set, 0);
        assertEquals(3, waves);
        assertEquals(2.0, result(waves, "reg_t", "s"), 1e-9);
        long heights = data(waves);
        assertEquals(2, Kelpbox_StdVectorDouble_size(heights, null));
        assertEquals(0.10, Kelpbox_StdVectorDouble_get(heights, null, 0), 1e-12);
        assertEquals(0.06, Kelpbox_StdVectorDouble_get(heights, null, 1), 1e-12);

        long nothing = process(set, 1);
        long out = results(nothing);
        assertTrue(Kelpbox_StdVectorParam_isEmpty(Kelpbox_Params_param_list(out, null), null));
        delete_Kelpbox_Params(out);
        assertTrue(Kelpbox_StdVectorDouble_isEmpty(data(nothing), null));

        long trains = process(set, 2);
        assertEquals("Too few independant probes to process", failure(() -> results(trains)));
        assertTrue(Kelpbox_StdVectorDouble_isEmpty(data(trains), null));
    }

    @Test
    void eachProcessWantsASetOfTheSiteBeforeIt() {
        long set = set(40, series(sine(0.05, 2, 50, 2000), 50, 8));
        String already = "Uncaught Exception in Experiment create_process: "
                + "Make ready called when already ready";
        assertEquals(
                already, failure(() -> Kelpbox_Analysis_create_process(analysis, null, set, 0)));
        assertEquals(2, process(set, 0));
        assertEquals(
                already, failure(() -> Kelpbox_Analysis_create_process(analysis, null, set, 0)));
    }

    @Test
    void wrongIdsAreReported() {
        long set = set(40, series(sine(0.05, 2, 50, 2000), 50, 8));
        assertEquals("Uncaught Exception in Experiment create_set", failure(() -> set(40, set)));
        assertEquals("Uncaught Exception in Experiment create_set: invalid vector<T> subscript",
                failure(() -> set(40, 99)));
        assertEquals("Uncaught Exception in Experiment get_results", failure(() -> results(99)));
        assertEquals("Uncaught Exception in Experiment get_data", failure(() -> data(set)));
        assertEquals(
                "Uncaught Exception in Experiment create_process", failure(() -> process(99, 0)));
        long next = process(set, 3);
        assertEquals("Uncaught Exception in Experiment get_results", failure(() -> results(next)));
        assertEquals(next, process(set, 0));
        Kelpbox_Analysis_clear(analysis, null);
        assertEquals(next + 1, series(new double[0], 50, 8));
    }

    @Test
    void theDataOfAProcessOutlivesItsAnalysis() {
        long process = process(set(40, series(sine(0.05, 2, 50, 2000), 50, 8)), 0);
        delete_Kelpbox_Params(results(process));
        long heights = data(process);
        delete_Kelpbox_Analysis(analysis);
        assertEquals(0.1, Kelpbox_StdVectorDouble_get(heights, null, 0), 1e-12);
        analysis = new_Kelpbox_Analysis();
    }

    /**
     * The record of each probe over the repeat time of a run. Each front propagates from the paddle
     * line with the exact wave number of its frequency.
     */
    private static double[][] measured(
            long experiment, long definition, double repeat, double rate) {
        int n = (int) Math.round(repeat * rate);
        double[][] records = new double[PROBES.length][n];
        long fronts = Kelpbox_Experiment_fronts__SWIG_2(experiment, null, definition);
        for (int i = 0; i < Kelpbox_StdVectorFront_size(fronts, null); ++i) {
            long front = Kelpbox_StdVectorFront_get(fronts, null, i);
            double omega = Flume.TWO_PI * Kelpbox_Front_get_freq(front, null);
            double amplitude = Kelpbox_Front_get_amp(front, null);
            double phase = Kelpbox_Front_get_phase(front, null);
            double k = Flume.waveNumber(omega) * Math.cos(Kelpbox_Front_get_angle(front, null));
            for (int p = 0; p < PROBES.length; ++p) {
                for (int j = 0; j < n; ++j) {
                    records[p][j] += amplitude * Math.cos(omega * j / rate - k * PROBES[p] + phase);
                }
            }
        }
        return records;
    }

    private long setOf(double[][] records, double repeat, double rate) {
        long[] ids = new long[records.length];
        for (int p = 0; p < ids.length; ++p) {
            ids[p] = series(records[p], rate, PROBES[p]);
        }
        return set(repeat, ids);
    }

    @Test
    void anIncidentAndAReflectedWaveAreRecovered() {
        final double there = 0.04;
        final double back = 0.01;
        final double repeat = 20;
        long experiment = Flume.experiment();
        long definition = Kelpbox_Experiment_add_definition(experiment, null, "run");
        long specification = Flume.specification(experiment, definition);
        long wave = Kelpbox_Experiment_add_single(experiment, null, specification);
        Flume.setSingle(experiment, wave, 0.7, there, 0.3);
        Flume.setDefinition(experiment, definition, repeat);
        Kelpbox_Experiment_run_build(experiment, null, definition);
        double[][] records = measured(experiment, definition, repeat, 50);
        delete_Kelpbox_Experiment(experiment);

        // The reflection from the far end, which no paddle generates.
        double k = Flume.waveNumber(Flume.TWO_PI * 0.7);
        for (int p = 0; p < PROBES.length; ++p) {
            for (int j = 0; j < records[p].length; ++j) {
                records[p][j] += back * Math.cos(Flume.TWO_PI * 0.7 * j / 50 + k * PROBES[p] - 0.8);
            }
        }
        long out = results(process(setOf(records, repeat, 50), 2));
        // The library's explicit wave number is within a few parts in 1e5 of the exact one. Over
        // the 6 rad from the first probe to the last, this adds up to a few parts in 1e4 of the
        // wave.
        double tolerance = 5e-4 * there;
        assertEquals(
                there, Kelpbox_Params_get(out, null, "Forward free fundamental", ""), tolerance);
        assertEquals(
                back, Kelpbox_Params_get(out, null, "Backward free fundamental", ""), tolerance);
        for (String name :
                new String[] {"Forward bound", "Backward bound", "Forward free", "Backward free"}) {
            assertEquals(0, Kelpbox_Params_get(out, null, name + " harmonic", ""), 1e-10);
        }
        delete_Kelpbox_Params(out);
    }

    @Test
    void aRandomSeaHasTheRequestedHeight() {
        final double hs = 0.12;
        final double fp = 0.6;
        final double repeat = 1024;
        final double rate = 16;
        long experiment = Flume.experiment();
        long definition = Kelpbox_Experiment_add_definition(experiment, null, "run");
        long specification = Flume.specification(experiment, definition);
        long params = new_Kelpbox_Params();
        Flume.insert(params, "Hs", hs, "m");
        Flume.insert(params, "fp", fp, "Hz");
        Flume.insert(params, "low", 0.3, "Hz");
        Flume.insert(params, "high", 1.5, "Hz");
        long spectrum = Kelpbox_Experiment_add_spectrum(experiment, null, specification, "JONSWAP",
                "low[Hz] @Hz#" + jonswap("0.07") + "#fp[Hz] @Hz#" + jonswap("0.09")
                        + "#high[Hz] @Hz");
        Kelpbox_Experiment_set__SWIG_1(experiment, null, spectrum, params, null);
        Flume.insert(params, "ran_gen", "FullRandom", "RanGen");
        Flume.insert(params, "seed", 7, "");
        long phases =
                Kelpbox_Experiment_add_modifier(experiment, null, specification, "PhaseRandom", "");
        Kelpbox_Experiment_set__SWIG_1(experiment, null, phases, params, null);
        delete_Kelpbox_Params(params);
        Flume.setDefinition(experiment, definition, repeat);
        Kelpbox_Experiment_run_build(experiment, null, definition);
        double[][] records = measured(experiment, definition, repeat, rate);
        delete_Kelpbox_Experiment(experiment);

        long waves = process(setOf(records, repeat, rate), 0);
        // The library reports the height that one third of the waves exceed. By Forristall (1978)
        // the share of waves above H is exp(-(H / sqrt(m0))^2.126 / 8.42), which is 1/3 at 2.85
        // sqrt(m0). Rayleigh's law for a narrow band gives 4 per cent more. The standard deviation
        // over the 700 waves of a record is 2 per cent.
        double expected = Math.pow(8.42 * Math.log(3), 1 / 2.126) * hs / 4;
        assertEquals(expected, result(waves, "sig_h", "m"), 0.08 * expected);
        assertTrue(Kelpbox_StdVectorDouble_isEmpty(data(waves), null));
    }

    /** Goda's form with a peakedness of 3.3, whose constant gives the requested height. */
    private static String jonswap(String width) {
        return "0.0624/(0.230+0.0336*3.3-0.185/(1.9+3.3))*Hs[m]^2*fp[Hz]^4/$[Hz]^5"
                + "*exp(-1.25*(fp[Hz]/$[Hz])^4)"
                + "*3.3^exp(-square($[Hz]/fp[Hz]-1)/(2*square(" + width + "))) @m2s";
    }
}
