package tidelab.waves;

import tidelab.waves.component.WaveSynthesisException;

/** What experiments and analyses read from their site in the same way. Only during a call. */
final class Site {
    private Site() {}

    static Settings constants(long address) {
        try (Parameters parameters = Parameters.empty()) {
            Native.constants(address, parameters.address());
            return parameters.read();
        }
    }

    /** The tunable values. */
    static Settings settings(long address) {
        try (Parameters parameters = Parameters.empty()) {
            Native.querySite(address, parameters.address());
            return parameters.read();
        }
    }

    /** Sets the tunable values, or leaves those of before if they are refused. */
    static Settings set(long address, Settings before, Settings wanted) {
        try {
            return set(address, wanted);
        } catch (RuntimeException failure) {
            // The library has stored a part of the values.
            try {
                set(address, before);
            } catch (RuntimeException another) {
                failure.addSuppressed(another);
            }
            throw failure;
        }
    }

    private static Settings set(long address, Settings settings) {
        try (Parameters parameters = Parameters.of(settings)) {
            Native.setSite(address, parameters.address());
            return parameters.read();
        }
    }

    /**
     * Fails unless the site has a tank. A site loses its tank if none can be made from its values,
     * and the library's message about a paddle motion without one does not say what to do.
     */
    static void requireTank(long address) {
        try {
            profile(address, Settings.of("delta_x", Quantity.of(1e9, "m")));
        } catch (WaveSynthesisException failure) {
            throw new IllegalStateException(
                    "the site has no tank: set its values again before the paddle motion", failure);
        }
    }

    static double[] profile(long address, Settings settings) {
        try (Parameters parameters = Parameters.of(settings)) {
            return Native.profile(address, parameters.address());
        }
    }
}
