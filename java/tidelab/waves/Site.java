package tidelab.waves;

import tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI;

/** What experiments and analyses read from their site in the same way. Only during a call. */
final class Site {
    private Site() {}

    static Settings constants(long address) {
        try (Parameters parameters = Parameters.empty()) {
            KelpboxNativeLibraryJNI.Kelpbox_Experiment_get_consts(
                    address, null, parameters.address(), null);
            return parameters.read();
        }
    }

    /** The tunable values. */
    static Settings settings(long address) {
        try (Parameters parameters = Parameters.empty()) {
            KelpboxNativeLibraryJNI.Kelpbox_Experiment_query(
                    address, null, parameters.address(), null);
            return parameters.read();
        }
    }

    static double[] profile(long address, Settings settings) {
        try (Parameters parameters = Parameters.of(settings)) {
            return Native.profile(address, parameters.address());
        }
    }
}
