import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import java.util.ArrayList;
import java.util.List;

/** A plane wave train: frequency in Hz, amplitude in m, angle and phase in rad. */
record Front(double frequency, double amplitude, double angle, double phase) {
    /** The merged fronts of a run, at the paddle line. */
    static List<Front> of(long experiment, long run) {
        long fronts = Kelpbox_Experiment_fronts__SWIG_2(experiment, null, run);
        List<Front> result = new ArrayList<>();
        for (int i = 0; i < Kelpbox_StdVectorFront_size(fronts, null); ++i) {
            long front = Kelpbox_StdVectorFront_get(fronts, null, i);
            result.add(new Front(Kelpbox_Front_get_freq(front, null),
                    Kelpbox_Front_get_amp(front, null), Kelpbox_Front_get_angle(front, null),
                    Kelpbox_Front_get_phase(front, null)));
        }
        return result;
    }

    /** The variance of the surface in m2, for fronts of different frequencies. */
    static double variance(List<Front> fronts) {
        return fronts.stream()
                .mapToDouble(front -> 0.5 * front.amplitude() * front.amplitude())
                .sum();
    }
}
