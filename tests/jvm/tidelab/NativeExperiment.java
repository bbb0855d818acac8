package tidelab;

import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import tidelab.waves.component.WaveSynthesisException;

/** One whole experiment through the native functions, which frees all that a host has to free. */
public final class NativeExperiment implements AutoCloseable {
    private final long experiment = new_Kelpbox_Experiment__SWIG_0();
    private final long params = new_Kelpbox_Params();
    private long record;

    public NativeExperiment(String site) {
        Kelpbox_Experiment_initialise(experiment, null, site);
    }

    @Override
    public void close() {
        delete_Kelpbox_Params(params);
        delete_Kelpbox_Experiment(experiment);
        delete_Kelpbox_Vector(record);
    }

    /**
     * Builds a run of one wave along the tank. Frequency in Hz, amplitude in m, repeat time in s.
     */
    public long regular(double f, double a, double repeat) {
        long definition = Kelpbox_Experiment_add_definition(experiment, null, "regular");
        long specification = Flume.specification(experiment, definition);
        long single = Kelpbox_Experiment_add_single(experiment, null, specification);
        Flume.setSingle(experiment, single, f, a, 0);
        return build(definition, repeat);
    }

    /** Builds a run of a spectrum with random phases, and of a record that is repeated. */
    public long irregular(double repeat, double[] samples) {
        long definition = Kelpbox_Experiment_add_definition(experiment, null, "irregular");
        long specification = Flume.specification(experiment, definition);
        Kelpbox_Params_clear(params, null);
        set(Kelpbox_Experiment_add_spectrum(
                experiment, null, specification, "flat", "0.3@Hz#0.0001@m2s#1.2@Hz"));
        Flume.insert(params, "ran_gen", "FullRandom", "RanGen");
        Flume.insert(params, "seed", 17, "");
        set(Kelpbox_Experiment_add_modifier(experiment, null, specification, "PhaseRandom", ""));
        long values = new_Kelpbox_StdVectorDouble__SWIG_0();
        for (double sample : samples) Kelpbox_StdVectorDouble_add(values, null, sample);
        record = new_Kelpbox_Vector("record", "mm", values, null);
        delete_Kelpbox_StdVectorDouble(values);
        Kelpbox_Params_clear(params, null);
        Flume.insert(params, "rate", 50, "Hz");
        Flume.insert(params, "scale_ratio", 1, "");
        Flume.insert(params, "ramp_time", 1, "s");
        Flume.insert(params, "ramp_type", "Sine", "Ramp");
        set(Kelpbox_Experiment_add_timeseries(experiment, null, specification, record, null));
        return build(definition, repeat);
    }

    private void set(long item) {
        Kelpbox_Experiment_set__SWIG_1(experiment, null, item, params, null);
    }

    private long build(long definition, double repeat) {
        Flume.setDefinition(experiment, definition, repeat);
        Kelpbox_Experiment_run_build(experiment, null, definition);
        delete_Kelpbox_StdVectorString(Kelpbox_Experiment_messages(experiment, null, definition));
        return definition;
    }

    /** {@return the largest value of the drive signal of the first paddle} */
    public double largestMotion(long definition, double rate) {
        Kelpbox_Params_clear(params, null);
        Flume.insert(params, "rate", rate, "Hz");
        Kelpbox_Experiment_paddle_motion_build(experiment, null, definition, params, null);
        Kelpbox_Params_clear(params, null);
        Kelpbox_Experiment_paddle_motion_stats(experiment, null, definition, 0, params, null);
        return largest(Kelpbox_Experiment_paddle_motion_data(experiment, null, definition, 0, 0));
    }

    /** {@return the highest elevation at a point 3 m from the paddle} */
    public double highestAtPoint(long definition, double rate) {
        point(rate);
        Flume.insert(params, "delta_angle", 10, "deg");
        Kelpbox_Experiment_twod_build(experiment, null, definition, params, null);
        return largest(Kelpbox_Experiment_twod_data(experiment, null, definition, 0));
    }

    /** {@return the period of regular waves at that point, from its statistics} */
    public double periodAtPoint(long definition, double rate) {
        point(rate);
        Kelpbox_Experiment_twod_stats(experiment, null, definition, params, null);
        return Kelpbox_Params_get(params, null, "reg_t", "s");
    }

    private void point(double rate) {
        Kelpbox_Params_clear(params, null);
        Flume.insert(params, "rate", rate, "Hz");
        Flume.insert(params, "x", 3, "m");
        Flume.insert(params, "y", 0, "m");
    }

    private static double largest(long vector) {
        double most = 0;
        int size = (int) Kelpbox_StdVectorDouble_size(vector, null);
        for (int i = 0; i < size; ++i) {
            most = Math.max(most, Kelpbox_StdVectorDouble_get(vector, null, i));
        }
        return most;
    }

    /** {@return the highest point in m of all frames at the paddle} */
    public double highestAtPaddle(long definition, double rate, double xStep) {
        build(definition, rate, xStep);
        double most = 0;
        for (long t = 0; t < frames(definition); ++t) {
            long frame = Kelpbox_Experiment_animate_data(experiment, null, definition, t);
            most = Math.max(most, Kelpbox_StdVectorShort_get(frame, null, 0) * 4.0 / 32767);
        }
        return most;
    }

    /** Builds an animation of the whole flume, with a row at each wall and three between them. */
    public void build(long definition, double rate, double xStep) {
        Kelpbox_Params_clear(params, null);
        Flume.insert(params, "rate", rate, "Hz");
        Flume.insert(params, "x_step", xStep, "m");
        Flume.insert(params, "x_min", 0, "m");
        Flume.insert(params, "x_max", 20, "m");
        Flume.insert(params, "y_step", 0.25, "m");
        Flume.insert(params, "y_min", -0.5, "m");
        Flume.insert(params, "y_max", 0.5, "m");
        Kelpbox_Experiment_animate_build(experiment, null, definition, params, null);
    }

    /** {@return the share of the animation that has been built; on any thread} */
    public double progress(long definition) {
        return Kelpbox_Experiment_animate_progress(experiment, null, definition);
    }

    /** Ends the build of the animation; on any thread. */
    public void stop(long definition) {
        Kelpbox_Experiment_animate_stop(experiment, null, definition);
    }

    /** {@return the number of frames} */
    public long frames(long definition) {
        return Kelpbox_Experiment_animate_size(experiment, null, definition);
    }

    /** Sets the site to what it has. */
    public void tune() {
        Kelpbox_Params_clear(params, null);
        Kelpbox_Experiment_query__SWIG_0(experiment, null, params, null);
        Kelpbox_Experiment_set__SWIG_0(experiment, null, params, null);
        Kelpbox_Params_clear(params, null);
        Flume.insert(params, "delta_x", 1, "m");
        delete_Kelpbox_StdVectorDouble(Kelpbox_Experiment_profile(experiment, null, params, null));
    }

    /** Makes calls that the library refuses, and returns how many it refused. */
    public int refused(long definition) {
        int refused = 0;
        Kelpbox_Params_clear(params, null);
        Flume.insert(params, "rate", 1, "m");
        refused += fails(
                () -> Kelpbox_Experiment_animate_build(experiment, null, definition, params, null));
        refused += fails(()
                                 -> Kelpbox_Experiment_paddle_motion_build(
                                         experiment, null, definition, params, null));
        refused += fails(()
                                 -> Kelpbox_Experiment_add_spectrum(experiment, null,
                                         definition + 1, "wrong", "1+(@Hz#sin(f"));
        refused += fails(() -> Kelpbox_Experiment_remove(experiment, null, 999));
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
