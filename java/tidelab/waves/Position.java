package tidelab.waves;

import tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI;

/**
 * The place and time at which the phases of a specification hold.
 *
 * <p>Example: {@code double metres = run.position(0).x();}
 *
 * @param x in m, along the tank
 * @param y in m, across the tank
 * @param t in s
 */
public record Position(double x, double y, double t) {
    /** Copies a native record. */
    static Position at(long address) {
        return new Position(KelpboxNativeLibraryJNI.Kelpbox_Position_get_x(address, null),
                KelpboxNativeLibraryJNI.Kelpbox_Position_get_y(address, null),
                KelpboxNativeLibraryJNI.Kelpbox_Position_get_t(address, null));
    }
}
