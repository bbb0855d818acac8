import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import tidelab.waves.Kelpbox;

/**
 * Drives a flume through the native functions, without the classes of tidelab.waves: for hosts that
 * were written for them. Nothing is checked here. A wrong handle ends the JVM.
 *
 * <p>Usage: {@code java NativeFace <site script>}. Exits with 1 if the stroke is not the one of
 * linear wavemaker theory.
 */
public final class NativeFace {
    private NativeFace() {}

    public static void main(String[] args) {
        Kelpbox.load();
        long tank = new_Kelpbox_Experiment__SWIG_0();
        Kelpbox_Experiment_initialise(tank, null, args[0]);
        long run = Kelpbox_Experiment_add_definition(tank, null, "native");
        long place = Kelpbox_Experiment_add_specification(tank, null, run);
        long wave = Kelpbox_Experiment_add_single(tank, null, place);
        long p = new_Kelpbox_Params();
        for (String length : new String[] {"x", "y"}) number(p, length, 0, "m");
        for (String angle : new String[] {"angle", "phase"}) number(p, angle, 0, "deg");
        number(p, "t", 0, "s");
        number(p, "f", 0.8, "Hz");
        number(p, "a", 25, "mm");
        number(p, "repeat", 60, "s");
        number(p, "rate", 50, "Hz");
        Kelpbox_Params_insert__SWIG_1(p, null, "dalrymple", "False", "Bool");
        Kelpbox_Params_insert__SWIG_1(p, null, "wave_merge", "Null", "WaveMerge");
        for (long item : new long[] {place, wave, run}) {
            Kelpbox_Experiment_set__SWIG_1(tank, null, item, p, null);
        }
        Kelpbox_Experiment_run_build(tank, null, run);
        Kelpbox_Experiment_paddle_motion_build(tank, null, run, p, null);
        long signal = Kelpbox_Experiment_paddle_motion_data(tank, null, run, 0, 0); // of the tank
        double stroke = 0;
        for (int i = 0; i < Kelpbox_StdVectorDouble_size(signal, null); ++i) {
            stroke = Math.max(stroke, Kelpbox_StdVectorDouble_get(signal, null, i));
        }
        delete_Kelpbox_Params(p);
        delete_Kelpbox_Experiment(tank);
        System.exit(report(stroke) ? 0 : 1);
    }

    private static void number(long params, String name, double value, String units) {
        Kelpbox_Params_insert__SWIG_0(params, null, name, value, units);
    }

    /** A piston over the full depth of 0.7 m. */
    private static boolean report(double stroke) {
        double kd = 0.7 * Propagation.waveNumber(2 * Math.PI * 0.8, 0.7, 9.81);
        double theory = 0.025 * (Math.sinh(2 * kd) + 2 * kd) / (4 * Math.sinh(kd) * Math.sinh(kd));
        System.out.printf(
                "native    a stroke of %.3f mm; by theory %.3f mm%n", 1000 * stroke, 1000 * theory);
        return Math.abs(stroke / theory - 1) < 0.002;
    }
}
