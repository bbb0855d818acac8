package tidelab.waves;

import tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI;

/**
 * A paddle of a bank.
 *
 * <p>Example: {@code double metres = experiment.bank(0).paddles().get(0).y();}
 *
 * @param number its number in the site script
 * @param x its position along the tank, in m
 * @param y its position across the tank, in m
 * @param angle its direction, in rad
 */
public record Paddle(int number, double x, double y, double angle) {
    /** Reads a paddle of the site. Only during a call. */
    static Paddle read(long address, int bank, int paddle) {
        try (Parameters parameters = Parameters.empty()) {
            KelpboxNativeLibraryJNI.Kelpbox_Experiment_paddle_info(
                    address, null, bank, paddle, parameters.address(), null);
            Settings info = parameters.read();
            return new Paddle((int) info.get("paddle_num", ""), info.get("x", "m"),
                    info.get("y", "m"), info.get("angle", "rad"));
        }
    }
}
